// The numeric edits on edits that stand: keys, pastes, Enter, and texts set by the program.
#include <gmock/gmock.h>

#include "apps/stage/inspection.h"
#include "apps/stage/model/headless_clipboard.h"
#include "apps/stage/model/headless_system.h"
#include "controls/range_int_edit.h"
#include "controls/range_real_edit.h"
#include "tests/support/stage.h"

namespace set32 {
namespace {

enum Id { edit = 10, other = 11 };

constexpr ControlTemplate controls[] = {
    {edit, ControlKind::edit, "", 0, 0, 40, 12, 0},
    {other, ControlKind::edit, "", 0, 20, 40, 12, 0},
};
constexpr DialogTemplate page{1, "", {100, 100}, "Sans", 8, DialogStyle::child, controls};

class RealEditTest : public testing::Test {
 protected:
  RealEditTest() {
    system_.OnBeep([this] { ++beeps_; });
    real_.SetRange(0.01, 9.99);
    real_.Attach(*stage_.dialog, edit);
  }

  // The edit holds a text, part of it selected; then a person types.
  void Type(std::string_view before, TextRange selected, std::string_view keys) {
    Prepare(before, selected);
    stage_.Hands().TypeText(edit_, keys);
  }
  void Paste(std::string_view before, TextRange selected) {
    Prepare(before, selected);
    stage_.Hands().Paste(edit_);
  }
  void Prepare(std::string_view before, TextRange selected) {
    edit_.SetText(before);
    stage_.Hands().Focus(edit_);
    stage_.Hands().SetCaret(edit_, selected);
    beeps_ = 0;
  }

  SimulatedClock clock_;
  HeadlessSystem system_{clock_, 0x0404};
  HeadlessClipboard clipboard_;
  CRangeRealEdit real_{clipboard_, system_};  // before the stage: it outlives the edit
  Stage stage_{page};
  Edit& edit_ = stage_.Get<Edit>(edit);
  int beeps_ = 0;
};

TEST_F(RealEditTest, Keys) {
  struct Case {
    const char* before;
    TextRange selected;
    const char* keys;
    const char* after;
    int beeps;
  };
  const Case cases[] = {
      {"9.99", {4, 4}, "1", "9.99", 1}, {"", {0, 0}, "1.2.x3", "1.23", 2},
      {"1.55", {0, 4}, "x", "1.55", 1},  // a foreign key leaves the selection
      {"1.55", {1, 4}, ".", "1.", 0},    // the point that goes makes room for this one
      {"2.5", {1, 2}, "9", "25", 1},     // 295 is refused, the selection is gone all the same
      {"1.5", {1, 1}, "-", "1.5", 1},   {"12345", {5, 5}, "6", "12345", 1},  // set by the program, out of range
  };
  for (const Case& one : cases) {
    Type(one.before, one.selected, one.keys);
    EXPECT_EQ(edit_.Text(), one.after) << one.before << " + " << one.keys;
    EXPECT_EQ(beeps_, one.beeps) << one.before << " + " << one.keys;
  }
}

TEST_F(RealEditTest, DeletingIsNeverRefused) {
  Prepare("12345", {5, 5});
  stage_.Hands().Backspace(edit_, 1);
  EXPECT_EQ(edit_.Text(), "1234") << "though what stands is far above the range";
  Prepare("1.234", {2, 4});
  stage_.Hands().Backspace(edit_, 1);
  EXPECT_EQ(edit_.Text(), "1.4") << "the selection alone goes";
  EXPECT_EQ(beeps_, 0);
}

TEST_F(RealEditTest, Pastes) {
  struct Case {
    const char* before;
    TextRange selected;
    std::string pasted;
    const char* after;
    int beeps;
  };
  const Case cases[] = {
      {"2", {1, 1}, "1.5", "2", 1},  // 21.5
      {"25", {1, 2}, ".5", "2.5", 0},
      {"25", {0, 1}, "100", "5", 1},              // refused, without its selection
      {"25", {0, 1}, "1a\xE5\x85\xA8", "25", 2},  // one beep a foreign character
      {"25", {0, 1}, std::string(100000, 'x'), "25", 10},
      {"0", {1, 1}, std::string(100000, '0'), "0", 1},
      {"1.5", {3, 3}, ".", "1.5", 1},
  };
  for (const Case& one : cases) {
    clipboard_.Write(one.pasted);
    Paste(one.before, one.selected);
    EXPECT_EQ(edit_.Text(), one.after) << one.before;
    EXPECT_EQ(beeps_, one.beeps) << one.before;
  }
}

TEST_F(RealEditTest, PastedTextEndsAtTheCaretAndAClipboardMayHoldNone) {
  clipboard_.Write("1.");
  Paste("95", {0, 1});
  EXPECT_EQ(edit_.Text(), "1.5");
  EXPECT_EQ(edit_.Selection(), (TextRange{2, 2}));
  clipboard_.HoldNoText();
  Paste("2.5", {0, 3});
  EXPECT_EQ(edit_.Text(), "2.5");
  EXPECT_EQ(beeps_, 1);
  clipboard_.SetLocked(true);
  Paste("2.5", {0, 1});
  EXPECT_EQ(edit_.Text(), "");
}

TEST_F(RealEditTest, EnterLeavesTheEdit) {
  Prepare("2.5", {0, 0});
  stage_.Heard();
  stage_.Hands().PressKey(Key::enter);
  EXPECT_THAT(stage_.Heard(), testing::Contains("10 lost"));
  EXPECT_EQ(stage_.dialog->Focused(), nullptr);
}

TEST_F(RealEditTest, TheRangeIsNotedLowestFirst) {
  real_.SetRange(5, -5);
  const auto range = dynamic_cast<const NotesRange&>(edit_).NotedRange();
  ASSERT_TRUE(range);
  EXPECT_EQ(range->low, -5);
  EXPECT_EQ(range->high, 5);
  Type("", {0, 0}, "-3");
  EXPECT_EQ(edit_.Text(), "-3");
}

TEST(IntEditOnAPage, IsRepairedAfterEachUpdate) {
  Stage stage(page);
  CRangeIntEdit whole;
  whole.Attach(stage.Get<Edit>(edit));
  whole.SetRange(-100, 100);
  stage.handler.on = [&](const std::string& line) {
    if (line == "10 update") whole.OnUpdate();
  };
  auto& field = stage.Get<Edit>(edit);
  const auto typed = [&](std::string_view before, std::string_view keys) {
    field.SetText(before);
    stage.Hands().Focus(field);
    stage.Hands().SetCaret(field, {99, 99});
    stage.Hands().TypeText(field, keys);
    return field.Text();
  };
  EXPECT_EQ(typed("12", "3"), "12");
  EXPECT_EQ(field.Selection(), (TextRange{2, 2}));
  EXPECT_EQ(typed("12", "x9"), "12") << "each key is repaired, 129 as well";
  EXPECT_EQ(typed("0", "7"), "7");
  EXPECT_EQ(typed("7", "x"), "7") << "the last one that passed";
  field.SetText("500");
  EXPECT_EQ(field.Text(), "7") << "whoever sets it";

  whole.Show(50);
  whole.Show(500);
  EXPECT_EQ(field.Text(), "500") << "but what is shown stands until a person changes it";
  stage.Hands().TypeText(field, "1");
  EXPECT_EQ(field.Text(), "50") << "and the last good one is the one that was shown before";
}

}  // namespace
}  // namespace set32
