// What a search shows while it asks, and what the older value takes along.
#include <gmock/gmock.h>

#include "boundary/module_state.h"
#include "resources/strings.h"
#include "tests/support/memory_files.h"
#include "tests/support/memory_world.h"
#include "tests/support/scenario.h"

namespace set32 {
namespace {

class Scanners : public Scenario {
 protected:
  // What the next searches say, and how many requests have been sent when they stand.
  void NoteSearches(int count) {
    for (int i = 0; i < count; ++i) {
      WhenDialog(dialog::searching, [this] {
        const auto& label = TheSession().TheScene().Require(dialog::searching).Get<Label>(id120::text);
        searches_.push_back(label.Text() + " after " + std::to_string(Network().Requests().size()));
      });
    }
  }
  SimulatedNetwork& Network() { return TheSession().Outside().Network(); }
  bool Holds(const char* key) {
    std::uint32_t result = 0;
    return TheSession().Outside().TheRegistry().CurrentUser()->Open(key, RegistryAccess::read, result) != nullptr;
  }

  std::vector<std::string> searches_;
};

TEST_F(Scanners, SearchesStandBeforeTheyAsk) {
  Open();
  NoteSearches(2);
  Person().Click(id::refreshButton);
  EXPECT_THAT(searches_, testing::ElementsAre(std::string(TextOf(text::searchingLocal)) + " after 2",
                                              testing::StartsWith("正在本端網路中搜尋")));
  EXPECT_EQ(Network().Requests().size(), 4U);
  EXPECT_EQ(Network().Running(), 0);
  EXPECT_EQ(TheSession().TheScene().Find(dialog::searching), nullptr);
}

TEST_F(Scanners, OlderValueGoesWithItsKeysAlone) {
  auto& registry = TheSession().Outside().TheRegistry();
  ASSERT_TRUE(registry.SetString("Software/Norvane\\K700", "IPAddress", "10.0.0.7"));
  ASSERT_TRUE(registry.SetString("Software/Norvane/Other/Deep", "x", "y"));
  ASSERT_TRUE(registry.SetString("Software/Neighbour", "x", "y"));
  Open();
  EXPECT_FALSE(Holds("Software/Norvane"));
  EXPECT_TRUE(Holds("Software/Neighbour"));
}

// The file would be one of wherever the process stands.
TEST(ModuleWithoutAFolder, HasNoSettings) {
  MemoryFiles files;
  MemoryWorld world(files);
  ModuleState state(world.platform);
  EXPECT_EQ(state.ModuleSettingsPath(), "");
  state.moduleDir = "module/";
  EXPECT_EQ(state.ModuleSettingsPath(), MemoryWorld::modulePath);
}

}  // namespace
}  // namespace set32
