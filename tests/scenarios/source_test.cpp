// A person changes the paper source, clicks rows, and finds the frames gone.
#include "tests/support/page_scenario.h"

namespace set32 {
namespace {

constexpr const char* flatbed = "反射";
constexpr const char* feeder = "自動送件器";
constexpr const char* positive = "Transparency Positive ";
constexpr const char* negative = "Transparency Negative";

class Source : public PageScenario {
 protected:
  void SetUp() override { OfferSources(); }
};

struct SourceCase {
  const char* name;
  std::vector<const char*> road;  // entries picked; the last one's messages are compared
  std::string told;
  std::vector<std::pair<int, const char*>> shows;
};

TEST_F(Source, ChangesEverythingInItsOrder) {
  const std::string colour = Refresh(mode::colour);
  const std::vector<SourceCase> cases = {
      {"to the feeder",
       {feeder},
       Joined({"403/1 405/0:100", colour, "403[3 0]", colour, "402"}),
       {{id::configList,
         "index=3 rows=\"自動送件器 - 較快\"/2,\"自動送件器 - 較佳\"/2,\"自動送件器 - 灰色\"/1,\"自訂 ...\"/2 "},
        {id::sizeCombo, "index=2 text=\"A4(8.25\\\"x11.69\\\")\""},
        {id::heightEdit, "disabled text=\"11.00\" low=0.3 high=14 "},
        {id::resolutionCombo, "\"600 dpi\",\"使用者定義\" "},
        {id::autoCropCheck, "hidden"},
        {id::removeFrameButton, "hidden"},
        {id::framesLabel, "hidden"}}},
      {"and back",
       {feeder, flatbed},
       Joined({"403/1 405/0:100", colour, colour, "402"}),
       {{id::configList, "index=5 "},
        {id::autoCropCheck, "visible enabled"},
        {id::frameTabs, "visible enabled index=-1 count=0"},
        {id::widthEdit, "enabled"},
        {id::modeCombo, "entries=\"全彩\",\"灰階\",\"黑白\" "}}},
      {"the same again", {flatbed}, Joined({"403/1", colour, "403[3 0]", colour, "402"}), {}},
      {"to positives, which have no rows",
       {positive},
       Joined({"403/1 405/0:100 paint", colour, "403[3 0]"}),
       {{id::configList, "index=-1 rows= "},
        {id::sizeCombo, "index=-1 text=\"\" entries=\"Positive Film 36 x 24 mm\",\"使用者定義\" "},
        {id::resolutionCombo, "index=-1 text=\"\" entries=\"300 dpi\""},
        {id::resolutionEdit, "text=\"100\""},
        {id::modeCombo, "entries=\"全彩\",\"灰階\" "},
        {id::autoCropCheck, "disabled"}}},
      {"to negatives, which keep frames and row",
       {negative},
       Joined({"403/1 405/0:100 paint", colour}),
       {{id::configList, "index=-1 rows= "},
        {id::frameTabs, "hidden enabled index=0 count=1"},
        {id::resolutionCombo, "text=\"300 dpi\""},
        {id::resolutionEdit, "text=\"300\" low=300 high=19200 "}}},
      {"from film straight to the feeder",
       {positive, feeder},
       Joined({"403/1 405/0:100", colour, colour, "402"}),
       {{id::modeCombo, "entries=\"全彩\",\"灰階\",\"黑白\" "}, {id::autoCropCheck, "hidden disabled"}}},
  };
  for (const SourceCase& one : cases) {
    SCOPED_TRACE(one.name);
    StartAfresh();
    Record() = {};
    Open();
    Person().Pick(id::unitCombo, "像素");
    const Profile before = Stored();
    for (const char* entry : one.road) {
      Forget();
      Person().Pick(id::sourceCombo, entry);
    }
    EXPECT_EQ(Told(), one.told);
    for (const auto& [control, part] : one.shows) EXPECT_TRUE(Shows(control, part)) << part;
    EXPECT_EQ(Changed(before), "");  // no change of source is saved
  }
}

TEST_F(Source, OfFilmTakesNoBlackAndWhiteAndItsOwnLimits) {
  Open();
  Person().Pick(id::modeCombo, "黑白");
  Person().Pick(id::sourceCombo, negative);
  EXPECT_TRUE(Shows(id::modeCombo, "index=-1"));
  EXPECT_EQ(Value("frameLeft"), "20");
  Person().Type(id::resolutionEdit, "140");
  Person().Leave();
  EXPECT_THAT(Lines(), testing::Contains(testing::HasSubstr("150 與 4800")));
  Person().Type(id::widthEdit, "6");
  Person().Leave();
  EXPECT_THAT(Lines(), testing::Contains(testing::HasSubstr("0.30 與 5.00")));
  Person().Pick(id::resolutionCombo, "300 dpi");
  ASSERT_TRUE(TheSession().Open());  // the host's call sets another lowest dpi
  Person().Type(id::resolutionEdit, "290");
  Person().Leave();
  EXPECT_THAT(Lines(), testing::Contains(testing::HasSubstr("300 與 4800")));
}

TEST_F(Source, OfTheFeederCentresAPage) {
  Open();
  Person().Pick(id::sourceCombo, feeder);
  Person().Pick(id::sizeCombo, "A5(5.83\"x8.27\")");
  EXPECT_EQ(Value("frameLeft"), "11");
  EXPECT_EQ(Value("width"), "8.27");
}

class RowClicks : public PageScenario {};

TEST_F(RowClicks, LoadRoundAndTell) {
  const std::string colour = Refresh(mode::colour);
  const std::string gray = Refresh(mode::gray);
  Open();
  Person().ClickRow(id::configList, 2);
  EXPECT_EQ(Told(), Joined({gray, "403[3 0]", gray, "409/1 402 405/0:200"}));
  Person().ClickRow(id::configList, 2);
  EXPECT_EQ(Told(), Joined({gray, "409/1 402 405/0:200"}));
  Host().Report(0, {}, FrameCommand{.index = 0, .action = frame_action::added});
  Host().Report(0, {}, FrameCommand{.index = 0, .action = frame_action::added});
  Record().jpegQuality = 1;
  Person().ClickBesideRows(id::configList);
  EXPECT_EQ(Told(), "403[3 1] 403[3 0]");
  EXPECT_EQ(Value("jpegQuality"), "1");
  EXPECT_TRUE(Shows(id::configList, "index=-1 "));

  Person().ClickRow(id::configList, 5);
  Record().width = 5.559;
  Person().Click(id::autoCropCheck);  // saves the row
  Person().ArrowTo(id::configList, 2);
  Person().ArrowTo(id::configList, 5);
  EXPECT_EQ(Value("width"), "5.559");
  Forget();
  Person().ClickRow(id::configList, 5);
  EXPECT_EQ(Told(), Joined({colour, "409/1 402 405/0:100 409"}));
  EXPECT_DOUBLE_EQ(Record().width, 5.55);
  EXPECT_EQ(Record().autoCrop, 1U);
  EXPECT_EQ(Stored()[customRow].substr(296, 2), "01");
}

// A host that adds a frame on each report can't keep the panel.
TEST_F(RowClicks, EndThoughTheHostAnswersWithFrames) {
  Open();
  OnEveryLine([&](const std::string& line) {
    if (line.find("frame 3") == std::string::npos) return;
    Host().Report(0, {}, FrameCommand{.index = 0, .action = frame_action::added});
  });
  Person().ClickBesideRows(id::configList);
  EXPECT_EQ(Told(), "403[3 0]");
}

}  // namespace
}  // namespace set32
