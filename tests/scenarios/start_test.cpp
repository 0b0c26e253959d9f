// The panel opens: on a fresh profile and on one that was kept, with all that the host may leave out, and again.
#include "tests/support/page_scenario.h"
#include "ui_fix_setting.h"

namespace set32 {
namespace {

constexpr const char* feederCustomRow = "自訂 ...";

class Start : public PageScenario {
 protected:
  Rect PlaceOf(int dialogId) {
    for (const Dialog* dialog : TheSession().TheDesk().Standing()) {
      if (dialog->TemplateId() == dialogId) return dialog->Place();
    }
    return {};
  }
};

// One for each road on which the record comes: the search, the first refresh, the start's end, the opening's refresh.
TEST_F(Start, TellsTheSameWhateverTheHostsRecordHoldsOnAFreshProfile) {
  for (const std::uint32_t source : {paper_source::flatbed, paper_source::feeder, 77U}) {
    StartAfresh();
    Record().paperSource = source;
    Record().mode = mode::gray;
    ASSERT_TRUE(TheSession().Open());
    EXPECT_EQ(Told(), Joined({"40C", Refresh(mode::colour), "402", Refresh(mode::colour)}));
    EXPECT_EQ(Record().paperSource, paper_source::flatbed);
    EXPECT_EQ(Value("mode"), "1");
    EXPECT_TRUE(Shows(id::configList, "index=5 "));
    EXPECT_EQ(Seen("open"), "0");
  }
}

TEST_F(Start, ShowsWhatTheLastRunLeftAndNotTheRowThatItMarks) {
  Open();
  Person().ArrowTo(id::configList, 2);
  Record().jpegQuality = 3;  // as a host may, at any time
  Record().autoCrop = 1;
  Record().highBitDepth = 1;
  Record().frameCommand = 0xDEADBEE0;
  Host().Close();
  EXPECT_EQ(Record().highBitDepth, 0U);
  EXPECT_EQ(Stored()["Active"], "2");
  Record() = {};
  TheSession().Restart();
  Open();
  EXPECT_TRUE(Shows(id::configList, "index=2 "));
  EXPECT_EQ(Value("jpegQuality"), "3");
  EXPECT_EQ(Value("mode"), "2");
  EXPECT_EQ(Value("frameCommand"), "0");
  EXPECT_TRUE(Shows(id::autoCropCheck, "checked=1"));
  EXPECT_TRUE(Shows(id::removeFrameButton, "disabled"));
}

TEST_F(Start, CorrectsASelectedRowThatThereIsnt) {
  struct Case {
    const char* stored;
    const char* shown;
    bool save, remove;
  };
  // -1 is no row at all: the buttons stay as they were.
  for (const Case& one : {Case{"99", "index=-1 ", true, false}, Case{"6", "index=-1 ", true, false},
                          Case{"0", "index=0 ", false, false}, Case{"x", "index=0 ", false, false},
                          Case{"-7", "index=-1 ", true, false}, Case{"-1", "index=-1 ", true, true}}) {
    SCOPED_TRACE(one.stored);
    StartAfresh();
    Open();
    Host().Close();
    TheSession().Restart();
    WriteKey(ModuleFile::profile, "Selected", "Active", one.stored);
    Open();
    EXPECT_TRUE(Shows(id::configList, one.shown));
    EXPECT_TRUE(Shows(id::saveButton, one.save ? "visible enabled" : "visible disabled"));
    EXPECT_TRUE(Shows(id::deleteButton, one.remove ? "visible enabled" : "visible disabled"));
  }
}

TEST_F(Start, OnAnotherSourceRunsThatSourcesChange) {
  for (const bool feederCrops : {false, true}) {
    StartAfresh();
    OfferSources();
    WriteKey(ModuleFile::options, "ADFTA", "ADFAutoCrop", feederCrops ? "1" : "0");
    Open();
    Person().Pick(id::sourceCombo, "自動送件器");
    Host().Close();
    TheSession().Restart();
    Forget();
    ASSERT_TRUE(TheSession().Open());
    // The bar's one tab goes as the row is selected. The source is no other than before, so the unit stays.
    EXPECT_EQ(Told(),
              Joined({"40C", Refresh(1), "403/1", Refresh(1), "403[3 0]", Refresh(1), "402", "402", Refresh(1)}));
    EXPECT_TRUE(Shows(id::sourceCombo, "text=\"自動送件器\""));
    EXPECT_TRUE(Shows(id::configList, "index=3 "));
    EXPECT_TRUE(Shows(id::autoCropCheck, feederCrops ? "check hidden enabled" : "check hidden disabled"));
    EXPECT_TRUE(Shows(id::frameTabs, "tab hidden"));
    EXPECT_TRUE(Shows(id::widthEdit, "edit visible disabled"));
    EXPECT_TRUE(Shows(id::modeCombo, "entries=\"全彩\",\"灰階\",\"黑白\""));
    Person().Pick(id::resolutionCombo, "200 dpi");
    EXPECT_EQ(Told(), "401/0:200");
    Host().Close();
    EXPECT_EQ(Stored()["ADFActive"], "3");
    EXPECT_EQ(Stored()[feederCustomRow].substr(16, 8), "C8000000");
  }
}

// A source that there isn't shows no rows of others and runs no change of source.
TEST_F(Start, PassesASourceThatThereIsnt) {
  Open();
  Record().paperSource = 77;
  Host().Close();
  TheSession().Restart();
  ASSERT_TRUE(TheSession().Open());
  EXPECT_EQ(Told(), Joined({"40C", Refresh(1), "402", Refresh(1)}));
  EXPECT_TRUE(Shows(id::configList, "index=-1 rows= "));
  EXPECT_TRUE(Shows(id::sourceCombo, "index=-1"));
}

// A host that turns to another source in the middle gets the page's own back, with all that a change of source tells.
TEST_F(Start, ChangesTheSourceOfARecordThatTheHostChangedMeanwhile) {
  bool changed = false;
  OnEveryLine([&](const std::string& line) {
    if (changed || !line.starts_with("host 0x404")) return;
    changed = true;
    Record().paperSource = paper_source::positive;
  });
  ASSERT_TRUE(TheSession().Open());
  EXPECT_EQ(Told(), Joined({"40C", Refresh(1), "403/1 405/0:100", Refresh(1), "403[3 0]", Refresh(1), "402", "402",
                            Refresh(1)}));
  EXPECT_EQ(Record().paperSource, paper_source::flatbed);
}

TEST_F(Start, NeedsRecordPlaceAndWindows) {
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

TEST_F(Start, StandsInForWhatTheHostLeavesOut) {
  OfferSources();
  Host().Arguments().limits.reset();
  Host().Arguments().caps.reset();
  Host().Preview().TakeAway();
  Record().frameLeft = 800;
  Open();
  EXPECT_TRUE(Shows(id::sourceCombo, "entries=\"反射\" "));
  EXPECT_TRUE(Shows(id::resolutionCombo, "\"4800 dpi\",\"使用者定義\" "));
  EXPECT_FALSE(Shows(id::resolutionCombo, "9600"));
  Person().Type(id::resolutionEdit, "4800");
  Person().Leave();
  EXPECT_EQ(Value("dpi"), "4800");
  Record().frameLeft = 800;  // nothing to keep the edge of
  Person().Type(id::widthEdit, "8");
  Person().Leave();
  EXPECT_EQ(Value("width"), "8");
}

TEST_F(Start, OffersTheSourcesOfTheDeviceByTheirCodes) {
  OfferSources();
  struct Case {
    std::uint32_t caps;
    const char* entries;
    const char* last;
    std::uint32_t lastSource;
  };
  for (const Case& one :
       {Case{0, "\"反射\" ", "反射", 0}, Case{0x20000, "\"反射\",\"自動送件器\" ", "自動送件器", 1},
        Case{0x40000, "\"反射\",\"Transparency Positive \",\"Transparency Negative\" ", "Transparency Negative", 3},
        Case{0x60000, "\"反射\",\"Transparency Positive \",\"Transparency Negative\",\"自動送件器\" ", "自動送件器",
             1}}) {
    StartAfresh();
    Host().Arguments().caps->words[DeviceCaps::sourceCapsWord] = one.caps;
    Open();
    EXPECT_TRUE(Shows(id::sourceCombo, one.entries));
    Person().Pick(id::sourceCombo, one.last);
    EXPECT_EQ(Record().paperSource, one.lastSource);
  }
}

TEST_F(Start, ShowsWidthAndHeightInPictures) {
  Open();
  for (const auto& [button, picture] : {std::pair{id::widthPicture, "SWIDTHU"}, {id::heightPicture, "SHEIGHTU"}}) {
    const Control& control = TheSession().TheDesk().Require(User::Target(button)).control;
    EXPECT_EQ(dynamic_cast<const PictureButton&>(control).PictureName(), picture);
    EXPECT_EQ(control.Place().Width(), 16);
  }
}

TEST_F(Start, OffersTheModesOfTheDevice) {
  Host().Arguments().limits->modeMask = mode::gray;
  Open();
  for (const auto& [control, isOffered] : {std::pair{id::colourRadio, false},
                                           {id::colourButton, false},
                                           {id::grayRadio, true},
                                           {id::grayButton, true},
                                           {id::bwRadio, false},
                                           {id::bwButton, false}}) {
    EXPECT_TRUE(Shows(control, isOffered ? "hidden enabled" : "hidden disabled")) << control;
  }
}

TEST_F(Start, OpensAgainWithWhatTheHostBringsThen) {
  Host().Arguments().rect = {-10, -20, 100, 420};
  Open();
  EXPECT_EQ(PlaceOf(dialog::sheet), (Rect{-10, -20, 105, 420}));
  Host().Arguments().limits->resolutionMask = resolution::dpi75 | resolution::dpi300 | resolution::userDefined;
  Host().Arguments().caps->words[DeviceCaps::restrictedMaxDpiWord] = 300;  // not read any more
  Record().descreen = 1;
  Record().dpi = 600;
  Record().resolutionId = resolution::userDefined;
  Record().units = unit::centimetre;
  ASSERT_TRUE(TheSession().Open());
  EXPECT_EQ(Told(), Refresh(1));
  EXPECT_EQ(PlaceOf(dialog::sheet), (Rect{0, 0, 105, 420}));
  EXPECT_TRUE(Shows(id::resolutionCombo, "entries=\"75 dpi\",\"300 dpi\",\"使用者定義\" "));
  EXPECT_EQ(Value("dpi"), "600");
  EXPECT_TRUE(Shows(id::widthEdit, "text=\"21.59\""));
  EXPECT_EQ(Seen("open"), "0");

  Host().Arguments().rect = {INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX};
  ASSERT_TRUE(TheSession().Open());
  EXPECT_EQ(PlaceOf(dialog::sheet).left, 0);
  Host().Close();
  EXPECT_FALSE(TheSession().Open());
}

TEST_F(Start, TakesTheThresholdOfEachCall) {
  Open();
  Person().Pick(id::modeCombo, "黑白");
  EXPECT_EQ(Seen("pixel 0 0"), "source=255,255,255 display=255,255,255");
  Host().Arguments().bwThreshold = 255;  // nothing is lighter
  ASSERT_TRUE(TheSession().Open());
  EXPECT_EQ(Seen("pixel 0 0"), "source=255,255,255 display=0,0,0");
}

struct OptionCase {
  const char* name;
  std::vector<std::pair<const char*, const char*>> keys;
  int control;
  const char* shows;
};

TEST_F(Start, FollowsTheRunTimeOptions) {
  const std::vector<OptionCase> cases = {
      {"any face but 0", {{"UIFace", "2"}}, id::configList, "list visible"},
      {"no source controls", {{"EnablePaperSource", "1"}}, id::sourceCombo, "combo hidden"},
      {"no source controls", {{"LLDriverInterface", "1"}}, id::sourceLabel, "label hidden"},
      {"source controls", {{"EnablePaperSource", "1"}, {"LLDriverInterface", "1"}}, id::sourceCombo, "combo visible"},
  };
  for (const OptionCase& one : cases) {
    SCOPED_TRACE(one.name);
    StartAfresh();
    TheSession().Outside().ThePlatform().files.Remove(TheSession().TheFiles().PathOf(ModuleFile::options));
    for (const auto& [key, value] : one.keys) WriteKey(ModuleFile::options, "Option", key, value);
    Open();
    EXPECT_TRUE(Shows(one.control, one.shows));
  }
  // Without them the list has their room, and leaves the scanner's row alone.
  const auto top = [&](int control) {
    return TheSession().TheDesk().Require(User::Target(control)).control.Place().top;
  };
  const int lower = top(id::configList);
  StartAfresh();
  WriteKey(ModuleFile::options, "OPTION", "LLDriverInterface", "0");
  Open();
  EXPECT_LT(top(id::configList), lower);
  EXPECT_EQ(top(id::configList), top(id::sourceCombo));
}

TEST_F(Start, GivesHighBitDepthToListedApplicationsAlone) {
  struct Case {
    const char* application;
    const char* list;
    bool kept;
  };
  for (const Case& one : {Case{"Foto", "Draw,Foto", true}, Case{"foto", "Draw,Foto", false}, Case{"Foto", "", false},
                          Case{"", "Draw,Foto", false}, Case{"", "", false}, Case{"Foto", "Draw, Foto", false}}) {
    StartAfresh();
    WriteKey(ModuleFile::options, "OPTION", "AppName", one.application);
    WriteKey(ModuleFile::options, "OPTION", "Enable36BitApps", one.list);
    Open();
    Record().highBitDepth = 1;
    ASSERT_TRUE(TheSession().Open());
    EXPECT_EQ(Record().highBitDepth, one.kept ? 1U : 0U) << one.application << " in " << one.list;
  }
}

TEST_F(Start, CaptionsItsBoxesByTheMakersKey) {
  for (const auto& [oem, name, caption] : {std::tuple{"0", "Mine", "Brightfold Scan Desk"}, {"1", "Mine", "Mine"}}) {
    StartAfresh();
    WriteKey(ModuleFile::options, "Option", "OEM", oem);
    WriteKey(ModuleFile::options, "Identity", "ProductName", name);
    Open();
    Person().Type(id::resolutionEdit, "1");
    Person().Leave();
    EXPECT_THAT(Lines(), testing::Contains(testing::HasSubstr(std::string("box 0x10 \"") + caption)));
  }
}

TEST_F(Start, ShowsNothingForAModeThatIsntOffered) {
  Open();
  Record().mode = mode::jpegColour;
  Record().descreen = Record().highBitDepth = 1;
  ASSERT_TRUE(TheSession().Open());
  EXPECT_EQ(Told(), Refresh(mode::jpegColour));
  EXPECT_TRUE(Shows(id::modeCombo, "index=-1"));
  EXPECT_EQ(Value("mode"), "8");
  EXPECT_EQ(Record().descreen, 0U);
}

}  // namespace
}  // namespace set32
