// What the Win32 system's files alone have: programs that hold a file for a moment, and folders that can't be
// written.
#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <future>
#include <string>
#include <vector>

#include "platform/profile_engine.h"
#include "platform/win32/win32_files.h"
#include "platform/win32/windows_api.h"
#include "tests/support/scratch_folder.h"

namespace set32 {
namespace {

HANDLE HoldAlone(const std::string& path) {
  return CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
}

struct FilesOfTheSystem : public testing::Test {
  // Does it while another program has the file to itself, for so many milliseconds.
  bool WhileHeld(DWORD milliseconds, const std::function<bool()>& act) const {
    const HANDLE held = HoldAlone(path);
    EXPECT_NE(held, INVALID_HANDLE_VALUE);
    const auto release = std::async(std::launch::async, [=] {
      Sleep(milliseconds);
      CloseHandle(held);
    });
    return act();
  }

  ScratchFolder folder;
  std::string path = folder.Write("one.ini", "[a]\r\nb=1\r\n");
  Win32Files files;
};

TEST_F(FilesOfTheSystem, AFileHeldForAMomentIsWaitedFor) {
  EXPECT_TRUE(WhileHeld(50, [&] { return files.OpenToRead(path) != nullptr; }));
  EXPECT_TRUE(WhileHeld(50, [&] { return ProfileEngine(files).WriteString("a", "b", "2", path.c_str()); }));
  EXPECT_TRUE(WhileHeld(50, [&] { return files.Replace(folder.Write("other", "[a]\r\nb=3\r\n"), path); }));
  EXPECT_EQ(folder.Read("one.ini"), "[a]\r\nb=3\r\n");
}

TEST_F(FilesOfTheSystem, AFileHeldOnIsLeftAsItIs) {
  EXPECT_FALSE(WhileHeld(1500, [&] { return files.OpenToRead(path) != nullptr; }));
  EXPECT_FALSE(WhileHeld(1500, [&] { return ProfileEngine(files).WriteString("a", "b", "2", path.c_str()); }));
  EXPECT_EQ(folder.Read("one.ini"), "[a]\r\nb=1\r\n");
  EXPECT_THAT(folder.Names(), testing::ElementsAre("one.ini"));
}

// Folders of a user's may lie deeper than the older limit on paths.
TEST_F(FilesOfTheSystem, WorkOnPathsOfAnyLength) {
  std::vector<std::wstring> made;
  std::string deep = folder.Path("");
  while (deep.size() < 300) {
    deep += std::string(60, 'd');
    made.push_back(L"\\\\?\\" + std::filesystem::absolute(deep).make_preferred().wstring());
    ASSERT_NE(CreateDirectoryW(made.back().c_str(), nullptr), FALSE) << deep;
    deep += '\\';
  }
  const std::string file = deep + "p.ini";
  ProfileEngine engine(files);
  EXPECT_EQ(files.PresenceOf(file), Presence::absent);
  EXPECT_TRUE(engine.CreateIfAbsent(file.c_str(), std::string_view("[a]\r\nb=1\r\n")));
  EXPECT_TRUE(engine.WriteString("a", "b", "2", file.c_str()));
  EXPECT_EQ(engine.GetInteger("a", "b", 0, file.c_str()), 2U);
  EXPECT_THAT(files.EndingsBeside(file), testing::ElementsAre(".lock"));
  EXPECT_TRUE(files.Remove(file));
  EXPECT_TRUE(files.Remove(file + ".lock"));
  for (; !made.empty(); made.pop_back()) EXPECT_NE(RemoveDirectoryW(made.back().c_str()), FALSE);
}

TEST_F(FilesOfTheSystem, AReadOnlyFileStays) {
  ASSERT_NE(SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY), FALSE);
  EXPECT_FALSE(ProfileEngine(files).WriteString("a", "b", "2", path.c_str()));
  EXPECT_EQ(folder.Read("one.ini"), "[a]\r\nb=1\r\n");
  SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(FilesOfTheSystem, NobodyWaitsWhereNothingCanBeWritten) {
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(files.Lock(folder.Path("missing\\one.ini"), 60000), nullptr);
  EXPECT_EQ(files.Lock(folder.Path("one.ini\\one.ini"), 60000), nullptr);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
  const auto held = files.Lock(path, 0);
  EXPECT_NE(held, nullptr);
  auto second = std::async(std::launch::async, [&] { return files.Lock(path, 30) == nullptr; });
  EXPECT_TRUE(second.get());
}

}  // namespace
}  // namespace set32
