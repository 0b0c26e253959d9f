// The resolution list: examples of what a person sees, and what must hold for every device, source, mode and record.
#include "panel/rules/resolution_rules.h"

#include <gtest/gtest.h>

#include <string>

namespace set32 {
namespace {

using namespace resolution;

constexpr std::uint32_t everyEntry = 0x7FFE;

struct Given {
  std::uint32_t mode, source;
  int dpi;
  std::uint32_t code, restricted;
  std::uint32_t mask = everyEntry;
  std::uint32_t descreen = 0;
};

ResolutionList ListOf(const Given& given, const FaceRules& rules) {
  return ComputeResolutionList({.mode = given.mode,
                                .resolutionId = given.code,
                                .dpi = given.dpi,
                                .descreen = given.descreen,
                                .pageSource = given.source,
                                .resolutionMask = given.mask,
                                .restrictedMaxDpi = given.restricted},
                               rules);
}

std::string Entries(const ResolutionList& list) {
  std::string shown;
  for (const ResolutionEntry& entry : list.Entries()) {
    shown += entry.dpi == 0 ? "user" : std::to_string(entry.dpi) + ' ';
  }
  return shown;
}

// The typing range, then what the record holds, and whether an entry for it is selected.
std::string Outcome(const ResolutionList& list) {
  return std::to_string(list.low) + ".." + std::to_string(list.high) + ' ' + std::to_string(list.dpi) + '=' +
         std::to_string(list.resolutionId) + (list.selected < 0 ? " unlisted" : "");
}

TEST(ResolutionList, Examples) {
  using namespace paper_source;
  constexpr std::uint32_t some = dpi75 | dpi300 | userDefined, every = everyEntry;
  const FaceRules &sheet = sheetFaceRules, &inlined = inlineFaceRules;
  const std::string coarse = "75 100 150 200 300 400 500 600 ", few = "75 300 user";
  const std::string fine = "1200 2400 4800 9600 19200 user", film = "300 400 500 600 " + fine;
  const std::string upTo600 = coarse + "user", all = coarse + fine;
  struct Example {
    const char* what;
    const FaceRules& rules;
    Given given;
    std::string entries, outcome;
  };
  const Example examples[] = {
      {"above the list", sheet, {1, flatbed, 600, userDefined, 600, some}, few, "75..300 300=4096"},
      {"inline: it stays", inlined, {1, flatbed, 600, userDefined, 600, some}, few, "75..300 600=4096"},
      {"no entry", inlined, {1, flatbed, 100, dpi100, 600, 0}, "", "75..19200 100=4 unlisted"},
      {"negative film from 300", sheet, {1, negative, 100, userDefined, 600}, film, "300..19200 300=32"},
      {"it keeps 150", sheet, {1, negative, 150, userDefined, 600}, film, "300..19200 150=4096"},
      {"inline: from 150", inlined, {1, negative, 149, userDefined, 600}, "150 200 " + film, "150..19200 150=8"},
      {"code without entry", sheet, {1, positive, 222, dpi100, 600}, film, "75..19200 100=4 unlisted"},
      {"inline: positive has all", inlined, {1, positive, 222, dpi100, 600}, all, "75..19200 100=4"},
      {"descreen to 600", sheet, {1, flatbed, 1200, dpi1200, 600, every, 1}, upTo600, "75..600 600=256"},
      {"to 1200", sheet, {2, flatbed, 1200, dpi1200, 1200, every, 1}, coarse + "1200 user", "75..1200 1200=512"},
      {"feeder to 300", sheet, {1, feeder, 400, dpi400, 300}, upTo600, "75..300 300=32"},
      {"feeder lacks 1200", sheet, {1, feeder, 2400, dpi2400, 1200}, upTo600, "75..1200 1200=512 unlisted"},
      {"above 1200 one code", sheet, {1, flatbed, 9600, dpi9600, 2500, 1024, 1}, "2400 ", "75..2500 2400=1024"},
      {"between entries", sheet, {8, flatbed, 500, dpi500, 450}, upTo600, "75..450 400=64"},
      {"a typed dpi below", sheet, {8, flatbed, 420, userDefined, 450}, upTo600, "75..450 420=4096"},
      {"no limit known", sheet, {16, flatbed, 300, dpi300, 0}, upTo600, "75..75 75=2"},
      {"the code wins", sheet, {1, flatbed, 100, dpi400, 600}, all, "75..19200 400=64"},
      {"dpi of no meaning", sheet, {1, flatbed, -5, userDefined, 600, some}, few, "75..300 75=4096"},
      {"inline: no dpi", inlined, {1, flatbed, 0, userDefined, 600, some}, few, "75..300 75=4096"},
      {"code of no meaning", sheet, {1, flatbed, 123, 3, 600, some}, few, "75..300 123=3 unlisted"},
  };
  for (const Example& example : examples) {
    const ResolutionList list = ListOf(example.given, example.rules);
    EXPECT_EQ(Entries(list), example.entries) << example.what;
    EXPECT_EQ(Outcome(list), example.outcome) << example.what;
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
        input.resolutionId = dpi75 << turn % ResolutionList::capacity;
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
