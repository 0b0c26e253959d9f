#include "panel/rules/mode_rules.h"

#include <algorithm>

#include "resources/ids.h"

namespace set32 {

namespace {

constexpr ModeEntry allModes[] = {
    {text::colour, mode::colour, picture::modeColour},
    {text::gray, mode::gray, picture::modeGray},
    {text::blackWhite, mode::blackWhite, picture::modeBlackWhite},
    {text::jpegColour, mode::jpegColour, picture::modeJpegColour},
    {text::jpegGray, mode::jpegGray, picture::modeJpegGray},
};

constexpr SourceEntry allSources[] = {
    {text::sourceFlatbed, paper_source::flatbed, 0},
    {text::sourcePositive, paper_source::positive, source_caps::transparency},
    {text::sourceNegative, paper_source::negative, source_caps::transparency},
    {text::sourceFeeder, paper_source::feeder, source_caps::feeder},
};

constexpr BySource<int> rowsOfSources = {{5, 3, 0, -1}};

constexpr unsigned lossyResets = mode_reset::descreen | mode_reset::highBitDepth;
constexpr int lastFrameImage = 9;

bool IsJpeg(std::uint32_t mode) {
  return mode == mode::jpegColour || mode == mode::jpegGray;
}

}  // namespace

std::span<const ModeEntry> AllModes() {
  return allModes;
}

bool ModeStands(std::uint32_t mode, std::uint32_t source, bool jpegModesOn) {
  if (IsJpeg(mode)) return jpegModesOn && source == paper_source::flatbed;
  return mode != mode::blackWhite || !IsTransparency(source);
}

int IndexOfMode(std::uint32_t mode) {
  const auto* const found = std::ranges::find(allModes, mode, &ModeEntry::mode);
  return found == std::end(allModes) ? -1 : static_cast<int>(found - std::begin(allModes));
}

unsigned ResetByChoice(std::uint32_t mode, const FaceRules& rules) {
  if (IsJpeg(mode)) return lossyResets;
  if (mode == mode::gray) return rules.grayResets;
  if (mode == mode::blackWhite) return rules.blackWhiteResets;
  return mode_reset::none;
}

unsigned ResetByRefresh(std::uint32_t mode) {
  return IsJpeg(mode) || mode == mode::blackWhite ? lossyResets : mode_reset::none;
}

void ResetFields(ScanSettings& settings, unsigned reset) {
  const auto resets = [reset](unsigned field) { return (reset & field) != 0; };
  if (resets(mode_reset::descreen)) settings.descreen = 0;
  if (resets(mode_reset::highBitDepth)) settings.highBitDepth = 0;
  if (resets(mode_reset::hue)) settings.hue = 0;
  if (resets(mode_reset::saturation)) settings.saturation = 0;
  if (resets(mode_reset::sharpness)) settings.sharpness = 0;
  if (resets(mode_reset::contrast)) settings.contrast = 0;
  if (resets(mode_reset::gammas)) {
    settings.gammaAll = settings.gammaRed = settings.gammaGreen = settings.gammaBlue = 1.0;
  }
}

std::span<const SourceEntry> AllSources() {
  return allSources;
}

bool SourceStands(const SourceEntry& entry, std::uint32_t sourceCaps) {
  return entry.neededCaps == 0 || (sourceCaps & entry.neededCaps) != 0;
}

int RowOfSource(std::uint32_t source) {
  return rowsOfSources[source];
}

int ImageOfNewTab(int count) {
  return std::clamp(count, 0, lastFrameImage);
}

int CurrentAfterRemoval(int current, int countAfter) {
  return std::min(current, countAfter - 1);
}

}  // namespace set32
