// What the driver of scripts does that a script doesn't show.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

#include "apps/driver/assembly.h"
#include "apps/driver/character_grid.h"
#include "apps/driver/session_folder.h"
#include "tests/support/script_run.h"

namespace set32 {
namespace {

TEST(CharacterGrid, GivesWideCharactersTwoCells) {
  EXPECT_EQ(CellWidth("公分ab"), 6);
  CharacterGrid grid(8, 3);
  grid.Frame(0, 0, 7, 2, "公");
  grid.Put(1, 1, "公分公分", 6);
  grid.Put(2, 1, "x", 1);   // cuts a wide character in half
  grid.Put(6, 1, "分", 1);  // doesn't fit
  grid.Put(-1, 1, "ab", 2);
  EXPECT_THAT(grid.Lines(), testing::ElementsAre("┌─ 公 ─┐", "b x分公│", "└──────┘"));
}

// A search ends by the clock, while a real network makes nobody advance the simulated one.
TEST(Driver, LetsRealTimePassBesideARealNetwork) {
  const SessionFolder folder;
  const auto outside = Assemble({.folder = folder.Path(), .realNetwork = true});
  const std::uint64_t before = outside->Clock().Now();
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_GT(outside->Clock().Now(), before);
}

// A script can say this as often as it is long; the stack can't.
TEST(Driver, RefusesStatementsTooDeepInsideOneAnother) {
  std::string script;
  for (int i = 0; i < 20000; ++i) script += "when host 0x404\nopen\nend\n";
  const ScriptRun run = RunScript(script + "open\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.complaints,
              testing::ElementsAre(testing::EndsWith(": statements stand too deep inside one another")));
}

}  // namespace
}  // namespace set32
