// What hosts do that no script says: they act in the middle of a message, pass their own record, and call without
// what a panel needs. And what depends on the system's fonts and places.
#include <gmock/gmock.h>

#include "tests/support/scenario.h"
#include "ui_fix_setting.h"

namespace set32 {
namespace {

using testing::ElementsAre;

class HostsPart : public Scenario {
 protected:
  // The host acts once, inside the first message that begins like this.
  void Inside(const std::string& message, const std::function<void()>& act) {
    OnEveryLine([message, act, done = false](const std::string& line) mutable {
      if (done || !line.starts_with("host " + message)) return;
      done = true;
      act();
    });
  }
  const Control& ControlOf(int id) { return TheSession().TheDesk().Require(User::Target(id)).control; }
  Rect SheetPlace() { return TheSession().TheDesk().Require(dialog::sheet).Place(); }
};

// What a saved change sends in the middle of a refresh may make the host write its word; the refresh puts it back.
TEST_F(HostsPart, WordOutlastsARefresh) {
  Open();
  Person().ArrowTo(id::configList, 2);
  Record().hostWord = 7;
  Record().sizeId = size_id::legal;  // not on the flatbed
  Inside("0x404", [this] { Record().hostWord = 8; });
  ASSERT_TRUE(TheSession().Open());
  EXPECT_EQ(Record().hostWord, 7U);
  EXPECT_EQ(Record().sizeId, size_id::none);
}

// A host that turns to another source in the middle gets the page's own back, with all that a change of source tells.
TEST_F(HostsPart, SourceIsPutBackAtTheStart) {
  Inside("0x404", [this] { Record().paperSource = paper_source::positive; });
  ASSERT_TRUE(TheSession().Open());
  const std::string added = "host 0x40C 1 \"加入掃描器 IP...\"";
  const std::string settings = "host 0x403 0 settings";
  const std::string shown = "host 0x404 0 1";
  EXPECT_THAT(Heard(), ElementsAre(added, shown, settings, added, "host 0x403 1 settings", "host 0x405 0 100", shown,
                                   settings, added, settings + " frame 3 0", shown, settings, added,
                                   "host 0x402 0 settings", "host 0x402 0 settings", shown, settings, added));
  EXPECT_EQ(Record().paperSource, paper_source::flatbed);
}

// Already the first words of a start on the feeder come with a record without auto crop.
TEST_F(HostsPart, RecordHasNoAutoCropWhenAStartOnTheFeederSpeaks) {
  WriteKey(ModuleFile::options, "OPTION", "LLDriverInterface", "1");
  WriteKey(ModuleFile::options, "OPTION", "EnablePaperSource", "1");
  Open();
  Person().Pick(id::sourceCombo, "自動送件器");
  Record().autoCrop = 1;
  Host().Close();
  TheSession().Restart();
  std::uint32_t heardWith = 99;
  Inside("0x404", [&] { heardWith = Record().autoCrop; });
  ASSERT_TRUE(TheSession().Open());
  EXPECT_EQ(heardWith, 0U);
}

// A host that adds a frame on each report can't keep the panel.
TEST_F(HostsPart, FramesWithoutEndEnd) {
  Open();
  OnEveryLine([&](const std::string& line) {
    if (line.find("frame 3") == std::string::npos) return;
    Host().Report(0, {}, FrameCommand{.index = 0, .action = frame_action::added});
  });
  Person().ClickBesideRows(id::configList);
  EXPECT_THAT(Heard(), ElementsAre("host 0x403 0 settings frame 3 0"));
}

TEST_F(HostsPart, ReportMayBeTheHostsOwnRecord) {
  Open();
  Record().customWidth = 3;
  Record().customHeight = 2;
  Host().Send(to_panel::frameReport, 0, reinterpret_cast<LParam>(&Record()));
  EXPECT_EQ(Record().width, 3);
  EXPECT_EQ(Record().height, 2);
  EXPECT_EQ(Host().Send(to_panel::frameReport, 0, 0), 0);
  EXPECT_FALSE(Host().SawForeignRecord());
}

TEST_F(HostsPart, CallNeedsRecordPlaceAndWindows) {
  struct Silent : HostWindowHandler {
    MessageResult OnHostMessage(std::uint32_t, WParam, LParam) override { return 0; }
    void OnRepaintAsked() override {}
  } silent;
  Open();
  Host().Close();
  TheSession().Restart();
  const WindowHandle host = TheSession().Outside().TheInput().MakeHostWindow({500, 500}, silent);
  ScanSettings record{};
  const PanelRect place{0, 0, 300, 400};
  const auto call = [&](WindowHandle parent, WindowHandle heard, ScanSettings* settings, const PanelRect* rect) {
    return uiFixSetting(parent, heard, nullptr, settings, nullptr, 0, 0, 128, 36, rect, nullptr);
  };
  EXPECT_EQ(call(0, host, &record, &place), 0U);
  EXPECT_EQ(call(host, 0, &record, &place), 0U);
  EXPECT_EQ(call(host, host, nullptr, &place), 0U);
  EXPECT_EQ(call(host, host, &record, nullptr), 0U);
  EXPECT_EQ(call(host + 1000, host, &record, &place), 0U);
  EXPECT_NE(call(host, host, &record, &place), 0U);
  TheSession().Outside().TheInput().DestroyHostWindow(host);
}

TEST_F(HostsPart, RectanglePlacesTheSheet) {
  Host().Arguments().rect = {-10, -20, 100, 420};
  Open();
  EXPECT_EQ(SheetPlace(), (Rect{-10, -20, 105, 420}));
  ASSERT_TRUE(TheSession().Open());
  EXPECT_EQ(SheetPlace(), (Rect{0, 0, 105, 420}));
  Host().Arguments().rect = {INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX};
  ASSERT_TRUE(TheSession().Open());
  EXPECT_EQ(SheetPlace().left, 0);
}

// Without the paper source the list has its room, and leaves the scanner's row alone.
TEST_F(HostsPart, OptionsGiveTheListTheSourcesRoom) {
  Open();
  EXPECT_EQ(ControlOf(id::configList).Place().top, ControlOf(id::sourceCombo).Place().top);
  TheSession().Restart();
  WriteKey(ModuleFile::options, "OPTION", "LLDriverInterface", "1");
  WriteKey(ModuleFile::options, "OPTION", "EnablePaperSource", "1");
  Open();
  EXPECT_GT(ControlOf(id::configList).Place().top, ControlOf(id::sourceCombo).Place().bottom);
  EXPECT_EQ(ControlOf(id::widthPicture).Place().Width(), 16);
}

TEST_F(HostsPart, LongEntriesWidenOpenedLists) {
  WriteKey(ModuleFile::options, "OPTION", "LLDriverInterface", "1");
  WriteKey(ModuleFile::options, "OPTION", "EnablePaperSource", "1");
  Open();
  for (const int list : {id::sizeCombo, id::resolutionCombo, id::scannerCombo, id::sourceCombo}) {
    auto& combo = dynamic_cast<Combo&>(TheSession().TheDesk().Require(User::Target(list)).control);
    const int closed = combo.DroppedWidth();
    combo.Add(std::string(60, 'W'));
    Person().DropList(list);
    EXPECT_GT(combo.DroppedWidth(), closed) << list;
  }
}

TEST_F(HostsPart, LowPageHasAScrollBarBesideItsRows) {
  Open();
  const auto& list = dynamic_cast<const List&>(ControlOf(id::configList));
  const Size page = TheSession().TheDesk().Require(User::Target(id::configList)).dialog.ClientSize();
  Person().Resize({page.width, page.height - 100});
  const int scrollBar = TheSession().Outside().ThePlatform().windows.ScrollBarWidth();
  EXPECT_EQ(list.ColumnWidth(), list.InnerWidth() - scrollBar);
}

}  // namespace
}  // namespace set32
