// A host may end its window inside any message. Whatever the page was doing, it touches nothing of the host's after
// that, says nothing more, and loses nothing that a person saved.
#include <algorithm>
#include <cstring>
#include <span>

#include "apps/driver/not_possible.h"
#include "tests/support/page_scenario.h"

namespace set32 {
namespace {

class EarlyEnd : public PageScenario {
 protected:
  // Acts, and the host ends at the line of this number. Result: whether it came to that.
  bool EndAt(int line, const std::function<void()>& act) {
    int left = line;
    bool ended = false;
    std::string linesAfter;
    OnEveryLine([&](const std::string& seen) {
      if (!seen.starts_with("host ")) return;
      if (ended && !isEnding_) linesAfter += seen + '\n';
      if (ended || left-- > 0) return;
      ended = isEnding_ = true;
      Host().EndWindows();
      isEnding_ = false;
      std::memset(static_cast<void*>(&Record()), gone, sizeof(ScanSettings));
    });
    try {
      act();
    } catch (const NotPossible& why) {
      EXPECT_TRUE(ended) << why.what();  // then the person finds no page any more
    }
    OnEveryLine({});
    if (ended) {
      const auto isGone = [](std::byte byte) { return byte == std::byte{gone}; };
      EXPECT_TRUE(std::ranges::all_of(std::as_bytes(std::span(&Record(), 1)), isGone))
          << "the host's record was touched";
      EXPECT_EQ(linesAfter, "");
      EXPECT_TRUE(TheSession().TheScene().Standing().empty());
    }
    return ended;
  }

 private:
  static constexpr std::uint8_t gone = 0xEE;  // each byte of a record that isn't the page's any more

  bool isEnding_ = false;
};

struct EndCase {
  const char* name;
  std::function<void(User&)> act;
  bool isStart = false;
  bool needsRow = false;
  bool isInline = false;
};

TEST_F(EarlyEnd, InEveryMessageOfEveryAct) {
  const std::vector<EndCase> cases = {
      {"start", {}, true, true},
      {"resolution", [](User& p) { p.Pick(id::resolutionCombo, "300 dpi"); }},
      {"dpi", [](User& p) { p.Type(id::resolutionEdit, "250"), p.Leave(); }},
      {"size", [](User& p) { p.Pick(id::sizeCombo, "使用者定義"); }},
      {"width", [](User& p) { p.Type(id::widthEdit, "5.5"), p.Leave(); }},
      {"height", [](User& p) { p.Type(id::heightEdit, "0.1"), p.PressKey(Key::enter); }},
      {"black and white", [](User& p) { p.Pick(id::modeCombo, "黑白"); }},
      {"source", [](User& p) { p.Pick(id::sourceCombo, "自動送件器"); }},
      {"film", [](User& p) { p.Pick(id::sourceCombo, "Transparency Negative"); }},
      {"auto crop", [](User& p) { p.Click(id::autoCropCheck), p.Click(id::autoCropCheck); }},
      {"frame", [](User& p) { p.Click(id::removeFrameButton); }},
      {"row", [](User& p) { p.ClickRow(id::configList, 1); }},
      {"beside the rows", [](User& p) { p.ClickBesideRows(id::configList); }},
      {"delete", [](User& p) { p.Click(id::deleteButton); }, false, true},
      {"search", [](User& p) { p.Click(id::refreshButton); }},
      {"advanced drag, reset and turn back",
       [](User& p) {
         p.TurnTo(dialog::advanced);
         p.Scroll({dialog::advanced, id148::firstSlider}, scroll_code::thumbTrack, 20);
         p.Click({dialog::advanced, id148::resetButton});
         p.Pick({dialog::advanced, id148::viewTabs}, 1);
         p.Scroll({dialog::advanced, id148::secondSlider}, scroll_code::rightEnd, {});
         p.Spin({dialog::advanced, id148::firstSpin}, 1);
         p.TurnTo(dialog::general);
       }},
      {"descreen and its kind",
       [](User& p) {
         p.TurnTo(dialog::advanced);
         p.Click({dialog::advanced, id148::descreenCheck});
         p.Click({dialog::advanced, id148::magazineRadio});
       }},
      {"high bit",
       [](User& p) {
         p.TurnTo(dialog::advanced), p.Poke({dialog::advanced, id148::highBitCheck});
       }},
      {"advanced dialog, its values",
       [](User& p) {
         p.Pick(id::modeCombo, "黑白"), p.Click(id::advancedButton);
         p.Scroll({dialog::gamma, id103::brightnessBar}, scroll_code::thumbTrack, 30);
         p.Pick(id::modeCombo, "全彩");
         p.Type({dialog::gamma, id103::contrastEdit}, "-12"), p.PressKey(Key::enter);
         p.Click({dialog::gamma, id103::gammaBandsRadio});
         p.Scroll({dialog::gamma, id103::gammaRedBar}, scroll_code::pageRight, {});
         p.Type({dialog::gamma, id103::gammaBlueEdit}, "0.5"), p.PressKey(Key::escape);
       },
       false, false, true},
      {"advanced dialog, its options",
       [](User& p) {
         p.Pick(id::modeCombo, "全彩"), p.Click(id::advancedButton);
         p.Click({dialog::gamma, id103::descreenCheck}), p.Click({dialog::gamma, id103::descreenCheck});
         p.Poke({dialog::gamma, id103::highBitCheck});
         p.Click({dialog::gamma, id103::customRadio}), p.Click({dialog::gamma, id103::defaultsRadio});
         p.Type({dialog::gamma, id103::gammaAllEdit}, "0"), p.Pick(id::sourceCombo, "自動送件器");
       },
       false, false, true},
  };
  for (const EndCase& one : cases) {
    SCOPED_TRACE(one.name);
    int line = 0;
    for (bool ended = true; ended; ++line) {
      SCOPED_TRACE(line);
      ASSERT_LT(line, 60);
      StartAfresh();
      Record() = {};
      OfferSources();
      WriteKey(ModuleFile::options, "Option", "UIFace", one.isInline ? "0" : "1");
      Open();
      if (one.needsRow) {
        SaveAs("mine");
      } else if (!one.isInline) {
        Person().ArrowTo(id::configList, 4);
      }
      if (one.isStart) {
        Host().Close();
        TheSession().Restart();
      }
      const Profile before = Stored();
      ended = EndAt(line, [&] {
        if (one.isStart) {
          const bool stands = TheSession().Open();
          EXPECT_EQ(stands, Host().Page() != 0);
        } else {
          one.act(Person());
        }
      });
      if (one.isStart) {
        EXPECT_EQ(Changed(before), "");
      }
      // There is no panel left to open but on the face that begins again.
      EXPECT_FALSE(ended && !one.isInline && TheSession().Open());
    }
    EXPECT_GT(line, 1);
  }
}

// Boxes and dialog 104 run a loop of their own; the page may be gone when they return.
TEST_F(EarlyEnd, UnderADialogAndABox) {
  Open();
  SaveAs("mine");
  const Profile before = Stored();
  Record().jpegQuality = 2;
  WhenDialog(dialog::saveConfig, [this] {
    Person().Type({dialog::saveConfig, id104::nameEdit}, "other");
    Host().EndWindows();
  });
  Person().Click(id::saveButton);
  EXPECT_EQ(Changed(before), "Active | Tmp");

  StartAfresh();
  Open();
  WhenDialog(dialog::addScanner, [this] { Host().EndWindows(); });
  Person().Pick(id::scannerCombo, 0);
  EXPECT_EQ(Heard(), std::vector<std::string>{});
  EXPECT_TRUE(TheSession().TheScene().Standing().empty());

  for (const int button : {id::deleteButton, id::saveButton}) {
    StartAfresh();
    Record() = {};
    Open();
    SaveAs("mine");
    OnEveryLine([&](const std::string& line) {
      if (line.starts_with("box ")) Host().EndWindows();
    });
    if (button == id::saveButton) {
      WhenDialog(dialog::saveConfig, [this] { Person().Click({dialog::saveConfig, id::ok}); });  // replaces "mine"
    }
    const Profile stored = Stored();
    Person().Click(button);
    OnEveryLine({});
    EXPECT_EQ(Changed(stored), "Active | Tmp");
    EXPECT_TRUE(TheSession().TheScene().Standing().empty());
  }
}

TEST_F(EarlyEnd, OfAWindowTakesWhatWasTyped) {
  Open();
  Person().Type(id::widthEdit, "4.25");
  Forget();
  Host().Close();
  const std::string area = "host 0x402 0 settings";
  EXPECT_EQ(Heard(), (std::vector<std::string>{"host 0x409 1 settings", area, area}));
  EXPECT_EQ(Record().width, 4.25);
}

TEST_F(EarlyEnd, OfTheOwnerKeepsTheAdvancedDialogsPlace) {
  WriteKey(ModuleFile::options, "Option", "UIFace", "0");
  Open();
  Person().Click(id::advancedButton);
  Person().Type({dialog::gamma, id103::gammaAllEdit}, "0");  // and says nothing of what is out of range
  Host().EndWindows();
  EXPECT_TRUE(TheSession().TheScene().Standing().empty());
  const std::vector<std::string> kept = TheSession().TheFiles().Lines(ModuleFile::hardware);
  ASSERT_EQ(kept.size(), 2U);
  EXPECT_TRUE(kept.back().starts_with("AdvancePos="));
}

}  // namespace
}  // namespace set32
