// Whatever single file operation fails while the panel works, the profile is the old one or the new one, whole; and
// what a change costs doesn't grow with the list.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "platform/letter_case.h"
#include "profile/config_store.h"
#include "tests/support/faulty_files.h"
#include "tests/support/memory_files.h"
#include "tests/support/profile_panel.h"

namespace set32 {
namespace {

std::string ProfileOf(const MemoryFiles& disk) {
  const auto found = disk.content.find(MemoryWorld::profilePath);
  return found != disk.content.end() ? found->second : std::string();
}

TEST(StoreReliability, LeavesTheOldProfileOrTheNewOneWhenAnyFileOperationFails) {
  MemoryFiles prepared;
  {
    ProfilePanel panel(prepared);
    ASSERT_TRUE(panel.Open());
    panel.SaveAs("mine");
  }
  for (const ProfileWork& one : ProfileWorks()) {
    SCOPED_TRACE(one.name);
    std::set<std::string> wholes;  // what the file may hold; absent counts as empty
    std::string before;
    // First without a failure.
    for (int operation = -1;; ++operation) {
      MemoryFiles disk;
      if (one.opensFirst) disk.content = prepared.content;
      FaultyFiles files(disk);
      ProfilePanel panel(files);
      if (one.opensFirst) {
        ASSERT_TRUE(panel.Open());
      }
      before = ProfileOf(disk);
      if (operation < 0) {
        wholes.insert(before);
        one.act(panel);
        wholes.insert(ProfileOf(disk));
        EXPECT_EQ(wholes.size(), 2U) << "nothing was written";
        continue;
      }
      files.FailAt(operation);
      one.act(panel);
      files.FailAt(-1);
      const std::string now = ProfileOf(disk);
      if (one.writes == 1) {
        EXPECT_TRUE(wholes.contains(now)) << "operation " << operation << "\n" << now;
      } else {
        // Two writes, each whole: every line is of the old or of the new file.
        wholes.insert(now);
        EXPECT_LE(wholes.size(), 4U);
        EXPECT_EQ(std::count(now.begin(), now.end(), '\n'), std::count(before.begin(), before.end(), '\n'));
      }
      ConfigEntry first;
      EXPECT_EQ(ConfigEntries(panel.world.profiles, MemoryWorld::profilePath).Next(first), !now.empty());
      if (!files.HasFailed()) break;
      ASSERT_LT(operation, 2000);
    }
  }
}

// A page that opens finds out whether a profile is there; whatever fails then, the one that is stays.
TEST(StoreReliability, OpensOnAStandingProfileWithoutReplacingIt) {
  const std::string own = "[Config Items]\nmine=00\n";
  for (int operation = 0;; ++operation) {
    MemoryFiles disk;
    disk.content[MemoryWorld::profilePath] = own;
    FaultyFiles files(disk);
    files.FailAt(operation);
    ProfilePanel panel(files);
    panel.Open();
    EXPECT_EQ(ProfileOf(disk), own) << "operation " << operation;
    if (!files.HasFailed()) break;
  }
}

class FullDisk : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  std::unique_ptr<File> OpenToWrite(std::string_view path) override {
    return isFull ? nullptr : ForwardingFiles::OpenToWrite(path);
  }
  bool isFull = false;
};

// A full disk takes no name; the row that has it already holds older settings and stays what it is.
TEST(StoreReliability, DoesNotShowAsSavedWhatCouldNotBeStored) {
  MemoryFiles disk;
  FullDisk files(disk);
  ProfilePanel panel(files);
  ASSERT_TRUE(panel.Open());
  panel.SaveAs("mine");
  auto& rows = panel.page->Get<List>(id::configList);
  panel.Hands().ArrowTo(rows, 5);
  panel.host.record->jpegQuality = 1;
  const std::string before = ProfileOf(disk);
  files.isFull = true;
  panel.SaveAs("mine");
  EXPECT_EQ(ProfileOf(disk), before);
  EXPECT_TRUE(rows.StateOf(5).selected);
  EXPECT_EQ(panel.host.record->jpegQuality, 1U);
}

// What a file repeats a hundred thousand times must not be gone through as often as it says so.
TEST(StoreReliability, GoesOnceThroughWhatAFileRepeats) {
  MemoryFiles disk;
  std::string& text = disk.content[MemoryWorld::profilePath];
  text = "[Config Items]\nrow=' " + std::string(100'000, '0') + "'\nnone=" + std::string(100'001, '0') + "x\n";
  for (int i = 0; i < 50'000; ++i) text += i % 2 == 0 ? "row=\nnone=\n" : " ROW =11\nNone=11\n";
  text.replace(text.find('\'') + 1, 1, "A");
  MemoryWorld world(disk);
  ConfigEntries entries(world.profiles, MemoryWorld::profilePath);
  int count = 0;
  for (ConfigEntry entry; entries.Next(entry); ++count) {
    const bool isRow = EqualFolded(entry.name, "row");
    ASSERT_EQ(entry.item.size(), isRow ? sizeof(ScanConfigItem) : 0) << count;
    ASSERT_TRUE(!isRow || entry.item[0] == 0xA0) << count;
  }
  EXPECT_EQ(count, 100'002);
}

// Counts what goes through.
class CountingFiles : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  std::unique_ptr<File> OpenToRead(std::string_view path) override {
    ++reads;
    return ForwardingFiles::OpenToRead(path);
  }
  bool Replace(std::string_view from, std::string_view to) override {
    ++writes;
    return ForwardingFiles::Replace(from, to);
  }
  int reads = 0;
  int writes = 0;
};

TEST(StoreReliability, AChangeCostsOneWriteAndAsManyReadsWhateverTheNumberOfRows) {
  MemoryFiles disk;
  CountingFiles files(disk);
  ProfilePanel panel(files);
  ASSERT_TRUE(panel.Open());
  int reads = 0;
  for (int rows = 7; rows <= CConfigStore::mostRows; ++rows) {
    panel.SaveAs("row " + std::to_string(rows));
    auto& resolutions = panel.page->Get<Combo>(id::resolutionCombo);
    files.reads = files.writes = 0;
    panel.Hands().PickEntry(resolutions, rows % 2 + 3);
    EXPECT_EQ(files.writes, 1);
    if (reads == 0) reads = files.reads;
    EXPECT_EQ(files.reads, reads) << rows;
  }
  EXPECT_LE(reads, 3);
  EXPECT_EQ(panel.page->Get<List>(id::configList).Count(), CConfigStore::mostRows);
}

}  // namespace
}  // namespace set32
