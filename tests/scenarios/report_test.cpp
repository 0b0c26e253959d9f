// What the host reports of its frame, and what the page makes of it.
#include <limits>

#include "tests/support/page_scenario.h"

namespace set32 {
namespace {

class Reports : public PageScenario {
 protected:
  // The host reports the present size, off by so much in width and height.
  void Report(WParam change, double width, double height, std::uint32_t autoCrop = 0) {
    Host().Report(
        change,
        [=](ScanSettings& report) {
          report.customWidth = report.width + width;
          report.customHeight = report.height + height;
          report.width = 4;  // the remembered size, in a report of the same size
          report.height = 5;
          report.sizeId = size_id::b5;
          report.units = unit::pixel;
          report.frameLeft = 12;
          report.frameTop = 13;
          report.autoCrop = autoCrop;
        },
        std::nullopt);
  }
};

struct ReportCase {
  const char* name;
  WParam change;
  double width, height;
  std::uint32_t autoCrop;  // in the report
  std::string told;        // on a factory row
  std::string saved;       // the row, on a factory row
  std::uint32_t sizeId;    // afterwards
  std::uint32_t cropIsNow;
  bool moved;
};

TEST_F(Reports, TakeTheSizeTheyMean) {
  const std::string refresh = Refresh(mode::gray);
  const std::vector<ReportCase> cases = {
      {"the same size", 0, 0, 0, 0, "", "", size_id::b5, 0, true},
      {"nearly the same", 0, 0.03, -0.03, 0, "", "", size_id::b5, 0, true},
      {"wider by the tolerance", 0, 0.04, 0, 0, refresh, customRow, size_id::userDefined, 0, true},
      {"lower", 0, 0, -0.0401, 0, refresh, customRow, size_id::userDefined, 0, true},
      {"by auto crop in force", 0, 1, 0, 1, "", "", size_id::userDefined, 0, true},
      {"cropped", 2, -1, -1, 0, refresh, customRow, size_id::userDefined, 1, true},
      {"cropped in auto crop", 2, -1, -1, 1, "", "", size_id::userDefined, 1, true},
      {"cropped to the same size", 2, 0, 0, 1, "", "", size_id::b5, 0, true},
      {"no number", 0, std::numeric_limits<double>::quiet_NaN(), 0, 0, refresh, customRow, size_id::userDefined, 0,
       true},
      {"without end", 0, std::numeric_limits<double>::infinity(), -1e300, 0, refresh, customRow, size_id::userDefined,
       0, true},
      {"unit alone", 1, 1, 1, 1, "", "", size_id::a4, 0, false},
      {"unit alone, of an unknown report", 99, 1, 1, 1, "", "", size_id::a4, 0, false},
      {"crop again, though it is off", 3, 1, 1, 1, "", "", size_id::a4, 0, false},
  };
  for (const ReportCase& one : cases) {
    SCOPED_TRACE(one.name);
    StartAfresh();
    Open();
    Person().ArrowTo(id::configList, 2);
    Forget();
    Record().rotated = 1;
    const Profile before = Stored();
    Report(one.change, one.width, one.height, one.autoCrop);
    EXPECT_EQ(Told(), one.told);
    EXPECT_EQ(Changed(before), one.saved);
    EXPECT_EQ(Record().sizeId, one.sizeId);
    EXPECT_EQ(Record().autoCrop, one.cropIsNow);
    EXPECT_TRUE(Shows(id::autoCropCheck, one.cropIsNow ? "checked=1" : "checked=0"));
    EXPECT_TRUE(Shows(id::unitCombo, "index=2 "));
    EXPECT_EQ(Record().units, unit::inch);
    EXPECT_EQ(Record().frameLeft, one.moved ? 12 : 0);
    EXPECT_EQ(Record().rotated, one.moved ? 0U : 1U);
    if (one.sizeId == size_id::b5) {
      EXPECT_EQ(Value("customWidth") + ' ' + Value("customHeight"), "4 5");
    }
    if (one.moved && one.width == one.width) {
      EXPECT_DOUBLE_EQ(Record().width, 8.5 + one.width);
    }
  }
}

TEST_F(Reports, OnTheCustomRowAreSavedByNobody) {
  Open();
  const Profile before = Stored();
  Report(0, -1, -1);
  EXPECT_EQ(Told(), "");
  EXPECT_EQ(Changed(before), "");
  EXPECT_TRUE(Shows(id::widthEdit, "text=\"750\" low=30 high=850 "));
}

// It isn't the custom row, so what stood before the frame goes into the row in place.
TEST_F(Reports, OnARowOfThePersonsKeepWhatStoodBefore) {
  Open();
  SaveAs("mine");
  Record().jpegQuality = 2;
  const Profile before = Stored();
  Forget();
  Report(0, -1, 0);
  EXPECT_EQ(Told(), "");
  EXPECT_EQ(Changed(before), "mine");
  EXPECT_EQ(Stored()["mine"].substr(192, 16), "0000000000002140");  // 8.5
}

TEST_F(Reports, MayBeTheHostsOwnRecord) {
  Open();
  Record().customWidth = 3;
  Record().customHeight = 2;
  Host().Send(to_panel::frameReport, 0, reinterpret_cast<LParam>(&Record()));
  EXPECT_EQ(Value("width") + ' ' + Value("height"), "3 2");
  EXPECT_EQ(Host().Send(to_panel::frameReport, 0, 0), 0);
}

TEST_F(Reports, AnnounceAutoCropAnewWithoutSaving) {
  Open();
  Person().ArrowTo(id::configList, 2);
  Record().autoCrop = 1;
  Forget();
  const Profile before = Stored();
  Report(3, 1, 1);
  EXPECT_EQ(Told(), "409");
  EXPECT_EQ(Changed(before), "");
  EXPECT_EQ(Record().autoCrop, 1U);
  EXPECT_TRUE(Shows(id::autoCropCheck, "checked=1"));
  EXPECT_TRUE(Shows(id::removeFrameButton, "disabled"));
  EXPECT_EQ(Host().Send(to_panel::autoCropOff, 5, 6), 0);
  EXPECT_EQ(Record().autoCrop, 0U);
  EXPECT_TRUE(Shows(id::autoCropCheck, "checked=0"));
  EXPECT_EQ(Host().Send(to_panel::deviceQuestion, 5, 6), 1);
  EXPECT_EQ(Told(), "");
  // Afterwards a click on the check box is saved again.
  Person().Click(id::autoCropCheck);
  EXPECT_EQ(Changed(before), customRow);
}

TEST_F(Reports, ActOnTheFrames) {
  Open();
  const auto command = [&](std::uint32_t action, std::uint32_t index) {
    Host().Report(0, {}, FrameCommand{.index = index, .action = action});
  };
  const auto tabs = [&] { return Seen("1095"); };
  for (int i = 1; i < 12; ++i) command(frame_action::added, 0);
  EXPECT_EQ(tabs(), "tab visible enabled index=11 count=12");
  command(frame_action::select, 3);
  EXPECT_EQ(tabs(), "tab visible enabled index=3 count=12");
  for (const std::uint32_t outside : {12U, 0x80000000U, 0xFFFFFFFFU}) command(frame_action::select, outside);
  command(99, 1);
  EXPECT_EQ(tabs(), "tab visible enabled index=3 count=12");
  command(frame_action::removed, 0);
  EXPECT_EQ(tabs(), "tab visible enabled index=3 count=11");
  EXPECT_EQ(Told(), "");
  Person().Click(id::removeFrameButton);
  EXPECT_EQ(Told(), "403[3 3] 40B/3");
  Person().Pick(id::frameTabs, 0);
  EXPECT_EQ(Told(), "40B/0");
  command(frame_action::allGone, 0);
  EXPECT_EQ(tabs(), "tab visible enabled index=-1 count=0");
  EXPECT_EQ(Seen("5005"), "button visible disabled text=\"移除\"");
  command(frame_action::removed, 0);
  EXPECT_EQ(Told(), "");
  // A report without a size of its own carries no command.
  Host().Report(1, {}, FrameCommand{.index = 0, .action = frame_action::added});
  EXPECT_EQ(tabs(), "tab visible enabled index=-1 count=0");
  command(frame_action::added, 0);
  EXPECT_EQ(tabs(), "tab visible enabled index=0 count=1");
  EXPECT_EQ(Record().frameCommand, 0U);
}

}  // namespace
}  // namespace set32
