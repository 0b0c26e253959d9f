// Modes and sources on offer, what a choice of mode resets, and the frame tabs.
#include "panel/rules/mode_rules.h"

#include <gtest/gtest.h>

#include <string>

#include "resources/ids.h"

namespace set32 {
namespace {

using namespace paper_source;

// The codes that stand, in order.
std::string ModesOn(std::uint32_t source, bool jpeg) {
  std::string modes;
  for (const ModeEntry& entry : AllModes()) {
    if (ModeStands(entry.mode, source, jpeg)) modes += std::to_string(entry.mode) + ' ';
  }
  return modes;
}

TEST(Modes, StandBySourceAtPositionsThatHoldOnEachOfThem) {
  EXPECT_EQ(ModesOn(flatbed, true), "1 2 4 8 16 ");
  EXPECT_EQ(ModesOn(flatbed, false), "1 2 4 ");
  EXPECT_EQ(ModesOn(feeder, true), "1 2 4 ");
  EXPECT_EQ(ModesOn(positive, true), "1 2 ");
  EXPECT_EQ(ModesOn(negative, false), "1 2 ");
  for (std::uint32_t source = 0; source < 4; ++source) {
    int position = 0;
    for (const ModeEntry& entry : AllModes()) {
      if (!ModeStands(entry.mode, source, true)) continue;
      EXPECT_EQ(IndexOfMode(entry.mode), position++);
    }
  }
  EXPECT_EQ(IndexOfMode(3), -1);
}

TEST(Modes, ResetWhatTheyCannotUse) {
  struct Case {
    std::uint32_t mode;
    const FaceRules& rules;
    const char* kept;  // of hue, saturation, sharpness, contrast, descreen, high bits, gamma
  };
  const Case cases[] = {
      {mode::colour, sheetFaceRules, "husashcodebiga"}, {mode::gray, sheetFaceRules, "shcodebiga"},
      {mode::blackWhite, sheetFaceRules, ""},           {mode::jpegColour, sheetFaceRules, "husashcoga"},
      {mode::gray, inlineFaceRules, "husashcodebiga"},  {mode::blackWhite, inlineFaceRules, "husashcoga"},
      {mode::jpegGray, inlineFaceRules, "husashcoga"},  {mode::colour, inlineFaceRules, "husashcodebiga"},
  };
  for (const Case& one : cases) {
    ScanSettings settings{};
    settings.hue = settings.saturation = settings.sharpness = settings.contrast = settings.brightness = 20;
    settings.descreen = settings.highBitDepth = 1;
    settings.gammaAll = settings.gammaRed = settings.gammaGreen = settings.gammaBlue = 2.0;
    ResetFields(settings, ResetByChoice(one.mode, one.rules));
    std::string kept;
    if (settings.hue != 0) kept += "hu";
    if (settings.saturation != 0) kept += "sa";
    if (settings.sharpness != 0) kept += "sh";
    if (settings.contrast != 0) kept += "co";
    if (settings.descreen != 0) kept += "de";
    if (settings.highBitDepth != 0) kept += "bi";
    if (settings.gammaAll != 1.0) kept += "ga";
    EXPECT_EQ(kept, one.kept) << one.mode;
    EXPECT_EQ(settings.gammaAll, settings.gammaBlue);
    EXPECT_EQ(settings.brightness, 20);
  }
  EXPECT_EQ(ResetByRefresh(mode::gray), mode_reset::none);
  EXPECT_EQ(ResetByRefresh(mode::blackWhite), mode_reset::descreen | mode_reset::highBitDepth);
}

TEST(Frames, ImagesEndWithTheStrip) {
  EXPECT_EQ(ImageOfNewTab(0), 0);
  EXPECT_EQ(ImageOfNewTab(12), 9);
}

}  // namespace
}  // namespace set32
