// A process that is killed in the middle of saving leaves a whole profile behind.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "platform/posix/posix_files.h"
#include "platform/profile_engine.h"
#include "profile/config_items.h"
#include "tests/support/scratch_folder.h"

namespace set32 {
namespace {

using std::chrono::steady_clock;

constexpr int saves = 1000;
constexpr int names = 20;

ScanConfigItem ItemOf(int number) {
  ScanConfigItem item{};
  item.settings.dpi = number;
  item.settings.jpegQuality = number;
  item.editable = item.deletable = 1;
  return item;
}

// Saves from `first` on, each number under one of the names, and tells each that is done.
[[noreturn]] void SaveAll(const std::string& path, int first, int tell) {
  PosixFiles files;
  ProfileEngine profiles(files);
  for (int number = first; number < saves; ++number) {
    StoreConfigItem(profiles, path, "name " + std::to_string(number % names), ItemOf(number));
    if (write(tell, &number, sizeof(number)) != sizeof(number)) break;
  }
  _exit(0);
}

TEST(KilledSave, LeavesWholeItemsAndLosesNoneThatWasDone) {
  const ScratchFolder folder;
  const std::string path = folder.Path("profile.ini");
  PosixFiles files;
  ProfileEngine profiles(files);
  int done = -1;
  int kills = 0;
  unsigned idle = 0;  // rounds in which the disk was too slow for a single save: the next one gets more time
  const auto end = steady_clock::now() + std::chrono::seconds(4);
  for (unsigned round = 0; done < saves - 1 && steady_clock::now() < end; ++round) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) SaveAll(path, done + 1, ends[1]);
    close(ends[1]);
    std::this_thread::sleep_for(std::chrono::microseconds((500 + round * 7919 % 20000) * (1 + idle)));
    kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    kills += WIFSIGNALED(status) ? 1 : 0;
    const int doneBefore = done;
    for (int number; read(ends[0], &number, sizeof(number)) == sizeof(number);) done = number;
    close(ends[0]);
    idle = done == doneBefore ? idle + 1 : 0;

    ConfigEntries entries(profiles, path);
    int stored = 0;
    for (ConfigEntry entry; entries.Next(entry); ++stored) {
      ScanConfigItem item{};
      ASSERT_EQ(CopyStoredItem(entry, item), sizeof(item)) << entry.name;
      const int number = item.settings.dpi;
      EXPECT_EQ(item.settings.jpegQuality, number);
      EXPECT_EQ(entry.name, "name " + std::to_string(number % names));
      // The last of this name that was told, or one that was done and not told any more.
      EXPECT_GT(number + names, done) << entry.name;
      EXPECT_LE(number, done + 1) << entry.name;
    }
    EXPECT_GE(stored, std::min(done + 1, names));
  }
  StoreConfigItem(profiles, path, "last", ItemOf(0));
  EXPECT_THAT(folder.Names(), testing::ElementsAre("profile.ini")) << "what killed writers left";
  EXPECT_GT(kills, 0);
  EXPECT_GT(done, 0);
  RecordProperty("kills", kills);
  RecordProperty("saves", done + 1);
}

}  // namespace
}  // namespace set32
