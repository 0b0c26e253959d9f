#include "tests/support/contract_case.h"

namespace set32 {
namespace {

using testing::ElementsAre;

enum Id { edit = 10, other = 11, digits = 12, sealed = 13 };

constexpr ControlTemplate controls[] = {
    {edit, ControlKind::edit, "", 0, 0, 40, 12, 0},
    {other, ControlKind::edit, "", 0, 20, 40, 12, 0},
    {digits, ControlKind::edit, "", 0, 40, 40, 12, control_flag::digitsOnly},
    {sealed, ControlKind::edit, "", 0, 60, 40, 12, control_flag::readOnly},
};
constexpr DialogTemplate page{1, "", {100, 100}, "Sans", 8, DialogStyle::child, controls};

const std::vector<std::string> nothing;
const std::vector<std::string> oneChange = {"10 update", "10 changed"};

Edit& TheEdit(Stage& stage) {
  return stage.Get<Edit>(edit);
}

void Prepare(Stage& stage, const char* text, TextRange selection) {
  stage.Hands().Focus(TheEdit(stage));
  TheEdit(stage).SetText(text);
  TheEdit(stage).Select(selection);
}

TEST(EditContract, RaisesWhatAProgramsChangeRaises) {
  const auto abc = [](Stage& stage) { TheEdit(stage).SetText("abc"); };
  RunContractCases(page, {
                             {"text", {}, abc, oneChange},
                             {"same text", abc, abc, oneChange},
                             {"selection", abc,
                              [](Stage& stage) {
                                TheEdit(stage).Select({1, 2});
                              },
                              nothing},
                             {"replaced", abc, [](Stage& stage) { TheEdit(stage).ReplaceSelection("x"); }, oneChange},
                             {"limit", abc, [](Stage& stage) { TheEdit(stage).SetLimit(1); }, nothing},
                         });
}

// A person's keys in an edit with a text and a selection, and what stands there afterwards.
TEST(EditContract, TakesKeysByCharacters) {
  struct Keys {
    const char* name;
    const char* text;
    TextRange selection;
    int limit;  // 0: none set
    std::function<void(Input&, Edit&)> press;
    const char* result;
    TextRange caret;
    int changes;
  };
  const auto type = [](const char* keys) { return [keys](Input& hands, Edit& into) { hands.TypeText(into, keys); }; };
  const auto erase = [](int times) { return [times](Input& hands, Edit& into) { hands.Backspace(into, times); }; };
  const Keys table[] = {
      {"at the caret", "ad", {1, 1}, 0, type("bc"), "abcd", {3, 3}, 2},
      {"over a selection", "abcd", {1, 3}, 0, type("x"), "axd", {2, 2}, 1},
      {"wide characters", "一二", {1, 1}, 0, type("三é"), "一三é二", {3, 3}, 2},
      {"at the limit", "一二", {2, 2}, 3, type("三四"), "一二三", {3, 3}, 1},
      {"a selection makes room", "abc", {0, 1}, 3, type("xy"), "xbc", {1, 1}, 1},
      {"past the limit already", "abcd", {4, 4}, 2, type("x"), "abcd", {4, 4}, 0},
      {"control characters", "ab", {2, 2}, 0, type("\x01\t"), "ab", {2, 2}, 0},
      {"backspace", "一二三", {2, 2}, 0, erase(1), "一三", {1, 1}, 1},
      {"backspace over a selection", "abcd", {1, 3}, 0, erase(1), "ad", {1, 1}, 1},
      {"backspace at the start", "ab", {0, 0}, 0, erase(1), "ab", {0, 0}, 0},
      {"backspace runs out", "ab", {2, 2}, 0, erase(5), "", {0, 0}, 2},
      {"all selected", "abc", {0, -1}, 0, type("z"), "z", {1, 1}, 1},
  };
  for (const Keys& keys : table) {
    SCOPED_TRACE(keys.name);
    Stage stage(page);
    Prepare(stage, keys.text, keys.selection);
    if (keys.limit > 0) TheEdit(stage).SetLimit(keys.limit);
    stage.Heard();
    keys.press(stage.Hands(), TheEdit(stage));
    EXPECT_EQ(TheEdit(stage).Text(), keys.result);
    EXPECT_EQ(TheEdit(stage).Selection(), keys.caret);
    std::vector<std::string> heard;
    for (int i = 0; i < keys.changes; ++i) heard.insert(heard.end(), oneChange.begin(), oneChange.end());
    EXPECT_THAT(stage.Heard(), testing::ElementsAreArray(heard));
  }
}

TEST(EditContract, RefusesWhatItsStyleRefuses) {
  Stage stage(page);
  for (const int id : {digits, sealed}) stage.Hands().Focus(stage.Get<Edit>(id));
  stage.Get<Edit>(sealed).SetText("kept");
  stage.Hands().TypeText(stage.Get<Edit>(sealed), "x");
  stage.Hands().Backspace(stage.Get<Edit>(sealed), 1);
  EXPECT_EQ(stage.Get<Edit>(sealed).Text(), "kept");

  stage.Hands().Focus(stage.Get<Edit>(digits));
  stage.Hands().TypeText(stage.Get<Edit>(digits), "a1-2é");
  EXPECT_EQ(stage.Get<Edit>(digits).Text(), "12");
}

TEST(EditContract, ARepairInsideTheUpdateNestsItsOwnEvents) {
  Stage stage(page);
  stage.handler.on = [&](const std::string& line) {
    if (line == "10 update" && TheEdit(stage).Text() != "good") TheEdit(stage).SetText("good");
  };
  TheEdit(stage).SetText("bad");
  EXPECT_THAT(stage.Heard(), ElementsAre("10 update", "10 update", "10 changed", "10 changed"));
  EXPECT_EQ(TheEdit(stage).Text(), "good");
}

class Guard : public EditGuard {
 public:
  bool OnCharacter(std::string_view character) override {
    seen.append("<").append(character).append(">");
    return takes;
  }
  bool OnPaste() override {
    seen += "paste";
    return takes;
  }
  void OnEnterKey() override { seen += "enter"; }
  std::string seen;
  bool takes = true;
};

TEST(EditContract, AGuardSeesKeysPasteAndEnterFirst) {
  Stage stage(page);
  Guard guard;
  Prepare(stage, "1", {1, 1});
  TheEdit(stage).SetGuard(&guard);
  stage.screen->TheClipboard().Write("99");
  stage.Heard();

  stage.Hands().TypeText(TheEdit(stage), "2é");
  stage.Hands().Backspace(TheEdit(stage), 1);
  stage.Hands().Paste(TheEdit(stage));
  EXPECT_EQ(TheEdit(stage).Text(), "1299");
  guard.takes = false;
  stage.Heard();
  stage.Hands().TypeText(TheEdit(stage), "3");
  stage.Hands().Paste(TheEdit(stage));
  stage.Hands().Backspace(TheEdit(stage), 1);
  EXPECT_EQ(TheEdit(stage).Text(), "1299");
  stage.Hands().PressKey(Key::enter);
  EXPECT_EQ(guard.seen, "<2><é><\b>paste<3>paste<\b>enter");
  EXPECT_THAT(stage.Heard(), ElementsAre("ok"));
  TheEdit(stage).SetGuard(nullptr);
}

TEST(EditContract, PastesOneLineAsFarAsThereIsRoom) {
  Stage stage(page);
  Prepare(stage, "ab", {1, 2});
  TheEdit(stage).SetLimit(4);
  stage.Heard();
  stage.screen->TheClipboard().Write("一二三四\r\nrest");
  stage.Hands().Paste(TheEdit(stage));
  EXPECT_EQ(TheEdit(stage).Text(), "a一二三");
  EXPECT_THAT(stage.Heard(), testing::ElementsAreArray(oneChange));
}

}  // namespace
}  // namespace set32
