// What a profile at the limit of its size costs: the panel opens on it, changes a row and closes, in a process of its
// own whose memory is measured.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>

#include "platform/posix/posix_files.h"
#include "resources/ids.h"
#include "tests/support/memory_world.h"
#include "tests/support/scratch_folder.h"

namespace set32 {
namespace {

// Most bytes that a process held which did this and nothing else.
long PeakOf(const std::function<bool()>& work) {
  const pid_t child = fork();
  if (child == 0) _exit(work() ? 0 : 1);
  int status = -1;
  rusage usage = {};
  EXPECT_EQ(wait4(child, &status, 0, &usage), child);
  EXPECT_EQ(status, 0);
  return usage.ru_maxrss * 1024;
}

bool OpenChangeAndClose() {
  PosixFiles files;
  MemoryWorld world(files);
  Module module(world.platform);
  MemoryHost host(world);
  Dialog* const page = host.Open(module);
  if (page == nullptr) return false;
  world.screen.input.PickEntry(page->Get<Combo>(id::resolutionCombo), 4);
  host.End();
  return true;
}

TEST(LargeProfile, CostsThreeTimesItsSize) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "a sanitizer holds memory back";
#endif
  const ScratchFolder folder;
  std::filesystem::create_directory(folder.Path("temp"));
  std::string text = "[Config Items]\n";
  for (int i = 0; text.size() < 15'500'000; ++i) text += std::to_string(i) + "=0\n";
  folder.Write(MemoryWorld::profilePath, text);
  const auto size = static_cast<long>(text.size());
  text = {};
  const auto inFolder = [&](const char* inner) { return chdir(folder.Path(inner).c_str()) == 0; };
  const long without = PeakOf([&] { return inFolder("temp") && OpenChangeAndClose(); });
  const long with = PeakOf([&] { return inFolder(".") && OpenChangeAndClose(); });
  RecordProperty("bytes", static_cast<int>(with - without));
  EXPECT_LE(with - without, 3 * size) << (with - without) / 1024 << " KB for " << size / 1024;
}

}  // namespace
}  // namespace set32
