// The script language's own rules: words, numbers, texts, blocks, failures.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <thread>

#include "apps/driver/assembly.h"
#include "apps/driver/not_possible.h"
#include "apps/driver/script_text.h"
#include "apps/driver/session_folder.h"
#include "apps/driver/settings_fields.h"
#include "tests/support/script_run.h"

namespace set32 {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

std::vector<std::string> Texts(std::string_view line) {
  std::vector<std::string> texts;
  for (const Word& word : SplitWords(line)) texts.push_back(word.text);
  return texts;
}

TEST(ScriptWords, FallApartAtBlanksOutsideQuotes) {
  EXPECT_THAT(Texts("pick 1251 \"Letter(8.5\\\"x11\\\")\""), ElementsAre("pick", "1251", "Letter(8.5\"x11\")"));
  EXPECT_THAT(Texts("\ttype  1252 \"a b\\\\c\\n\\t\\xFF\"\r"), ElementsAre("type", "1252", "a b\\c\n\t\xFF"));
  EXPECT_THAT(Texts("report 0 name=\"x # y\""), ElementsAre("report", "0", "name=x # y"));
  EXPECT_THAT(Texts("type 1252 \"\""), ElementsAre("type", "1252", ""));
}

TEST(ScriptWords, EndAtACommentButNotAtAnIndex) {
  EXPECT_THAT(Texts("row 1009 #3 # the third"), ElementsAre("row", "1009", "#3"));
  EXPECT_THAT(Texts("open#now"), ElementsAre("open"));
  EXPECT_THAT(Texts("show \"#\" #"), ElementsAre("show", "#"));
  EXPECT_THAT(Texts("# only a comment"), IsEmpty());
  EXPECT_EQ(WithoutComment("  a  b # c"), "a  b");
}

TEST(ScriptWords, RefuseWhatCantBeRead) {
  for (const char* line : {"type 1 \"open", "type 1 \"a\\", "type 1 \"\\q\"", "type 1 \"\\x4\""}) {
    EXPECT_THROW(SplitWords(line), NotPossible) << line;
  }
}

TEST(ScriptTexts, PrintSoThatTheyReadBack) {
  for (const std::string text : {"", "plain", "\"\\\n\t", "公分", "cut \xE5\x85", "\xFF\x80z"}) {
    const std::string quoted = Quote(text);
    EXPECT_THAT(Texts(quoted), ElementsAre(text)) << quoted;
  }
  EXPECT_EQ(Quote("\x80z"), "\"\\x80z\"");
}

TEST(ScriptNumbers, AreDecimalOrHexadecimalAndNothingElse) {
  EXPECT_EQ(ParseInteger("0x7FFE"), 0x7FFE);
  EXPECT_EQ(ParseInteger("-0x10"), -16);
  EXPECT_EQ(ParseInteger("007"), 7);
  for (const char* text : {"", "-", "0x", "1.5", "12a", "+1", " 1", "--1", "99999999999999999999"}) {
    EXPECT_FALSE(ParseInteger(text)) << text;
  }
  EXPECT_EQ(RequireWord32("-1"), 0xFFFFFFFFU);
  EXPECT_THROW(RequireWord32("0x100000000"), NotPossible);
  EXPECT_EQ(Hexadecimal(0x40C), "0x40C");
  EXPECT_EQ(Hexadecimal(0), "0x0");
}

TEST(ScriptNumbers, ReadBackToTheSameDouble) {
  for (const double value : {0.1, 8.27, 1.0 / 3, 1e300, -0.0, std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(ParseReal(Number(value)), value);
  }
  EXPECT_EQ(Number(11.0), "11");
}

TEST(ScriptFields, HoldWhatTheirTypesHold) {
  ScanSettings settings{};
  SetField(settings, "dpi", "-5");
  SetField(settings, "sizeId", "-1");
  SetField(settings, "width", "nan");
  SetField(settings, "name", "\xE5\x85");
  SetField(settings, "singleFile", "255");
  SetField(settings, "frameCommand", "0x12345");
  EXPECT_THAT(AllFields(settings), HasSubstr("dpi=-5 "));
  EXPECT_THAT(AllFields(settings), HasSubstr("sizeId=4294967295 width=nan "));
  EXPECT_THAT(AllFields(settings), HasSubstr("name=\"\\xE5\\x85\" "));
  EXPECT_THAT(AllFields(settings), HasSubstr("singleFile=255 "));
  EXPECT_TRUE(AllFields(settings).ends_with(" frameCommand=1"));
  EXPECT_THROW(SetField(settings, "singleFile", "256"), NotPossible);
  EXPECT_THROW(SetField(settings, "name", "twenty bytes and more"), NotPossible);
  EXPECT_THROW(SetField(settings, "reserved28", "1"), NotPossible);
}

TEST(ScriptRuns, StopAtTheFirstFailureAndNameItsLine) {
  struct Case {
    const char* script;
    const char* complaint;
  };
  const Case cases[] = {
      {"open\nclick 3094\nshow mode", "error 2: control 3094 is hidden"},
      {"open\nclick 5004", "error 2: control 5004 is disabled"},
      {"report 0", "error 1: no page stands"},
      {"page general", "error 1: dialog 1 isn't open"},
      {"\n# nothing\nfly", "error 3: no statement \"fly\""},
      {"open now", "error 1: the form is: open"},
      {"open\npick 1210 \"7 dpi\"", "error 2: control 1210 has no entry \"7 dpi\""},
      {"open\npick 1210 #99", "error 2: control 1210 has no entry #99"},
      {"open\nclick 148:1235", "error 2: page 148 isn't in front"},
      {"open\nclick 104:1", "error 2: dialog 104 isn't open"},
      {"when box\nanswer yes", "error 1: `end` is missing"},
      {"when 115\nend", "error 1: dialog 115 takes no statements"},
      {"answer yes", "error 1: no box stands"},
      {"show file list\nexpect dpi is 200", "error 2: expected 200, saw 100"},
      {"open\nexpect heard\n host 0x402 0 settings\nend", "error 2: heard otherwise:"},
      {"expect page is x", "error 1: no page stands"},
      {"preview \"no such file\"", "error 1: can't open no such file"},
  };
  for (const Case& c : cases) {
    const ScriptRun run = RunScript(c.script);
    EXPECT_EQ(run.status, 1) << c.script;
    ASSERT_EQ(run.complaints.size(), 1U) << c.script;
    EXPECT_THAT(run.complaints[0], testing::StartsWith(c.complaint)) << c.script;
    EXPECT_THAT(run.printed, Not(Contains("mode=1"))) << c.script;
  }
}

TEST(ScriptRuns, ExpectWhatShowPrints) {
  const ScriptRun run = RunScript(
      "expect mode is 1\n"
      "expect open is 0 # the inline face alone sets it\n"
      "expect show width is 8.5\n"
      "expect pixel 0 0 is source=255,255,255 display=255,255,255\n"
      "open\n"
      "expect pixel 0 1168 is source=255,255,255 display=254,254,254\n"
      "expect 1212 is   edit visible enabled text=\"100\" low=75 high=19200\n"
      "expect focus is none\n"
      "page advanced\n"
      "expect focus is none\n"
      "page general\n"
      "expect tip 1011 is \"掃描模式\"\n"
      "click 1006\n"
      "expect heard\n"
      "  host 0x409 0 settings   # the check box\n"
      "end\n"
      "set mode 0x80000000\n"
      "open\n"
      "expect heard\n"
      "  host 0x404 0 -2147483648\n"
      "  host 0x403 0 settings\n"
      "  host 0x40C 1 \"加入掃描器 IP...\"\n"
      "end\n");
  EXPECT_THAT(run.complaints, IsEmpty());
  EXPECT_EQ(run.status, 0);
}

TEST(ScriptRuns, ActInsideDialogsAndBoxes) {
  const ScriptRun run = RunScript(
      "open\n"
      "when 104\n"
      "  type 1003 \"\"\n"
      "  when box\n"
      "    answer ok\n"
      "  end\n"
      "  click 1\n"
      "  type 1003 \"mine\"\n"
      "  show 1003\n"
      "  append 1003 \"\\xFF\"\n"  // no keyboard has it
      "  expect 1003 is edit visible enabled text=\"mine\uFFFD\"\n"
      "  erase 1003 1\n"
      "  click 1\n"
      "end\n"
      "click 5002\n"
      "when box\n"
      "  answer no\n"
      "end\n"
      "click 5004\n"
      "expect 5004 is button visible enabled text=\"刪除(&D)\"\n");
  EXPECT_THAT(run.complaints, IsEmpty());
  EXPECT_THAT(run.printed,
              IsSupersetOf({"dialog 104", "1003 edit visible enabled text=\"mine\"", "dialog 104 closed 1"}));
}

TEST(ScriptRuns, EndADialogThatNobodyServes) {
  ScriptRun run = RunScript("open\nclick 5002\nshow mode");
  EXPECT_THAT(run.complaints, ElementsAre("error 2: dialog 104 opens and no `when` block waits for it"));
  run = RunScript("open\nwhen 104\nshow mode\nend\nclick 5002\nshow dpi");
  EXPECT_THAT(run.complaints, ElementsAre("error 4: the `when` block ends while dialog 104 is open"));
  EXPECT_THAT(run.printed, Not(Contains("dpi=100")));
  run = RunScript("open\nwhen 104\nclick 2\nshow mode\nend\nclick 5002");
  EXPECT_THAT(run.complaints, ElementsAre("error 4: dialog 104 is closed already"));
  run = RunScript("open\nwhen 104\nclick 102:5002\nend\nclick 5002");
  EXPECT_THAT(run.complaints, ElementsAre("error 3: dialog 104 is open in front"));
}

// A search ends by the clock, while a real network makes nobody advance the simulated one.
TEST(ScriptRuns, LetRealTimePassBesideARealNetwork) {
  const SessionFolder folder;
  const auto outside = Assemble({.folder = folder.Path(), .realNetwork = true});
  const std::uint64_t before = outside->Clock().Now();
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_GT(outside->Clock().Now(), before);
}

TEST(ScriptRuns, KeepFilesAndHostAcrossARestart) {
  const ScriptRun run = RunScript(
      "set dpi 123\n"
      "open\n"
      "close\n"
      "open\n"
      "ini module RunTime DriverType 0\n"
      "when box\nend\n"
      "restart\n"
      "open\n"
      "show file module\n",
      {}, true);
  EXPECT_THAT(run.complaints, IsEmpty());
  EXPECT_THAT(run.printed,
              IsSupersetOf({"> open", "opened 0", "opened 1", "> restart", "file [RunTime]", "file DriverType=0"}));
}

}  // namespace
}  // namespace set32
