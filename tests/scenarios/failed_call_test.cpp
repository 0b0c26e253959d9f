// Memory that isn't to be had, as files that throw in its place: a call that fails leaves everything as it was, and
// the next one works; an event that fails keeps what is in the record by then.
#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <span>

#include "resources/ids.h"
#include "set32/ui_fix_setting.h"
#include "tests/support/memory_files.h"
#include "tests/support/memory_world.h"
#include "tests/support/stage.h"

namespace set32 {
namespace {

auto BytesOf(const ScanSettings& settings) {
  return std::as_bytes(std::span(&settings, 1));
}

struct ScarceFiles : MemoryFiles {
  int looks = 0;
  int failAt = 0;  // the look that fails; 0: none
  std::unique_ptr<File> OpenToRead(std::string_view path) override {
    if (++looks == failAt) throw std::bad_alloc();
    return MemoryFiles::OpenToRead(path);
  }
  void Fail(int look) { looks = 0, failAt = look; }
};

struct Host {
  explicit Host(const char* face) {
    files.content[MemoryWorld::modulePath] = "[RunTime]\nDriverType=0\n";
    files.content[MemoryWorld::optionsPath] = std::string("[Option]\nUIFace=") + face;
    InstallPlatform(&world.platform);
  }
  ~Host() { InstallPlatform(nullptr); }
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  Dialog* Call(ScanSettings& settings) {
    const DeviceLimits limits{7, 0x7FFE, 4800, 75};
    const PanelRect place{0, 0, 300, 430};
    return world.screen.windows.DialogOf(
        uiFixSetting(window, window, &limits, &settings, nullptr, 0, 0, 128, 36, &place, nullptr));
  }
  void PickResolution(int entry) { world.screen.input.PickEntry(page->Get<Combo>(id::resolutionCombo), entry); }

  ScarceFiles files;
  MemoryWorld world{files};
  SilentHost handler;
  WindowHandle window = world.screen.input.MakeHostWindow({600, 500}, handler);
  ScanSettings record = MakeSettings(world.system, {});
  Dialog* page = nullptr;
};

struct FailedCall : testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(BothFaces, FailedCall, testing::Values("0", "1"));

TEST_P(FailedCall, LeavesNothingBehind) {
  int failed = 0;
  for (int look = 1;; ++look) {
    SCOPED_TRACE(look);
    Host host(GetParam());
    const ScanSettings given = host.record;
    host.files.Fail(look);
    host.page = host.Call(host.record);
    if (host.files.looks < look) break;
    if (host.page == nullptr) {
      ++failed;
      EXPECT_TRUE(std::ranges::equal(BytesOf(given), BytesOf(host.record)));
      EXPECT_TRUE(host.world.screen.windows.Standing().empty());
      host.page = host.Call(host.record);
    }
    ASSERT_NE(host.page, nullptr);
    host.PickResolution(2);
    EXPECT_EQ(host.record.resolutionId, host.page->Get<Combo>(id::resolutionCombo).Data(2));
  }
  EXPECT_GT(failed, 5);
}

// Bound to what it had before: the host takes its new record for one that nobody has.
TEST_P(FailedCall, LeavesAStandingPanelAsItWas) {
  Host host(GetParam());
  ASSERT_NE(host.page = host.Call(host.record), nullptr);
  ScanSettings other = host.record;
  host.files.Fail(1);
  EXPECT_EQ(host.Call(other), nullptr);
  ASSERT_TRUE(host.page->IsAlive());
  host.PickResolution(2);
  EXPECT_NE(host.record.resolutionId, other.resolutionId);
  EXPECT_EQ(host.Call(other), host.page);
  host.PickResolution(3);
  EXPECT_EQ(other.resolutionId, host.page->Get<Combo>(id::resolutionCombo).Data(3));
}

TEST(FailedEvent, KeepsWhatIsInTheRecordByThen) {
  Host host("1");
  ASSERT_NE(host.page = host.Call(host.record), nullptr);
  host.files.Fail(1);
  host.PickResolution(2);
  ASSERT_GE(host.files.looks, 1);
  EXPECT_EQ(host.record.resolutionId, host.page->Get<Combo>(id::resolutionCombo).Data(2));
  host.PickResolution(3);
  EXPECT_EQ(host.record.resolutionId, host.page->Get<Combo>(id::resolutionCombo).Data(3));
}

}  // namespace
}  // namespace set32
