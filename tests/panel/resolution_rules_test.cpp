// The resolution list: examples of what a person sees, and what must hold for every device, source, mode and record.
#include "panel/rules/resolution_rules.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace set32 {
namespace {

using namespace resolution;

constexpr std::uint32_t everyEntry = 0x7FFE;

struct Example {
  const char* what;
  const FaceRules& rules;
  ResolutionInput input;
  std::vector<int> listed;  // dpi, 0 for user-defined
  int low, high, dpi;
  std::uint32_t resolutionId;
  int selectedDpi;  // -1: nothing
};

std::vector<int> DpisOf(const ResolutionList& list) {
  std::vector<int> dpis;
  for (const ResolutionEntry& entry : list.Entries()) dpis.push_back(entry.dpi);
  return dpis;
}

TEST(ResolutionList, Examples) {
  using namespace paper_source;
  constexpr std::uint32_t small = dpi75 | dpi300 | userDefined;
  const std::vector<int> to600 = {75, 100, 150, 200, 300, 400, 500, 600, 0};
  const std::vector<int> to1200 = {75, 100, 150, 200, 300, 400, 500, 600, 1200, 0};
  const std::vector<int> all = {75, 100, 150, 200, 300, 400, 500, 600, 1200, 2400, 4800, 9600, 19200, 0};
  const std::vector<int> film = {300, 400, 500, 600, 1200, 2400, 4800, 9600, 19200, 0};
  const auto& sheet = sheetFaceRules;
  const auto& inlined = inlineFaceRules;
  const auto input = [](std::uint32_t modeCode, std::uint32_t source, int dpi, std::uint32_t code,
                        std::uint32_t restricted, std::uint32_t mask = everyEntry, std::uint32_t descreen = 0) {
    return ResolutionInput{.mode = modeCode,
                           .resolutionId = code,
                           .dpi = dpi,
                           .descreen = descreen,
                           .pageSource = source,
                           .resolutionMask = mask,
                           .restrictedMaxDpi = restricted};
  };
  const Example examples[] = {
      {"dpi above the list comes down",
       sheet,
       input(1, flatbed, 600, userDefined, 600, small),
       {75, 300, 0},
       75,
       300,
       300,
       userDefined,
       0},
      {"inline: it stays",
       inlined,
       input(1, flatbed, 600, userDefined, 600, small),
       {75, 300, 0},
       75,
       300,
       600,
       userDefined,
       0},
      {"no entry: the range stays wide",
       inlined,
       input(1, flatbed, 100, dpi100, 600, 0),
       {},
       75,
       19200,
       100,
       dpi100,
       -1},
      {"negative film starts at 300", sheet, input(1, negative, 100, userDefined, 600), film, 300, 19200, 300, dpi300,
       300},
      {"negative film keeps 150", sheet, input(1, negative, 150, userDefined, 600), film, 300, 19200, 150,
       userDefined, 0},
      {"inline: negative film starts at 150",
       inlined,
       input(1, negative, 149, userDefined, 600),
       {150, 200, 300, 400, 500, 600, 1200, 2400, 4800, 9600, 19200, 0},
       150,
       19200,
       150,
       dpi150,
       150},
      {"code without an entry keeps its dpi", sheet, input(1, positive, 222, dpi100, 600), film, 75, 19200, 100,
       dpi100, -1},
      {"inline: positive film has them all", inlined, input(1, positive, 222, dpi100, 600), all, 75, 19200, 100,
       dpi100, 100},
      {"descreen limits", sheet, input(1, flatbed, 1200, dpi1200, 600, everyEntry, 1), to600, 75, 600, 600, dpi600,
       600},
      {"descreen up to 1200", sheet, input(2, flatbed, 1200, dpi1200, 1200, everyEntry, 1), to1200, 75, 1200, 1200,
       dpi1200, 1200},
      {"feeder to 300", sheet, input(1, feeder, 400, dpi400, 300), to600, 75, 300, 300, dpi300, 300},
      {"feeder: 1200 has a code and no entry", sheet, input(1, feeder, 2400, dpi2400, 1200), to600, 75, 1200, 1200,
       dpi1200, -1},
      {"a limit above 1200 is one code",
       sheet,
       input(1, flatbed, 9600, dpi9600, 4800, everyEntry, 1),
       {75, 100, 150, 200, 300, 400, 500, 600, 1200, 2400, 4800, 0},
       75,
       4800,
       2400,
       dpi2400,
       2400},
      {"a limit between entries", sheet, input(8, flatbed, 500, dpi500, 450), to600, 75, 450, 400, dpi400, 400},
      {"under it a typed dpi stays", sheet, input(8, flatbed, 420, userDefined, 450), to600, 75, 450, 420,
       userDefined, 0},
      {"no limit known", sheet, input(16, flatbed, 300, dpi300, 0), to600, 75, 75, 75, dpi75, 75},
      {"the code wins over the dpi", sheet, input(1, flatbed, 100, dpi400, 600), all, 75, 19200, 400, dpi400, 400},
      {"dpi of no meaning", sheet, input(1, flatbed, -5, userDefined, 600), all, 75, 19200, 75, userDefined, 0},
      {"code of no meaning", sheet, input(1, flatbed, 123, 3, 600), all, 75, 19200, 123, 3, -1},
  };
  for (const Example& example : examples) {
    SCOPED_TRACE(example.what);
    const ResolutionList list = ComputeResolutionList(example.input, example.rules);
    EXPECT_EQ(DpisOf(list), example.listed);
    EXPECT_EQ(list.low, example.low);
    EXPECT_EQ(list.high, example.high);
    EXPECT_EQ(list.dpi, example.dpi);
    EXPECT_EQ(list.resolutionId, example.resolutionId);
    const int selected = list.selected < 0 ? -1 : list.Entries()[static_cast<std::size_t>(list.selected)].dpi;
    EXPECT_EQ(selected, example.selectedDpi);
  }
}

// What holds whatever comes in; the empty text when it does.
std::string Violation(const ResolutionInput& input, const FaceRules& rules) {
  const bool sheet = &rules == &sheetFaceRules;
  const bool jpeg = input.mode >= 8;
  ResolutionList list = ComputeResolutionList(input, rules);
  int before = 0;
  bool selectedListed = false;
  for (const ResolutionEntry& entry : list.Entries()) {
    if ((entry.resolutionId & input.resolutionMask) == 0) return "an entry that the device lacks";
    selectedListed = selectedListed || entry.resolutionId == list.resolutionId;
    if (before < 0) return "an entry behind the user-defined one";
    if (entry.dpi == 0) {
      before = -1;
      continue;
    }
    if (entry.dpi <= before) return "entries out of order";
    before = entry.dpi;
    if (entry.dpi > 600 && (jpeg || input.pageSource == paper_source::feeder)) return "too fine for JPEG or feeder";
    if (entry.dpi > 600 && input.descreen != 0 && static_cast<std::uint32_t>(entry.dpi) > input.restrictedMaxDpi) {
      return "too fine for descreen";
    }
    if (sheet && input.pageSource >= 2 && entry.dpi < 300) return "too coarse for film";
    if (!sheet && input.pageSource == 3 && entry.dpi < 150) return "too coarse for negative film";
  }
  if (((input.resolutionMask & userDefined) != 0) != (before < 0)) return "the user-defined entry";
  if (selectedListed != (list.selected >= 0)) return "the selection isn't the record's code";
  if (list.dpi <= 0) return "no dpi";
  if (DpiOfCode(list.resolutionId) != 0 && DpiOfCode(list.resolutionId) != list.dpi) return "dpi isn't its code's";

  // A refresh with what came out settles, and then every limit holds.
  ResolutionInput next = input;
  for (int round = 0; round < 3; ++round) {
    next.dpi = list.dpi;
    next.resolutionId = list.resolutionId;
    list = ComputeResolutionList(next, rules);
  }
  if (list.dpi != next.dpi || list.resolutionId != next.resolutionId) return "no rest";
  const bool restricted = jpeg || input.descreen != 0 || input.pageSource == paper_source::feeder;
  if (restricted && list.dpi > list.high && list.high >= 300) return "dpi above its restriction";
  return "";
}

TEST(ResolutionList, HoldsForEveryDeviceSourceModeAndLimit) {
  constexpr std::uint32_t limits[] = {0, 100, 300, 450, 600, 1200, 2400, 0xFFFFFFFF};
  constexpr std::int32_t typed[] = {1, 75, 149, 333, 601, 19200, 2147483647, -1};
  std::size_t turn = 0;
  for (const FaceRules* rules : {&sheetFaceRules, &inlineFaceRules}) {
    for (std::uint32_t combination = 0; combination < (1U << 14) * 4 * 4; ++combination) {
      ResolutionInput input;
      input.resolutionMask = (combination & 0x3FFF) << 1;
      input.pageSource = combination >> 14 & 3;
      input.mode = (combination >> 16 & 1) != 0 ? mode::jpegColour : mode::colour;
      input.descreen = combination >> 17;
      for (const std::uint32_t limit : limits) {
        input.restrictedMaxDpi = limit;
        // Each code, and each typed number with the user-defined one, in turn.
        const ResolutionEntry& entry = AllResolutions()[turn % ResolutionList::capacity];
        input.resolutionId = entry.resolutionId;
        input.dpi = typed[turn % std::size(typed)];
        ++turn;
        const std::string violation = Violation(input, *rules);
        ASSERT_EQ(violation, "") << "mask " << input.resolutionMask << " source " << input.pageSource << " mode "
                                 << input.mode << " descreen " << input.descreen << " limit " << limit << " code "
                                 << input.resolutionId << " dpi " << input.dpi;
      }
    }
  }
}

TEST(TypedDpi, IsHeldTo600ByModeFeederOrHighBits) {
  struct Case {
    std::uint32_t mode, source, highBits, descreen;
    int dpi;
    bool good;
  };
  const Case cases[] = {
      {1, 0, 0, 0, 74, false}, {1, 0, 0, 0, 75, true},    {1, 0, 0, 0, 4800, true}, {1, 0, 0, 0, 4801, false},
      {8, 0, 0, 0, 600, true}, {16, 0, 0, 0, 601, false}, {1, 1, 0, 0, 601, false}, {1, 0, 1, 0, 700, false},
      {1, 0, 0, 1, 700, true},  // descreen holds the list, not the edit
  };
  for (const Case& one : cases) {
    ResolutionInput input{
        .mode = one.mode, .highBitDepth = one.highBits, .descreen = one.descreen, .pageSource = one.source};
    EXPECT_EQ(TypedDpiLimits(input, 75, 4800).Contain(one.dpi), one.good) << one.dpi << " in mode " << one.mode;
  }
}

}  // namespace
}  // namespace set32
