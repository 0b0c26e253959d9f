// What the portable suites can't see: locks and profiles between processes, permissions, folders that are a trap.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <functional>
#include <string>
#include <thread>

#include "platform/posix/posix_files.h"
#include "platform/posix/posix_paths.h"
#include "platform/profile_engine.h"
#include "tests/support/scratch_folder.h"

namespace set32 {
namespace {

// Runs the work in a process of its own, which ends with 0 when it succeeds.
pid_t InProcess(const std::function<bool()>& work) {
  const pid_t child = fork();
  if (child == 0) _exit(work() ? 0 : 1);
  return child;
}

bool Succeeded(pid_t child) {
  int status = -1;
  return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

mode_t ModeOf(const std::string& path) {
  struct stat status = {};
  return lstat(path.c_str(), &status) == 0 ? status.st_mode & 0777 : 0;
}

class PosixFilesTest : public testing::Test {
 protected:
  const ScratchFolder folder;
  const std::string path = folder.Path("p.ini");
  PosixFiles files;
  ProfileEngine engine{files};
};

TEST_F(PosixFilesTest, WritersOfDifferentKeysLoseNothing) {
  const auto writer = [&](char letter) {
    return InProcess([&, letter] {
      for (int i = 0; i < 60; ++i) {
        if (!engine.WriteString("s", (letter + std::to_string(i)).c_str(), "value", path.c_str())) return false;
      }
      return true;
    });
  };
  const pid_t first = writer('a');
  const pid_t second = writer('b');
  EXPECT_TRUE(Succeeded(first));
  EXPECT_TRUE(Succeeded(second));
  const std::string content = folder.Read("p.ini");
  EXPECT_EQ(std::count(content.begin(), content.end(), '\n'), 121);
  for (const std::string key : {"a0=", "a59=", "b0=", "b59="}) EXPECT_NE(content.find(key), std::string::npos) << key;
}

TEST_F(PosixFilesTest, AReaderNeverSeesHalfAFile) {
  const auto text = [](char letter, std::size_t size) {
    const std::string value(size, letter);
    return "[s]\nfirst=" + value + "\nlast=" + value + "\n";
  };
  ASSERT_TRUE(engine.ReplaceFile(path.c_str(), text('x', 10)));
  const pid_t writer = InProcess([&] {
    for (std::size_t i = 0; i < 300; ++i) {
      if (!engine.ReplaceFile(path.c_str(), text(static_cast<char>('a' + i % 26), 1 + i * 97 % 20000))) return false;
    }
    return true;
  });
  int status = 0;
  int reads = 0;
  std::string out(60000, '\0');
  while (waitpid(writer, &status, WNOHANG) == 0) {
    const std::size_t count = engine.GetSection("s", out, path.c_str());
    const std::string_view lines(out.data(), count);
    const std::size_t middle = lines.find('\0');
    ASSERT_EQ(lines.substr(0, 6), "first=");
    ASSERT_EQ(lines.substr(middle + 1, 5), "last=");
    ASSERT_EQ(lines.substr(6, middle - 6), lines.substr(middle + 6, count - middle - 7));
    ++reads;
  }
  EXPECT_EQ(status, 0);
  EXPECT_GT(reads, 10);
}

TEST_F(PosixFilesTest, LockIsWaitedForWithABound) {
  auto held = files.Lock(path, 0);
  ASSERT_TRUE(held);
  EXPECT_FALSE(files.Lock(path, 30));
  EXPECT_TRUE(Succeeded(InProcess([&] { return !files.Lock(path, 0); })));
  EXPECT_TRUE(files.Lock(folder.Path("other.ini"), 0));
  std::thread release([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    held.reset();
  });
  EXPECT_TRUE(files.Lock(path, 5000));
  release.join();
}

TEST_F(PosixFilesTest, ReadsOnlyRegularFiles) {
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(files.OpenToRead(folder.Path("pipe")));
  EXPECT_FALSE(files.OpenToRead(folder.Path("")));
  EXPECT_FALSE(files.OpenToRead(folder.Path("missing")));
}

TEST_F(PosixFilesTest, ReplacementKeepsPermissions) {
  folder.Write("p.ini", "[s]\n");
  ASSERT_EQ(chmod(path.c_str(), 0664), 0);
  ASSERT_TRUE(engine.WriteString("s", "k", "1", path.c_str()));
  EXPECT_EQ(ModeOf(path), 0664U);
  ASSERT_TRUE(engine.WriteString("s", "k", "1", folder.Path("new.ini").c_str()));
  EXPECT_EQ(ModeOf(folder.Path("new.ini")), 0600U);
}

TEST_F(PosixFilesTest, AReadOnlyFileStays) {
  folder.Write("p.ini", "[s]\n");
  ASSERT_EQ(chmod(path.c_str(), 0444), 0);
  EXPECT_FALSE(engine.WriteString("s", "k", "1", path.c_str()));
  EXPECT_FALSE(engine.ReplaceFile(path.c_str(), std::string_view("x")));
  EXPECT_EQ(folder.Read("p.ini"), "[s]\n");
}

TEST_F(PosixFilesTest, ALinkStaysAndItsTargetIsReplaced) {
  const ScratchFolder elsewhere;
  const std::string target = elsewhere.Write("kept.ini", "[s]\n");
  ASSERT_EQ(symlink(target.c_str(), path.c_str()), 0);
  EXPECT_TRUE(engine.WriteString("s", "k", "1", path.c_str()));
  EXPECT_EQ(elsewhere.Read("kept.ini"), "[s]\nk=1\n");
  EXPECT_TRUE(std::filesystem::is_symlink(path));
  EXPECT_THAT(folder.Names(), testing::ElementsAre("p.ini"));
  EXPECT_THAT(elsewhere.Names(), testing::ElementsAre("kept.ini"));

  // Who is asked through the link and who knows the target wait for each other.
  const auto held = files.Lock(target, 0);
  EXPECT_FALSE(ProfileEngine(files, {.wait = 0}).WriteString("s", "k", "2", path.c_str()));

  std::filesystem::remove(target);
  EXPECT_EQ(files.PresenceOf(path), Presence::unknown);
  EXPECT_FALSE(engine.WriteString("s", "k", "1", path.c_str())) << "a link that leads nowhere";
  if (geteuid() == 0) {
    elsewhere.Write("kept.ini", "[s]\n");
    ASSERT_EQ(chown(target.c_str(), 1, 1), 0);
    EXPECT_FALSE(engine.WriteString("s", "k", "1", path.c_str())) << "a link to another user's file";
  }
}

TEST(PosixPathsTest, ScratchFolderIsTheUsersOwn) {
  const ScratchFolder folder;
  PosixPaths paths(folder.Path("."));
  const std::string own = folder.Path("./set32-" + std::to_string(geteuid()));
  EXPECT_EQ(paths.TemporaryFolder(), own + "/");
  EXPECT_EQ(ModeOf(own), 0700U);
  ASSERT_EQ(chmod(own.c_str(), 0777), 0);
  EXPECT_EQ(paths.TemporaryFolder(), own + "/");
  EXPECT_EQ(ModeOf(own), 0700U);

  // Somebody else could have laid a link or a file there first.
  ASSERT_EQ(rmdir(own.c_str()), 0);
  ASSERT_EQ(mkdir(folder.Path("elsewhere").c_str(), 0700), 0);
  ASSERT_EQ(symlink(folder.Path("elsewhere").c_str(), own.c_str()), 0);
  EXPECT_EQ(paths.TemporaryFolder(), "");
  ASSERT_EQ(unlink(own.c_str()), 0);
  folder.Write("set32-" + std::to_string(geteuid()), "");
  EXPECT_EQ(paths.TemporaryFolder(), "");
  EXPECT_EQ(PosixPaths(folder.Path("missing")).TemporaryFolder(), "");
}

TEST(PosixPathsTest, ModuleFileIsTheProgramThatHoldsIt) {
  EXPECT_EQ(std::filesystem::path(PosixPaths().ModuleFile()), std::filesystem::read_symlink("/proc/self/exe"));
}

}  // namespace
}  // namespace set32
