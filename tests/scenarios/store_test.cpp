// Scan configurations as a person keeps them.
#include "tests/support/page_scenario.h"

namespace set32 {
namespace {

class Store : public PageScenario {
 protected:
  void SetUp() override {
    OfferSources();
    Open();
  }

  // Types names into dialog 104 one after the other, each followed by Save, and cancels if it still stands.
  void TrySaving(const std::vector<std::string>& names) {
    WhenDialog(dialog::saveConfig, [this, names] {
      for (const std::string& name : names) {
        if (name.empty()) {
          Person().Erase({dialog::saveConfig, id104::nameEdit}, 200);
        } else {
          Person().Type({dialog::saveConfig, id104::nameEdit}, name);
        }
        Person().Click({dialog::saveConfig, id::ok});
        if (TheSession().TheDesk().ModalInFront() == nullptr) return;
      }
      Person().Click({dialog::saveConfig, id::cancel});
    });
    Person().Click(id::saveButton);
  }

  // The words of boxes and dialogs since the last call: "0x10 請輸入有效...".
  std::vector<std::string> Boxes() {
    std::vector<std::string> boxes;
    for (const std::string& line : Lines()) {
      const std::vector<Word> words = SplitWords(line);
      if (words[0].text == "box") boxes.push_back(words[1].text + ' ' + words[3].text);
      if (words[0].text == "dialog" && words.size() > 3) boxes.push_back("closed " + words[3].text);
    }
    Forget();
    return boxes;
  }

  void EditByHand(const std::function<void(std::string&)>& edit) {
    std::string text;
    for (const std::string& line : TheSession().TheFiles().Lines(ModuleFile::profile)) text += line + "\n";
    edit(text);
    TheSession().TheFiles().WriteBytes(ModuleFile::profile,
                                       {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
  }
  static void RemoveLine(std::string& text, const std::string& start) {
    const std::size_t at = text.find(start);
    ASSERT_NE(at, std::string::npos) << start;
    text.erase(at, text.find('\n', at) + 1 - at);
  }

  static constexpr const char* bad = "0x10 請輸入有效的掃描配置名稱。";
  static constexpr const char* guarded = "0x0 您無法改寫預設配置！";
  static std::string Replace(const std::string& name) {
    return "0x34 已經含有一個名為 \"" + name + "\" 的掃描配置！\n您要取代這個現有的配置嗎？";
  }
};

TEST_F(Store, KeepsWhatIsSavedAndLoadsItAgain) {
  Person().Pick(id::resolutionCombo, "600 dpi");
  Forget();
  const Profile before = Stored();
  SaveAs("report");
  EXPECT_EQ(Told(), "");
  EXPECT_EQ(Changed(before), "report");
  EXPECT_TRUE(Shows(id::configList, "index=6 "));
  EXPECT_TRUE(Shows(id::configList, ",\"report\"/2 "));
  EXPECT_TRUE(Shows(id::saveButton, "enabled"));
  EXPECT_TRUE(Shows(id::deleteButton, "enabled"));
  Person().ArrowTo(id::configList, 1);
  EXPECT_TRUE(Shows(id::saveButton, "disabled"));
  EXPECT_TRUE(Shows(id::deleteButton, "disabled"));
  Person().ArrowTo(id::configList, 6);
  EXPECT_EQ(Value("dpi"), "600");
  Host().Close();
  TheSession().Restart();
  Open();
  EXPECT_TRUE(Shows(id::configList, "index=6 "));
  EXPECT_TRUE(Shows(id::deleteButton, "enabled"));
}

TEST_F(Store, DialogTurnsNamesAwayInOrder) {
  SaveAs("report");
  Boxes();
  const Profile before = Stored();
  TrySaving({"", "   ", "a=b", "[x", ";x", "編輯文字 (OCR)", customRow, "report", "next"});
  // A box takes its first button: Yes ends the dialog.
  EXPECT_THAT(Boxes(),
              testing::ElementsAre(bad, bad, bad, bad, bad, guarded, guarded, Replace("report"), "closed 1"));
  EXPECT_EQ(Changed(before), "");  // the same settings

  WhenBox(BoxAnswer::no);
  TrySaving({"REPORT", "next one "});
  EXPECT_THAT(Boxes(), testing::ElementsAre(Replace("REPORT"), "closed 1"));
  EXPECT_EQ(Changed(before), "next one");
  EXPECT_TRUE(Shows(id::configList, "index=6 "));  // a name with blanks at its end isn't found again

  WhenDialog(dialog::saveConfig, [this] {
    EXPECT_EQ(Seen("104:1003"), "edit visible enabled text=\"report\"");
    Person().PressKey(Key::escape);
  });
  Person().Click(id::saveButton);
  EXPECT_THAT(Boxes(), testing::ElementsAre("closed 2"));
  EXPECT_EQ(Changed(before), "next one");
}

TEST_F(Store, ReplacesAcrossSources) {
  SaveAs("report");
  Person().Pick(id::sourceCombo, "自動送件器");
  Boxes();
  WhenBox(BoxAnswer::yes);
  TrySaving({"report"});
  EXPECT_THAT(Boxes(), testing::ElementsAre(Replace("report"), "closed 1"));
  EXPECT_TRUE(Shows(id::configList, "index=4 "));
  EXPECT_TRUE(Shows(id::configList, "\"report\"/2 "));
  Person().Pick(id::sourceCombo, "反射");
  EXPECT_FALSE(Shows(id::configList, "report"));
}

TEST_F(Store, DeletesTheLastAndOneBetween) {
  const std::string colour = Refresh(mode::colour);
  for (const char* name : {"a", "b", "c"}) SaveAs(name);
  Person().ArrowTo(id::configList, 7);
  Record().jpegQuality = 4;
  Boxes();
  WhenBox(BoxAnswer::no);
  Person().Click(id::deleteButton);
  EXPECT_EQ(Boxes(), std::vector<std::string>{"0x34 您確定要刪除 \"b\"掃描配置嗎？"});
  EXPECT_TRUE(Shows(id::configList, "index=7 "));
  Person().Click(id::deleteButton);
  EXPECT_EQ(Told(), colour);
  EXPECT_TRUE(Shows(id::configList, "index=7 "));
  EXPECT_TRUE(Shows(id::configList, "\"a\"/2,\"c\"/2 "));
  EXPECT_EQ(Value("jpegQuality"), "9");  // the row that moved up is loaded
  Person().Click(id::deleteButton);
  EXPECT_TRUE(Shows(id::configList, "index=6 "));
  EXPECT_TRUE(Shows(id::configList, "\"a\"/2 "));
  Person().Click(id::deleteButton);
  EXPECT_TRUE(Shows(id::configList, "index=5 "));
  EXPECT_TRUE(Shows(id::deleteButton, "disabled"));
}

TEST_F(Store, TakesThirtyOneRowsOfASourceAndNoMore) {
  for (int i = 6; i < 31; ++i) SaveAs("row " + std::to_string(i));
  Boxes();
  Person().Click(id::saveButton);
  EXPECT_THAT(Boxes(), testing::ElementsAre(testing::StartsWith("0x10 此系統只能有 32 種掃描配置。")));
  Person().Pick(id::sourceCombo, "自動送件器");
  EXPECT_TRUE(Shows(id::configList, "index=3 "));
  SaveAs("of the feeder");
  EXPECT_TRUE(Shows(id::configList, "index=4 "));
  // More from an edited file: the first ones in the file's order stand, and the file keeps them all.
  EditByHand([](std::string& text) {
    const std::size_t line = text.find("row 30=");
    const std::string value = text.substr(line + 6, text.find('\n', line) + 1 - line - 6);
    text.insert(line, "between" + value);
  });
  Person().Pick(id::sourceCombo, "反射");
  EXPECT_TRUE(Shows(id::configList, "\"row 29\"/2,\"between\"/2 "));
  Person().ArrowTo(id::configList, 30);
  const Profile before = Stored();
  Person().Pick(id::resolutionCombo, "200 dpi");
  EXPECT_EQ(Changed(before), "between");
}

// A damaged entry is judged by what was read into its place before: "a" by a row of the feeder that isn't shown, "b"
// by what it was itself.
TEST_F(Store, ShowsAllOthersBesideADamagedEntryAndNeverWritesOverIt) {
  for (const char* damaged : {"a", "b"}) {
    SCOPED_TRACE(damaged);
    StartAfresh();
    Open();
    SaveAs("a");
    SaveAs("b");
    EditByHand([&](std::string& text) { text[text.find('\n' + std::string(damaged) + '=') + 100] = 'x'; });
    const bool shown = *damaged == 'b';
    Person().Pick(id::sourceCombo, "反射");
    EXPECT_TRUE(Shows(id::configList, shown ? "\"a\"/2,\"b\"/2 " : "\"自訂...\"/2,\"b\"/2 "));
    const Profile before = Stored();
    Forget();
    TrySaving({damaged});
    EXPECT_THAT(Boxes(), testing::ElementsAre(guarded, "closed 2"));
    for (int row = 5; row < (shown ? 8 : 7); ++row) {
      Person().ArrowTo(id::configList, row);
      Person().Pick(id::resolutionCombo, row % 2 ? "150 dpi" : "300 dpi");
    }
    EXPECT_EQ(Stored()[damaged], before.at(damaged));
    EXPECT_EQ(Changed(before), shown ? "a | 自訂..." : "b | 自訂...");
  }
}

TEST_F(Store, FollowsAFileEditedBetweenTwoSteps) {
  for (const char* name : {"a", "b", "c"}) SaveAs(name);
  // The row in force is elsewhere now: it takes its change all the same.
  EditByHand([](std::string& text) { RemoveLine(text, "a="); });
  const Profile before = Stored();
  Person().Pick(id::resolutionCombo, "300 dpi");
  EXPECT_EQ(Changed(before), "c");
  EXPECT_TRUE(Shows(id::configList, "index=7 "));
  EXPECT_TRUE(Shows(id::configList, "\"b\"/2,\"c\"/2 "));
  Person().Pick(id::resolutionCombo, "200 dpi");
  EXPECT_EQ(Changed(before), "c");
  // The file lost more than the row that is deleted.
  EditByHand([](std::string& text) {
    RemoveLine(text, "b=");
    RemoveLine(text, "彩色文件 - 較快=");
  });
  Person().Click(id::deleteButton);
  EXPECT_TRUE(Shows(id::configList, "index=4 "));
  EXPECT_EQ(Value("dpi"), "100");
  // All gone: the fallback row is left, which changes nothing and can be saved from.
  EditByHand([](std::string& text) { text = "[Config Items]\n"; });
  Person().Pick(id::sourceCombo, "反射");
  EXPECT_TRUE(Shows(id::configList, "rows=\"Custom...\"/2 "));
  EXPECT_TRUE(Shows(id::deleteButton, "disabled"));
  Person().Pick(id::resolutionCombo, "150 dpi");
  EXPECT_TRUE(Stored().empty());
  Person().ClickRow(id::configList, 0);
  EXPECT_EQ(Value("dpi"), "150");
  WhenDialog(dialog::saveConfig, [this] {
    EXPECT_EQ(Seen("104:1003"), "edit visible enabled text=\"Custom...\"");
    Person().PressKey(Key::enter);
  });
  Person().Click(id::saveButton);
  EXPECT_TRUE(Stored().contains("Custom..."));
  EXPECT_TRUE(Shows(id::deleteButton, "enabled"));
}

// A byte other than 0 and 1 from an edited file takes changes up, but enables nothing.
TEST_F(Store, ReadsFlagsAsTheyAreStored) {
  SaveAs("a");
  EditByHand([](std::string& text) { text.replace(text.find("\na=") + 3 + 384, 4, "0202"); });
  Host().Close();
  TheSession().Restart();
  Open();
  EXPECT_TRUE(Shows(id::saveButton, "disabled"));
  EXPECT_TRUE(Shows(id::deleteButton, "disabled"));
  const Profile before = Stored();
  Person().Pick(id::resolutionCombo, "300 dpi");
  EXPECT_EQ(Changed(before), "a");
  EXPECT_EQ(Stored()["a"].substr(384, 16), "0202000000000000");
}

}  // namespace
}  // namespace set32
