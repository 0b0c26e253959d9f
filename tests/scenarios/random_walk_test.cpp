// The checks of random walks see what they are there to see, and a short walk holds.
#include <gmock/gmock.h>

#include "apps/driver/random_walk.h"
#include "apps/driver/walk_checks.h"
#include "tests/support/scenario.h"

namespace set32 {
namespace {

using testing::HasSubstr;
using testing::Optional;

class WalkCheckScenario : public Scenario {
 protected:
  std::optional<std::string> After(const std::function<void()>& harm) {
    WalkChecks checks;
    Session& session = TheSession();
    EXPECT_EQ(checks.Check(session, "open"), std::nullopt);
    harm();
    return checks.Check(session, "pick 1251 #0");
  }
};

TEST_F(WalkCheckScenario, SeesARecordThatThePanelCantHaveLeft) {
  Open();
  const ScanSettings whole = Record();
  const struct {
    const char* field;
    const char* value;
    const char* finding;
  } cases[] = {
      {"mode", "3", "mode is none"},
      {"mode", "2", "combo 1011 doesn't"},
      {"resolutionId", "1", "resolutionId is none"},
      {"resolutionId", "32", "combo 1210 doesn't"},
      {"sizeId", "8", "sizeId is none"},
      {"sizeId", "7", "combo 1251 doesn't"},
      {"units", "3", "units is none"},
      {"paperSource", "4", "paperSource is none"},
      {"width", "8.52", "edit 1252 shows \"8.50\""},
      {"height", "nan", "edit 1254 shows"},
  };
  for (const auto& c : cases) {
    EXPECT_THAT(After([&] { Host().SetField(c.field, c.value); }), Optional(HasSubstr(c.finding))) << c.field;
    Record() = whole;
  }
}

TEST_F(WalkCheckScenario, SeesAFactoryRowThatChanged) {
  Open();
  const auto rewrite = [this](const std::string& from, const std::string& to) {
    for (const std::string& line : TheSession().TheFiles().Lines(ModuleFile::profile)) {
      if (!line.starts_with("黑白相片=")) continue;
      std::string value = line.substr(line.find('=') + 1);
      value.replace(0, from.size(), to);
      return WriteKey(ModuleFile::profile, "Config Items", "黑白相片", value);
    }
    FAIL() << "no such row";
  };
  EXPECT_THAT(After([&] { rewrite("02000000", "01000000"); }), Optional(HasSubstr("factory row has changed")));
}

TEST_F(WalkCheckScenario, SeesANewSizeThatNobodyWasTold) {
  Open();
  EXPECT_THAT(After([this] {
                Person().Pick(id::sizeCombo, 0);
                Host().ForgetHeard();
              }),
              Optional(HasSubstr("wasn't told")));
}

// Whoever chooses a mode sees the values that it clears when the page shows them next, and not earlier.
TEST_F(WalkCheckScenario, SeesAnOldValueOnTheAdvancedPageButForAChoiceOfMode) {
  Open();
  Person().TurnTo(dialog::advanced);
  WalkChecks checks;
  ASSERT_EQ(checks.Check(TheSession(), "page advanced"), std::nullopt);
  Host().SetField("sharpness", "5");
  EXPECT_THAT(checks.Check(TheSession(), "leave"), Optional(HasSubstr("edit 148:1136 shows \"0\" for 5")));
  for (const char* act : {"pick 1011 #2", "leave"}) EXPECT_EQ(checks.Check(TheSession(), act), std::nullopt);
  EXPECT_THAT(checks.Check(TheSession(), "open"), Optional(HasSubstr("148:1136")));
}

TEST(RandomWalk, Holds) {
  using enum WalkActs::Face;
  for (const auto& [seed, face] : {std::pair{1U, sheet}, {2U, sheet}, {3U, inlinePage}, {4U, inlinePage}}) {
    std::string said;
    const SessionFolder folder;
    const WalkOptions walk{.seed = seed, .steps = 1000, .scriptPath = folder.Path() + "/walk.scn", .face = face};
    EXPECT_EQ(WalkAtRandom(walk, [&said](const std::string& line) { said += line + '\n'; }), 0)
        << said << "scan-host --random " << seed << " 1000 --face " << (face == sheet ? "sheet" : "inline")
        << " shows it again";
  }
}

}  // namespace
}  // namespace set32
