// What the person can reach and what the inspector shows of it.
#include <gmock/gmock.h>

#include "apps/driver/character_grid.h"
#include "apps/driver/not_possible.h"
#include "tests/support/scenario.h"

namespace set32 {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Inspection : public Scenario {
 protected:
  std::string WhyNot(const std::function<void()>& act) {
    try {
      act();
    } catch (const NotPossible& trouble) {
      return trouble.what();
    }
    return "it was possible";
  }
};

TEST_F(Inspection, ShowsEachKindByWhatItHolds) {
  Open();
  const struct {
    const char* what;
    const char* seen;
  } cases[] = {
      {"1054", "label hidden enabled text=\"紙張:\""},
      {"1033", "group visible enabled text=\"掃描配置\""},
      {"1207", "radio hidden enabled text=\"\" checked=0"},
      {"1006", "check visible enabled text=\"自動裁切\" checked=0"},
      {"1095", "tab visible enabled index=0 count=1"},
      {"148:1058", "frame visible enabled"},
      {"148:1060", "spin visible enabled position=0 low=100 high=0"},
      {"picture 1253", "SWIDTHU"},
      {"place 1034", "0 0 254 237"},
      {"title 102", "\"一般\""},
      {"tip 5005", "\"移除列印標記\""},
      {"focus", "none"},
      {"settings",
       "mode=1 resolutionId=4 dpi=100 useDefaults=1 brightness=0 contrast=0 bandGamma=0 gammaAll=1 gammaRed=1 "
       "gammaGreen=1 gammaBlue=1 name=\"自訂...\" hostWord=0 sizeId=4 width=8.5 height=11 rotated=0 units=0 "
       "customWidth=8.5 customHeight=11 frameLeft=0 frameTop=0 highBitDepth=0 autoCrop=0 descreen=0 descreenKind=0 "
       "jpegQuality=9 paperSource=0 singleFile=0 saturation=0 hue=0 sharpness=0 frameCommand=0"},
  };
  for (const auto& c : cases) EXPECT_EQ(Seen(c.what), c.seen) << c.what;
}

TEST_F(Inspection, CountsPixelsFromTheTopAndSumsTheWholePicture) {
  Host().Preview().MakeBlank({3, 2}, 100);
  EXPECT_EQ(Seen("sum"), "1037411053");  // CRC-32 of eighteen bytes 0xFF: the rows' padding is left out
  EXPECT_EQ(Seen("pixel 2 1"), "source=255,255,255 display=255,255,255");
  EXPECT_THAT(WhyNot([this] { Seen("pixel 3 0"); }), HasSubstr("no such pixel"));
  Host().Preview().TakeAway();
  EXPECT_THAT(WhyNot([this] { Seen("sum"); }), HasSubstr("no picture"));
}

TEST_F(Inspection, TellsHowFarTheLastMoveWent) {
  Open();
  EXPECT_EQ(Seen("moved 5002"), "0 0 0 0");
  TheSession().Resize({300, 500});
  TheSession().Resize({330, 540});
  EXPECT_EQ(Seen("moved 5002"), "0 40 0 40");
  EXPECT_EQ(Seen("moved 1009"), "0 0 0 40");
  TheSession().Resize({330, 540});  // moves nothing, so the last move stays the one before
  EXPECT_EQ(Seen("moved 5002"), "0 40 0 40");
}

TEST_F(Inspection, LetsThePersonReachOnlyWhatIsThere) {
  EXPECT_EQ(WhyNot([this] { Person().Click(id::refreshButton); }), "no page stands");
  Open();
  EXPECT_EQ(WhyNot([this] { Person().Focus(id::sizeLabel); }), "control 1037 takes no focus");
  EXPECT_EQ(WhyNot([this] { Person().Type(id::sizeCombo, "5"); }), "control 1251 isn't an edit");
  EXPECT_EQ(WhyNot([this] { Person().PressKey(Key::enter); }), "no control has the focus");
  EXPECT_EQ(WhyNot([this] { Person().MovePointer({-1, 0}); }), "the page doesn't reach there");
  Person().TurnTo(dialog::advanced);
  EXPECT_EQ(WhyNot([this] { Person().Click(id::refreshButton); }), "page 102 isn't in front");
  Person().Poke(id::grayButton);  // a program asks for no visibility
  EXPECT_EQ(Record().mode, mode::gray);
}

TEST_F(Inspection, HearsTheOtherOwnersOfTheRecord) {
  Open();
  Host().SetStoresUnits(true);
  Person().Pick(id::unitCombo, "公分");
  EXPECT_THAT(Heard(), ElementsAre("host 0x405 1 100"));
  EXPECT_EQ(Record().units, unit::centimetre);
  Record().frameCommand = 0;
  Host().SetField("frameCommand", "0x10");  // a word that leads nowhere is never followed
  EXPECT_TRUE(TheSession().Open());
  EXPECT_EQ(Record().frameCommand, 0U);
}

TEST(CharacterGrid, GivesWideCharactersTwoCells) {
  EXPECT_EQ(CellWidth("公分ab"), 6);
  CharacterGrid grid(8, 3);
  grid.Frame(0, 0, 7, 2, "公");
  grid.Put(1, 1, "公分公分", 6);
  grid.Put(2, 1, "x", 1);   // cuts a wide character in half
  grid.Put(6, 1, "分", 1);  // doesn't fit
  grid.Put(-1, 1, "ab", 2);
  EXPECT_THAT(grid.Lines(), ElementsAre("┌─ 公 ─┐", "b x分公│", "└──────┘"));
}

}  // namespace
}  // namespace set32
