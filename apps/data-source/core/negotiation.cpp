#include "apps/data-source/core/negotiation.h"

#include <cmath>
#include <cstring>
#include <iterator>

#include "set32/new_settings.h"

namespace data_source {

using set32::ScanSettings;

namespace {

constexpr double centimetresAnInch = 2.54;

bool IsLength(double inches, double most) {
  return inches > 0 && inches <= most;
}

bool IsGamma(double gamma) {
  return gamma > 0 && gamma <= 10;
}

double UnitsAnInch(const ScanSettings& settings) {
  switch (settings.units) {
    case set32::unit::centimetre:
      return centimetresAnInch;
    case set32::unit::pixel:
      return settings.dpi;
    default:
      return 1;
  }
}

}  // namespace

Negotiation::Negotiation() : settings(NewSettings()) {}

ScanSettings NewSettings() {
  return set32::NewSettings(set32::size_id::letter);
}

Area AreaOf(const ScanSettings& settings) {
  constexpr double dots = device::previewDpi;
  return {settings.frameLeft / dots, settings.frameTop / dots, settings.width, settings.height};
}

void PutArea(ScanSettings& settings, const Area& area) {
  settings.frameLeft = static_cast<std::int32_t>(std::lround(area.left * device::previewDpi));
  settings.frameTop = static_cast<std::int32_t>(std::lround(area.top * device::previewDpi));
  settings.width = settings.customWidth = area.width;
  settings.height = settings.customHeight = area.height;
  settings.sizeId = set32::size_id::userDefined;
  settings.rotated = 0;
  settings.autoCrop = 0;
}

void PutDpi(ScanSettings& settings, int dpi) {
  static constexpr struct {
    int dpi;
    std::uint32_t code;
  } codes[] = {{75, set32::resolution::dpi75},   {100, set32::resolution::dpi100}, {150, set32::resolution::dpi150},
               {200, set32::resolution::dpi200}, {300, set32::resolution::dpi300}, {400, set32::resolution::dpi400},
               {500, set32::resolution::dpi500}, {600, set32::resolution::dpi600}};
  settings.dpi = dpi;
  settings.resolutionId = set32::resolution::userDefined;
  for (const auto& named : codes) {
    if (named.dpi == dpi) settings.resolutionId = named.code;
  }
}

void LayOver(const Negotiation& from, bool pageKeepsSource, ScanSettings& settings) {
  const ScanSettings& own = from.settings;
  const LaidParts& laid = from.laid;
  const std::uint32_t source = settings.paperSource;
  if (laid.all) settings = own;
  if (laid.mode) settings.mode = own.mode;
  if (laid.resolution) {
    settings.dpi = own.dpi;
    settings.resolutionId = own.resolutionId;
  }
  if (laid.area) {
    settings.frameLeft = own.frameLeft;
    settings.frameTop = own.frameTop;
    settings.width = own.width;
    settings.height = own.height;
    settings.customWidth = own.customWidth;
    settings.customHeight = own.customHeight;
    settings.sizeId = own.sizeId;
    settings.rotated = own.rotated;
    settings.autoCrop = own.autoCrop;
  }
  if (laid.depth) settings.highBitDepth = own.highBitDepth;
  if (laid.depth && own.highBitDepth != 0) settings.descreen = 0;
  if (laid.brightness) settings.brightness = own.brightness;
  if (laid.contrast) settings.contrast = own.contrast;
  if (laid.gamma) {
    settings.bandGamma = own.bandGamma;
    settings.gammaAll = settings.gammaRed = settings.gammaGreen = settings.gammaBlue = own.gammaAll;
  }
  if (laid.units) settings.units = own.units;
  if (laid.quality) settings.jpegQuality = own.jpegQuality;
  settings.paperSource = laid.source || laid.all ? own.paperSource : settings.paperSource;
  if (pageKeepsSource) settings.paperSource = source;
}

bool IsScannable(const ScanSettings& settings) {
  const std::uint32_t modes[] = {set32::mode::colour, set32::mode::gray, set32::mode::blackWhite,
                                 set32::mode::jpegColour, set32::mode::jpegGray};
  bool isMode = false;
  for (const std::uint32_t mode : modes) isMode = isMode || settings.mode == mode;
  const auto isOnGlass = [](std::int32_t pixels) { return pixels >= 0 && pixels < device::feederHeight * 100; };
  return isMode && isOnGlass(settings.frameLeft) && isOnGlass(settings.frameTop) &&
         settings.dpi >= device::lowestDpi && settings.dpi <= device::highestDpi &&
         settings.paperSource <= set32::paper_source::feeder && settings.units <= set32::unit::pixel &&
         IsLength(settings.width, device::glassWidth) && IsLength(settings.height, device::feederHeight) &&
         settings.brightness >= -100 && settings.brightness <= 100 && settings.contrast >= -100 &&
         settings.contrast <= 100 && settings.jpegQuality >= 0 && settings.jpegQuality <= 10 &&
         IsGamma(settings.gammaAll) && IsGamma(settings.gammaRed) && IsGamma(settings.gammaGreen) &&
         IsGamma(settings.gammaBlue);
}

double InUnits(double inches, const ScanSettings& settings) {
  return inches * UnitsAnInch(settings);
}

double FromUnits(double length, const ScanSettings& settings) {
  return length / UnitsAnInch(settings);
}

}  // namespace data_source
