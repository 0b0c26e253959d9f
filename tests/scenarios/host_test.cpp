// What hosts do that no script says: they pass their own record, and call without what a panel needs. And what
// depends on the system's fonts and places.
#include "set32/ui_fix_setting.h"
#include "tests/support/scenario.h"

namespace set32 {
namespace {

class HostsPart : public Scenario {
 protected:
  const Control& ControlOf(int id) { return TheSession().TheScene().Require(User::Target(id)).control; }
  Rect SheetPlace() { return TheSession().TheScene().Require(dialog::sheet).Place(); }
};

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
    auto& combo = dynamic_cast<Combo&>(TheSession().TheScene().Require(User::Target(list)).control);
    const int closed = combo.DroppedWidth();
    combo.Add(std::string(60, 'W'));
    Person().DropList(list);
    EXPECT_GT(combo.DroppedWidth(), closed) << list;
  }
}

TEST_F(HostsPart, LowPageHasAScrollBarBesideItsRows) {
  Open();
  const auto& list = dynamic_cast<const List&>(ControlOf(id::configList));
  const Size page = TheSession().TheScene().Require(User::Target(id::configList)).dialog.ClientSize();
  Person().Resize({page.width, page.height - 100});
  const int scrollBar = TheSession().Outside().ThePlatform().windows.ScrollBarWidth();
  EXPECT_EQ(list.ColumnWidth(), list.InnerWidth() - scrollBar);
}

}  // namespace
}  // namespace set32
