#include "apps/data-source/core/capabilities.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace data_source {

using set32::ScanSettings;

namespace {

namespace cap = twain::cap;
namespace container = twain::container;
namespace type = twain::type;

constexpr std::size_t mostFrames = 10;

bool IsColour(const ScanSettings& settings) {
  return settings.mode == set32::mode::colour || settings.mode == set32::mode::jpegColour;
}

bool IsBlackWhite(const ScanSettings& settings) {
  return settings.mode == set32::mode::blackWhite;
}

double DotsAUnit(const ScanSettings& settings) {
  return settings.units == set32::unit::centimetre ? 1 / 2.54 : 1;
}

double HeightOf(const ScanSettings& settings) {
  return settings.paperSource == set32::paper_source::feeder ? device::feederHeight : device::glassHeight;
}

// The sizes that the panel and the protocol both have a name for.
constexpr struct {
  std::uint16_t size;
  std::uint32_t sizeId;
  double width, height;
} sizes[] = {{twain::supported_size::letter, set32::size_id::letter, 8.5, 11},
             {twain::supported_size::legal, set32::size_id::legal, 8.5, 14},
             {twain::supported_size::a4, set32::size_id::a4, 8.27, 11.69},
             {twain::supported_size::b5, set32::size_id::b5, 7.17, 10.12},
             {twain::supported_size::executive, set32::size_id::executive, 7.25, 10.5},
             {twain::supported_size::businessCard, set32::size_id::businessCard, 3.54, 2.13}};

bool PutPixelType(Negotiation& negotiation, double value) {
  ScanSettings& settings = negotiation.settings;
  settings.mode = value == twain::pixel_type::blackWhite ? set32::mode::blackWhite
                  : value == twain::pixel_type::gray     ? set32::mode::gray
                                                         : set32::mode::colour;
  if (IsBlackWhite(settings)) settings.highBitDepth = settings.descreen = 0;
  negotiation.laid.mode = true;
  return true;
}

std::vector<double> BitDepths(const Negotiation& negotiation) {
  if (IsBlackWhite(negotiation.settings)) return {1};
  return IsColour(negotiation.settings) ? std::vector<double>{24, 48} : std::vector<double>{8, 16};
}

double BitDepth(const Negotiation& negotiation, const Scanner&) {
  const PixelKind kind = ShapeOf({negotiation.settings, {}}).kind;
  return SamplesOf(kind) * BitsOf(kind);
}

bool PutBitDepth(Negotiation& negotiation, double value) {
  ScanSettings& settings = negotiation.settings;
  settings.highBitDepth = value == 16 || value == 48 ? 1 : 0;
  if (settings.highBitDepth != 0) settings.descreen = 0;
  negotiation.laid.depth = negotiation.laid.mode = true;  // a depth is one of a pixel type
  return true;
}

std::vector<double> Resolutions(const Negotiation& negotiation) {
  const double dots = DotsAUnit(negotiation.settings);
  return {device::lowestDpi * dots, device::highestDpi * dots, 1 * dots};
}

double Resolution(const Negotiation& negotiation, const Scanner&) {
  return negotiation.settings.dpi * DotsAUnit(negotiation.settings);
}

bool PutResolution(Negotiation& negotiation, double value) {
  PutDpi(negotiation.settings, static_cast<int>(std::lround(value / DotsAUnit(negotiation.settings))));
  negotiation.laid.resolution = true;
  return true;
}

double NativeResolution(const Negotiation& negotiation, const Scanner&) {
  return device::highestDpi * DotsAUnit(negotiation.settings);
}

double Units(const Negotiation& negotiation, const Scanner&) {
  switch (negotiation.settings.units) {
    case set32::unit::centimetre:
      return twain::unit::centimetres;
    case set32::unit::pixel:
      return twain::unit::pixels;
    default:
      return twain::unit::inches;
  }
}

bool PutUnits(Negotiation& negotiation, double value) {
  negotiation.settings.units = value == twain::unit::centimetres ? set32::unit::centimetre
                               : value == twain::unit::pixels    ? set32::unit::pixel
                                                                 : set32::unit::inch;
  negotiation.laid.units = true;
  return true;
}

std::vector<double> SupportedSizes(const Negotiation& negotiation) {
  std::vector<double> offered{twain::supported_size::none};
  for (const auto& size : sizes) {
    if (size.height <= HeightOf(negotiation.settings)) offered.push_back(size.size);
  }
  return offered;
}

double SupportedSize(const Negotiation& negotiation, const Scanner&) {
  if (negotiation.frames.empty()) {
    for (const auto& size : sizes) {
      if (size.sizeId == negotiation.settings.sizeId && size.height <= HeightOf(negotiation.settings))
        return size.size;
    }
  }
  return twain::supported_size::none;
}

// No size in particular leaves the area as it is.
bool PutSupportedSize(Negotiation& negotiation, double value) {
  for (const auto& size : sizes) {
    if (size.size != value) continue;
    PutArea(negotiation.settings, {0, 0, size.width, size.height});
    negotiation.settings.sizeId = size.sizeId;
    negotiation.frames.clear();
    negotiation.laid.area = true;
  }
  return true;
}

// A page longer than the glass doesn't stay on it.
bool PutFeeder(Negotiation& negotiation, double value) {
  ScanSettings& settings = negotiation.settings;
  settings.paperSource = value != 0 ? set32::paper_source::feeder : set32::paper_source::flatbed;
  negotiation.laid.source = true;
  return true;
}

bool PutGamma(Negotiation& negotiation, double value) {
  ScanSettings& settings = negotiation.settings;
  settings.bandGamma = 0;
  settings.gammaAll = settings.gammaRed = settings.gammaGreen = settings.gammaBlue = value;
  negotiation.laid.gamma = true;
  return true;
}

// A number that always stands.
template <int value>
double Always(const Negotiation&, const Scanner&) {
  return value;
}

template <int... value>
std::vector<double> List(const Negotiation&) {
  return {value...};
}

bool PutAnything(Negotiation&, double) {
  return true;
}

constexpr std::int32_t protocolScale = 10;  // of the record's brightness, contrast and quality

constexpr auto one = container::oneValue, list = container::enumeration, range = container::range;

constexpr Capability capabilities[] = {
    {cap::transferCount, type::int16, one, nullptr,
     [](const Negotiation& n, const Scanner&) -> double { return n.count; },
     [](Negotiation& n, double value) {
       if (value < -1 || value == 0) return false;
       n.count = static_cast<std::int16_t>(value);
       return true;
     }},
    {cap::compression, type::uint16, list, List<0>, Always<0>, PutAnything},
    {cap::pixelType, type::uint16, list,
     List<twain::pixel_type::blackWhite, twain::pixel_type::gray, twain::pixel_type::rgb>,
     [](const Negotiation& n, const Scanner&) -> double {
       return IsBlackWhite(n.settings) ? twain::pixel_type::blackWhite
              : IsColour(n.settings)   ? twain::pixel_type::rgb
                                       : twain::pixel_type::gray;
     },
     PutPixelType},
    {cap::units, type::uint16, list, List<twain::unit::inches, twain::unit::centimetres, twain::unit::pixels>, Units,
     PutUnits},
    {cap::mechanism, type::uint16, list,
     List<twain::mechanism::native, twain::mechanism::file, twain::mechanism::memory>,
     [](const Negotiation& n, const Scanner&) -> double { return n.mechanism; },
     [](Negotiation& n, double value) {
       n.mechanism = static_cast<std::uint16_t>(value);
       return true;
     }},
    {cap::feederEnabled, type::boolean, one, nullptr,
     [](const Negotiation& n, const Scanner&) -> double {
       return n.settings.paperSource == set32::paper_source::feeder ? 1 : 0;
     },
     PutFeeder},
    {cap::feederLoaded, type::boolean, one, nullptr,
     [](const Negotiation&, const Scanner& scanner) -> double {
       return scanner.Pages(set32::paper_source::feeder).empty() ? 0 : 1;
     },
     nullptr},
    {cap::supportedCaps, type::uint16, container::array,
     [](const Negotiation&) {
       std::vector<double> ids;
       for (const Capability& capability : Capabilities()) ids.push_back(capability.id);
       return ids;
     },
     nullptr, nullptr},
    {cap::autoFeed, type::boolean, one, nullptr,
     [](const Negotiation& n, const Scanner&) -> double { return n.autoFeed; },
     [](Negotiation& n, double value) {
       n.autoFeed = value != 0;
       return true;
     }},
    {cap::indicators, type::boolean, one, nullptr,
     [](const Negotiation& n, const Scanner&) -> double { return n.indicators; },
     [](Negotiation& n, double value) {
       n.indicators = value != 0;
       return true;
     }},
    {cap::paperDetectable, type::boolean, one, nullptr, Always<1>, nullptr},
    {cap::controllable, type::boolean, one, nullptr, Always<1>, nullptr},
    {cap::deviceOnline, type::boolean, one, nullptr, Always<1>, nullptr},
    {cap::duplex, type::uint16, one, nullptr, Always<0>, nullptr},
    {cap::enableForSettings, type::boolean, one, nullptr, Always<1>, nullptr},
    {cap::customData, type::boolean, one, nullptr, Always<1>, nullptr},
    {cap::brightness, type::fixed, range, List<-1000, 1000, protocolScale>,
     [](const Negotiation& n, const Scanner&) -> double { return n.settings.brightness * protocolScale; },
     [](Negotiation& n, double value) {
       n.settings.brightness = static_cast<std::int32_t>(std::lround(value / protocolScale));
       return n.laid.brightness = true;
     }},
    {cap::contrast, type::fixed, range, List<-1000, 1000, protocolScale>,
     [](const Negotiation& n, const Scanner&) -> double { return n.settings.contrast * protocolScale; },
     [](Negotiation& n, double value) {
       n.settings.contrast = static_cast<std::int32_t>(std::lround(value / protocolScale));
       return n.laid.contrast = true;
     }},
    {cap::gamma, type::fixed, range,
     [](const Negotiation&) {
       return std::vector<double>{0.1, 10, 0.1};
     },
     [](const Negotiation& n, const Scanner&) { return n.settings.gammaAll; }, PutGamma},
    {cap::fileFormat, type::uint16, list, List<twain::file_format::bmp, twain::file_format::jfif>,
     [](const Negotiation& n, const Scanner&) -> double { return n.fileFormat; },
     [](Negotiation& n, double value) {
       n.fileFormat = static_cast<std::uint16_t>(value);
       return true;
     }},
    {cap::jpegQuality, type::int16, range, List<0, 100, protocolScale>,
     [](const Negotiation& n, const Scanner&) -> double { return n.settings.jpegQuality * protocolScale; },
     [](Negotiation& n, double value) {
       n.settings.jpegQuality = static_cast<std::int32_t>(std::lround(value / protocolScale));
       return n.laid.quality = true;
     }},
    {cap::physicalWidth, type::fixed, one, nullptr,
     [](const Negotiation& n, const Scanner&) { return InUnits(device::glassWidth, n.settings); }, nullptr},
    {cap::physicalHeight, type::fixed, one, nullptr,
     [](const Negotiation& n, const Scanner&) { return InUnits(HeightOf(n.settings), n.settings); }, nullptr},
    {cap::frames, type::frame, list, nullptr, nullptr, PutAnything},
    {cap::nativeResolutionX, type::fixed, one, nullptr, NativeResolution, nullptr},
    {cap::nativeResolutionY, type::fixed, one, nullptr, NativeResolution, nullptr},
    {cap::resolutionX, type::fixed, range, Resolutions, Resolution, PutResolution},
    {cap::resolutionY, type::fixed, range, Resolutions, Resolution, PutResolution},
    {cap::maxFrames, type::uint16, one, nullptr, Always<int{mostFrames}>, nullptr},
    {cap::bitOrder, type::uint16, list, List<1>, Always<1>, PutAnything},      // the highest bit is the left pixel
    {cap::pixelFlavor, type::uint16, list, List<0>, Always<0>, PutAnything},   // 0 is black
    {cap::planarChunky, type::uint16, list, List<0>, Always<0>, PutAnything},  // the bands of a pixel together
    {cap::supportedSizes, type::uint16, list, SupportedSizes, SupportedSize, PutSupportedSize},
    {cap::threshold, type::fixed, range, List<0, 255, 1>,
     [](const Negotiation& n, const Scanner&) -> double { return n.threshold; },
     [](Negotiation& n, double value) {
       n.threshold = static_cast<std::uint32_t>(std::lround(value));
       return true;
     }},
    {cap::bitDepth, type::uint16, list, BitDepths, BitDepth, PutBitDepth},
};

// Numbers with a fraction travel rounded.
bool IsNear(double left, double right) {
  return std::abs(left - right) < 1e-3;
}

Values FramesOf(Asked asked, const Negotiation& negotiation) {
  const Negotiation& from = asked == Asked::standard ? Negotiation{} : negotiation;
  const std::vector<Area> areas = AreasOf(from);
  Values values{container::enumeration, type::frame, {}};
  if (asked != Asked::offer) values.container = container::oneValue;
  for (const Area& area : areas) {
    AppendFrame(values.numbers, area, negotiation.settings);
    if (asked != Asked::offer) break;
  }
  return values;
}

bool TakeFrames(const Values& values, Negotiation& negotiation) {
  std::vector<Area> areas;
  for (std::size_t i = 0; i < values.numbers.size(); i += 4)
    areas.push_back(FrameInInches(std::span(values.numbers).subspan(i, 4), negotiation.settings));
  Negotiation changed = negotiation;
  if (areas.empty() || areas.size() > mostFrames) return false;
  for (const Area& area : areas) {
    if (!PutLayout(changed, area)) return false;
  }
  changed.frames = areas;
  negotiation = changed;
  return true;
}

}  // namespace

Area FrameInInches(std::span<const double> frame, const ScanSettings& settings) {
  const double left = FromUnits(frame[0], settings), top = FromUnits(frame[1], settings);
  return {left, top, FromUnits(frame[2], settings) - left, FromUnits(frame[3], settings) - top};
}

void AppendFrame(std::vector<double>& numbers, const Area& area, const ScanSettings& settings) {
  for (const double edge : {area.left, area.top, area.left + area.width, area.top + area.height})
    numbers.push_back(InUnits(edge, settings));
}

std::vector<Area> AreasOf(const Negotiation& negotiation) {
  if (!negotiation.frames.empty()) return negotiation.frames;
  return {AreaOf(negotiation.settings)};
}

bool PutLayout(Negotiation& negotiation, const Area& area) {
  constexpr double rounding = 0.01, least = 0.01;
  if (area.left < -rounding || area.top < -rounding || area.width < least || area.height < least ||
      area.left + area.width > device::glassWidth + rounding ||
      area.top + area.height > HeightOf(negotiation.settings) + rounding)
    return false;
  PutArea(negotiation.settings, area);
  negotiation.frames = {area};
  negotiation.laid.area = true;
  return true;
}

std::uint32_t Capability::Support() const {
  const std::uint32_t asks = twain::support::get | twain::support::getCurrent | twain::support::getDefault;
  return put == nullptr ? asks : asks | twain::support::set | twain::support::reset;
}

std::span<const Capability> Capabilities() {
  return capabilities;
}

const Capability* FindCapability(std::uint16_t id) {
  const auto* const found = std::ranges::find(capabilities, id, &Capability::id);
  return found == std::end(capabilities) ? nullptr : found;
}

Values Answer(const Capability& capability, Asked asked, const Negotiation& negotiation, const Scanner& scanner) {
  if (capability.id == cap::frames) return FramesOf(asked, negotiation);
  Values values{capability.container, capability.type, {}};
  if (capability.offers != nullptr) values.numbers = capability.offers(negotiation);
  if (capability.current == nullptr) return values;

  // A default is told in the units that stand.
  Negotiation fresh;
  fresh.settings.units = negotiation.settings.units;
  if (capability.id == cap::bitDepth) fresh.settings.mode = negotiation.settings.mode;
  if (capability.id == cap::units) fresh.settings.units = set32::unit::inch;
  const double current = capability.current(negotiation, scanner), standard = capability.current(fresh, scanner);
  if (asked != Asked::offer || capability.container == container::oneValue) {
    values.container = container::oneValue;
    values.numbers = {asked == Asked::standard ? standard : current};
  } else if (capability.container == container::range) {
    values.numbers.insert(values.numbers.end(), {standard, current});
  } else {
    const auto place = [&](double number) {
      const auto at = std::ranges::find(values.numbers, number);
      return at == values.numbers.end() ? 0 : static_cast<std::uint32_t>(at - values.numbers.begin());
    };
    values.current = place(current);
    values.standard = place(standard);
  }
  return values;
}

bool Take(const Capability& capability, const Values& values, Negotiation& negotiation) {
  if (capability.put == nullptr || values.type != capability.type) return false;
  if (capability.id == cap::frames) return TakeFrames(values, negotiation);
  if (values.numbers.empty() || values.container == container::array) return false;
  const double number = values.container == container::range ? values.numbers.back() : values.numbers[values.current];
  if (capability.offers != nullptr) {
    const std::vector<double> offered = capability.offers(negotiation);
    const bool isOffered = capability.container == container::range
                               ? number > offered[0] - 1e-2 && number < offered[1] + 1e-2
                               : std::ranges::any_of(offered, [&](double offer) { return IsNear(offer, number); });
    if (!isOffered) return false;
  }
  return capability.put(negotiation, number);
}

void Reset(const Capability& capability, Negotiation& negotiation, const Scanner& scanner) {
  if (capability.put == nullptr) return;
  if (capability.id == cap::frames || capability.id == cap::supportedSizes) {
    const set32::ScanSettings fresh = NewSettings();
    PutArea(negotiation.settings, AreaOf(fresh));
    negotiation.settings.sizeId = fresh.sizeId;
    negotiation.frames.clear();
    return;
  }
  const Values standard = Answer(capability, Asked::standard, negotiation, scanner);
  capability.put(negotiation, standard.numbers.front());
}

}  // namespace data_source
