#include "panel/rules/resolution_rules.h"

#include <algorithm>
#include <limits>

#include "resources/ids.h"

namespace set32 {

namespace {

constexpr std::array<ResolutionEntry, ResolutionList::capacity> allResolutions = {{
    {text::dpi75, resolution::dpi75, 75},
    {text::dpi100, resolution::dpi100, 100},
    {text::dpi150, resolution::dpi150, 150},
    {text::dpi200, resolution::dpi200, 200},
    {text::dpi300, resolution::dpi300, 300},
    {text::dpi400, resolution::dpi400, 400},
    {text::dpi500, resolution::dpi500, 500},
    {text::dpi600, resolution::dpi600, 600},
    {text::dpi1200, resolution::dpi1200, 1200},
    {text::dpi2400, resolution::dpi2400, 2400},
    {text::dpi4800, resolution::dpi4800, 4800},
    {text::dpi9600, resolution::dpi9600, 9600},
    {text::dpi19200, resolution::dpi19200, 19200},
    {text::dpiUserDefined, resolution::userDefined, 0},
}};

// The highest dpi of a typed number while a mode, the feeder or high-bit output restricts it; the list's entries
// above it are the ones that those restrictions take away.
constexpr std::int32_t restrictedTyping = 600;

bool IsJpeg(std::uint32_t mode) {
  return mode == mode::jpegColour || mode == mode::jpegGray;
}

bool Stands(const ResolutionEntry& entry, const ResolutionInput& input, const FaceRules& rules) {
  if ((input.resolutionMask & entry.resolutionId) == 0) return false;
  if ((rules.barredResolutions[input.pageSource] & entry.resolutionId) != 0) return false;
  if (entry.dpi <= restrictedTyping) return true;
  if (IsJpeg(input.mode) || input.pageSource == paper_source::feeder) return false;
  return input.descreen == 0 || input.restrictedMaxDpi >= static_cast<std::uint32_t>(entry.dpi);
}

// The listed entry at or below a limit, the lowest when all lie above; null when the list has no fixed entry.
const ResolutionEntry* NearestListed(const ResolutionList& list, std::int32_t limit) {
  const ResolutionEntry* nearest = nullptr;
  for (const ResolutionEntry& entry : list.Entries()) {
    if (entry.dpi == 0) continue;
    if (nearest == nullptr || entry.dpi <= limit) nearest = &entry;
  }
  return nearest;
}

void AddEntries(ResolutionList& list, const ResolutionInput& input, const FaceRules& rules) {
  for (const ResolutionEntry& entry : allResolutions) {
    if (!Stands(entry, input, rules)) continue;
    list.entries[list.count++] = entry;
    if (entry.dpi != 0) list.high = entry.dpi;
  }
}

void Restrict(ResolutionList& list, std::uint32_t restrictedMaxDpi) {
  constexpr std::uint32_t most = std::numeric_limits<std::int32_t>::max();
  auto limit = static_cast<std::int32_t>(std::min(restrictedMaxDpi, most));
  std::uint32_t code = 0;
  switch (limit) {
    case 1200:
      code = resolution::dpi1200;
      break;
    case 600:
      code = resolution::dpi600;
      break;
    case 300:
      code = resolution::dpi300;
      break;
    default:
      code = resolution::dpi2400;
      if (limit < 1200) {
        // A limit that names no entry means the one below it; below the whole list its lowest must do.
        if (const ResolutionEntry* nearest = NearestListed(list, limit)) {
          code = nearest->resolutionId;
          limit = std::max(limit, nearest->dpi);
        } else {
          code = resolution::userDefined;
          limit = std::max(limit, list.low);
        }
      }
  }
  if (list.dpi > limit) {
    list.dpi = limit;
    list.resolutionId = code;
  }
  list.high = limit;
}

void CorrectNegative(ResolutionList& list, const FaceRules& rules) {
  list.low = rules.negativeLow;
  if (list.dpi >= rules.negativeFloor) return;
  list.dpi = rules.negativeDpi;
  list.resolutionId = rules.negativeResolutionId;
}

// The code wins over a differing dpi, also where its entry isn't on the list. A dpi of no meaning that no code
// corrects becomes the lowest there is.
void SettleDpi(ResolutionList& list) {
  if (const std::int32_t dpi = DpiOfCode(list.resolutionId); dpi != 0) list.dpi = dpi;
  if (list.dpi <= 0) list.dpi = list.low;
}

int PositionOf(const ResolutionList& list, std::uint32_t resolutionId) {
  const auto entries = list.Entries();
  const auto found = std::ranges::find(entries, resolutionId, &ResolutionEntry::resolutionId);
  return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

}  // namespace

std::int32_t DpiOfCode(std::uint32_t resolutionId) {
  const auto found = std::ranges::find(allResolutions, resolutionId, &ResolutionEntry::resolutionId);
  return found == allResolutions.end() ? 0 : found->dpi;
}

ResolutionInput MakeResolutionInput(const ScanSettings& settings, std::uint32_t pageSource,
                                    std::uint32_t resolutionMask, std::uint32_t restrictedMaxDpi) {
  return {
      .mode = settings.mode,
      .resolutionId = settings.resolutionId,
      .dpi = settings.dpi,
      .highBitDepth = settings.highBitDepth,
      .descreen = settings.descreen,
      .pageSource = pageSource,
      .resolutionMask = resolutionMask,
      .restrictedMaxDpi = restrictedMaxDpi,
  };
}

bool ListTest(const ResolutionInput& input) {
  return IsJpeg(input.mode) || input.pageSource == paper_source::feeder || input.descreen != 0;
}

bool EditTest(const ResolutionInput& input) {
  return IsJpeg(input.mode) || input.pageSource == paper_source::feeder || input.highBitDepth != 0;
}

ResolutionList ComputeResolutionList(const ResolutionInput& input, const FaceRules& rules) {
  ResolutionList list{};
  list.dpi = input.dpi;
  list.resolutionId = input.resolutionId;
  AddEntries(list, input, rules);
  if (ListTest(input)) Restrict(list, input.restrictedMaxDpi);
  if (input.pageSource == paper_source::negative) CorrectNegative(list, rules);
  if (rules.dpiAboveListIsCorrected && list.dpi > list.high) {
    list.resolutionId = resolution::userDefined;
    list.dpi = list.high;
  }
  SettleDpi(list);
  list.selected = PositionOf(list, list.resolutionId);
  return list;
}

DpiLimits TypedDpiLimits(const ResolutionInput& input, std::uint16_t minDpi, std::uint16_t maxDpi) {
  if (EditTest(input)) return {minDpi, restrictedTyping};
  return {minDpi, maxDpi};
}

}  // namespace set32
