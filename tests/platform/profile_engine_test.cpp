// The contract of the profile calls, on every implementation there is; then what the engine alone promises: all other
// bytes of a file stay, and a write that breaks anywhere leaves the old file.
#include "platform/profile_engine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <future>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "tests/support/faulty_files.h"
#include "tests/support/memory_files.h"
#include "tests/support/profile_peer.h"
#include "tests/support/scratch_folder.h"

namespace set32 {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;
using namespace std::string_literals;

class ProfileContract : public testing::TestWithParam<ProfilePeer> {
 protected:
  std::string Get(const char* section, const char* key, const char* fallback = "none", std::size_t size = 600) {
    std::string out(size, '?');
    out.resize(calls_->GetString(section, key, fallback, out, path_.c_str()));
    return out;
  }

  std::string Section(const char* section, std::size_t size = 600) {
    std::string out(size, '?');
    const std::size_t count = calls_->GetSection(section, out, path_.c_str());
    EXPECT_EQ(out[count], '\0');
    out.resize(count);
    return out;
  }

  static bool IsEngine() { return GetParam().name == "Engine"s; }

  ScratchFolder folder_;
  std::string path_ = folder_.Path("p.ini");
  std::unique_ptr<ProfileCalls> calls_ = GetParam().make();
};

INSTANTIATE_TEST_SUITE_P(Peers, ProfileContract, testing::ValuesIn(ProfilePeers()),
                         [](const auto& peer) { return peer.param.name; });

TEST_P(ProfileContract, ReadsTheFirstMatchingKeyOfItsSection) {
  folder_.Write("p.ini",
                "stray=outside\r\n[One]\r\n  Key =  a b \r\nkey=later\r\n;hidden=1\r\nempty=\r\nbare\r\n"
                "equals=a=b=c\r\n[no header\r\nlast=end\r\n[TWO] trailing\nkey=two\n'q'='x'\n double=\"y "
                "\"\nopen='z\n[one]\nnew=1");
  const struct {
    const char* section;
    const char* key;
    const char* value;
  } cases[] = {
      {"One", "Key", "a b"},      {"ONE", " kEY ", "a b"},    {"One", "empty", ""},   {"One", "bare", "none"},
      {"One", ";hidden", "none"}, {"One", "equals", "a=b=c"}, {"two", "key", "two"},  {"two", "'q'", "x"},
      {"two", "double", "y "},    {"two", "open", "'z"},      {"One", "new", "none"}, {"One", "stray", "none"},
      {"One", "last", "end"},     {"Three", "key", "none"},   {"One", "Ke", "none"},  {"One", "Keyy", "none"},
  };
  for (const auto& c : cases) {
    // Some systems' own calls find a key behind a comment's mark.
    if (!IsEngine() && c.key[0] == ';') continue;
    EXPECT_EQ(Get(c.section, c.key), c.value) << c.section << '/' << c.key;
  }
}

TEST_P(ProfileContract, GivesTheFallbackWithoutAFile) {
  EXPECT_EQ(Get("s", "k"), "none");
  EXPECT_EQ(Get("s", "k", nullptr), "");
  EXPECT_EQ(calls_->GetInteger("s", "k", -3, path_.c_str()), 0xFFFFFFFDU);
  EXPECT_EQ(Section("s"), "");
}

TEST_P(ProfileContract, CutsAValueToItsBuffer) {
  folder_.Write("p.ini", "[s]\r\nk=abcdef\r\n");
  EXPECT_EQ(Get("s", "k", "none", 7), "abcdef");
  EXPECT_EQ(Get("s", "k", "none", 4), "abc");
  EXPECT_EQ(Get("s", "k", "none", 1), "");
  EXPECT_EQ(Get("s", "x", "fallback", 5), "fall");
}

TEST_P(ProfileContract, ReadsIntegers) {
  const struct {
    const char* value;
    std::uint32_t number;
  } cases[] = {{"42", 42}, {"-1", 0xFFFFFFFF}, {"+7", 7},         {" 8 ", 8}, {"9x", 9}, {"x9", 0},
               {"-", 0},   {"0x1F", 31},       {"4294967297", 1}, {"'5'", 5}, {"", 77},  {"''", 77}};
  for (const auto& c : cases) {
    folder_.Write("p.ini", "[s]\nk="s + c.value + "\n");
    EXPECT_EQ(calls_->GetInteger("s", "k", 77, path_.c_str()), c.number) << c.value;
  }
}

TEST_P(ProfileContract, ListsTheLinesOfASection) {
  folder_.Write("p.ini", "[s]\r\n b = 1 \r\n\r\n;c=2\r\na='x'\r\nbare\r\nb=3\r\n[t]\r\nd=4\r\n");
  const std::string all = "b=1\0a='x'\0bare\0b=3\0"s;
  EXPECT_EQ(Section("S"), all);
  // Some systems' own calls want room for one byte more.
  EXPECT_EQ(Section("s", all.size() + (IsEngine() ? 1 : 2)), all);
  EXPECT_EQ(Section("s", all.size()), all.substr(0, all.size() - 2));
  EXPECT_EQ(Section("s", 6), "b=1\0"s);
  EXPECT_EQ(Section("u"), "");
}

TEST_P(ProfileContract, WritesReadBackAtOnce) {
  ASSERT_TRUE(calls_->WriteString("s", "b", "1", path_.c_str()));
  ASSERT_TRUE(calls_->WriteString("s", "a", "2", path_.c_str()));
  ASSERT_TRUE(calls_->WriteString("t", "c", std::string(5000, 'D').c_str(), path_.c_str()));
  ASSERT_TRUE(calls_->WriteString("S", "B", "3", path_.c_str()));
  EXPECT_EQ(Section("s"), "b=3\0a=2\0"s);
  EXPECT_EQ(Get("t", "c", "", 6000), std::string(5000, 'D'));
  ASSERT_TRUE(calls_->WriteString("s", "b", "", path_.c_str()));
  EXPECT_EQ(Section("s"), "b=\0a=2\0"s);
  ASSERT_TRUE(calls_->WriteString("s", "b", nullptr, path_.c_str()));
  EXPECT_EQ(Section("s"), "a=2\0"s);
  ASSERT_TRUE(calls_->WriteString("s", nullptr, nullptr, path_.c_str()));
  EXPECT_EQ(Section("s"), "");
  EXPECT_EQ(Get("t", "c", "", 3), "DD");
}

// The engine alone.

struct WriteCase {
  std::optional<std::string> before;
  const char* section;
  const char* key;
  const char* value;
  std::optional<std::string> after;
};

TEST(ProfileEngineWrite, TouchesNothingButItsLine) {
  const WriteCase cases[] = {
      {std::nullopt, "s", "k", "v", "[s]\r\nk=v\r\n"},
      {"", "s", "k", "v", "[s]\r\nk=v\r\n"},
      {"[s]\n", "s", "k", "v", "[s]\nk=v\n"},
      {"[s]", "s", "k", "v", "[s]\r\nk=v\r\n"},
      {"\xEF\xBB\xBF[s]\nk=1", "s", "k", "v", "\xEF\xBB\xBF[s]\nk=v"},
      {"\xEF\xBB\xBF", "s", "k", "v", "\xEF\xBB\xBF[s]\r\nk=v\r\n"},
      {"; top\n\n[ S ] x\n K =  old \r\nz=1\n", "s", "k", "v", "; top\n\n[ S ] x\n K =v\r\nz=1\n"},
      {"[s]\nk=1\nk=2\n", "s", "k", "v", "[s]\nk=v\nk=2\n"},
      {"[s]\na=1\n;c\n\n \n[t]\nb=2\n", "s", "k", "v", "[s]\na=1\n;c\nk=v\n\n \n[t]\nb=2\n"},
      {"[s]\nk\n", "s", "k", "v", "[s]\nk\nk=v\n"},
      {"[t]\r\nb=2", "s", "k", "v", "[t]\r\nb=2\r\n[s]\r\nk=v\r\n"},
      {"[s]\na\0b=1\n\xFF\xFE\n"s, "s", "k", "v", "[s]\na\0b=1\n\xFF\xFE\nk=v\n"s},
      {"[s]\nk=1\n;k=0\nz=2\n", "s", "k", nullptr, "[s]\n;k=0\nz=2\n"},
      {"[a]\nx=1\n[s]\nk=1\n\n[t]\ny=2\n", "s", nullptr, nullptr, "[a]\nx=1\n[t]\ny=2\n"},
      {"[s]\nk=1\n", "t", nullptr, nullptr, "[s]\nk=1\n"},
      {std::nullopt, "s", "k", nullptr, std::nullopt},
  };
  for (const WriteCase& c : cases) {
    const ScratchFolder folder;
    ProfileEngine engine(SystemFiles());
    if (c.before) folder.Write("p.ini", *c.before);
    EXPECT_TRUE(engine.WriteString(c.section, c.key, c.value, folder.Path("p.ini").c_str()));
    EXPECT_EQ(SystemFiles().PresenceOf(folder.Path("p.ini")), c.after ? Presence::present : Presence::absent);
    EXPECT_EQ(folder.Read("p.ini"), c.after.value_or("")) << c.before.value_or("no file");
  }
}

TEST(ProfileEngineWrite, RefusesWhatCouldNotBeReadBack) {
  const ScratchFolder folder;
  ProfileEngine engine(SystemFiles());
  const std::string before = "[s]\nk=1\n";
  const std::string path = folder.Write("p.ini", before);
  const std::array<const char*, 3> cases[] = {
      {"s", "k", "a\nb"}, {"s", "k", "a\rb"}, {"s]", "k", "v"},  {"s\n[t", "k", "v"}, {"s", "k=k", "v"},
      {"s", "a\nb", "v"}, {"s", ";k", "v"},   {"s", " [k", "v"}, {"s", "  ", "v"},    {nullptr, "k", "v"},
  };
  for (const auto& [section, key, value] : cases) {
    EXPECT_FALSE(engine.WriteString(section, key, value, path.c_str()));
    EXPECT_EQ(folder.Read("p.ini"), before);
  }
}

TEST(ProfileEngineRead, EndsAValueAtANul) {
  const ScratchFolder folder;
  ProfileEngine engine(SystemFiles());
  const std::string path = folder.Write("p.ini", "[s]\nk=ab\0cd\nx\0=1\n"s);
  std::array<char, 40> out{};
  EXPECT_EQ(engine.GetString("s", "k", "", out, path.c_str()), 2U);
  EXPECT_EQ(engine.GetSection("s", out, path.c_str()), 7U);
  EXPECT_EQ(std::string(out.data(), 8), "k=ab\0x\0\0"s);
}

TEST(ProfileEngineRead, LeavesAFileOfAbsurdSizeAlone) {
  const ScratchFolder folder;
  ProfileEngine engine(SystemFiles());
  const std::string path = folder.Write("p.ini", "[s]\nk=1\n");
  constexpr std::uintmax_t absurd = ProfileEngine::largestFile + 1;  // which every system's calls can set
  std::filesystem::resize_file(path, absurd);
  EXPECT_EQ(engine.GetInteger("s", "k", 5, path.c_str()), 5U);
  EXPECT_FALSE(engine.WriteString("s", "k", "2", path.c_str()));
  EXPECT_EQ(std::filesystem::file_size(path), absurd);
}

TEST(ProfileEngineWrite, RefusesAFileThatWouldBeTooLarge) {
  const std::string added = "k=v\r\n";
  for (const bool fits : {true, false}) {
    MemoryFiles files;
    std::string before = "[t]\r\nx=";
    before.append(ProfileEngine::largestFile - before.size() - 2 - added.size() + (fits ? 0 : 1), '1').append("\r\n");
    files.content["p.ini"] = before;
    EXPECT_EQ(ProfileEngine(files).WriteString("t", "k", "v", "p.ini"), fits);
    EXPECT_TRUE(files.content["p.ini"] == (fits ? before + added : before));
  }
}

// Each step of each kind of write fails once. What stands afterwards is the old file, whole, and nothing beside it; a
// result of true means the new one.
TEST(ProfileEngineFaults, LeaveTheOldFileOrTheNewOne) {
  const std::string before = "[s]\r\nk=1\r\n" + std::string(3000, ';') + "\r\n[t]\r\nx=2\r\n";
  using Work = bool (*)(ProfileEngine&, const char*);
  const Work works[] = {
      [](ProfileEngine& engine, const char* path) { return engine.WriteString("s", "k", "new", path); },
      [](ProfileEngine& engine, const char* path) { return engine.WriteString("u", "k", "new", path); },
      [](ProfileEngine& engine, const char* path) { return engine.WriteString("t", nullptr, nullptr, path); },
      [](ProfileEngine& engine, const char* path) {
        return engine.ReplaceFile(path, std::string_view("[a]\nb=1\n"));
      },
  };
  for (const Work work : works) {
    int failures = 0;
    for (int step = 0;; ++step) {
      const ScratchFolder folder;
      const std::string path = folder.Write("p.ini", before);
      FaultyFiles files(SystemFiles());
      ProfileEngine engine(files);
      files.FailAt(step);
      const bool done = work(engine, path.c_str());
      EXPECT_EQ(folder.Read("p.ini") == before, !done) << "step " << step;
      EXPECT_THAT(folder.Names(), ElementsAre("p.ini")) << "step " << step;
      if (!files.HasFailed()) {
        EXPECT_TRUE(done);
        break;
      }
      EXPECT_FALSE(done) << "step " << step;
      ++failures;
    }
    EXPECT_GE(failures, 5);
  }
}

// A file that can't be opened but stands must not give way to one that holds a single key.
TEST(ProfileEngineFaults, KeepAFileThatCannotBeRead) {
  class Unreadable : public ForwardingFiles {
   public:
    using ForwardingFiles::ForwardingFiles;
    std::unique_ptr<File> OpenToRead(std::string_view) override { return nullptr; }
  };
  const ScratchFolder folder;
  Unreadable files(SystemFiles());
  const std::string path = folder.Write("p.ini", "[s]\nk=1\n");
  EXPECT_FALSE(ProfileEngine(files).WriteString("s", "new", "2", path.c_str()));
  EXPECT_EQ(folder.Read("p.ini"), "[s]\nk=1\n");
}

// A name that is none would lead to a file beside whatever the process stands in.
TEST(ProfileEngineFaults, TouchNothingWithoutAName) {
  MemoryFiles files;
  ProfileEngine engine(files);
  for (const char* name : {static_cast<const char*>(nullptr), ""}) {
    EXPECT_FALSE(engine.WriteString("s", "k", "v", name));
    EXPECT_FALSE(engine.ReplaceFile(name, std::string_view("[s]\n")));
  }
  EXPECT_TRUE(files.content.empty());
  EXPECT_EQ(files.locks, 0);
}

// What another one lays while the lock is waited for is its own, and what can't be told is no free place.
TEST(ProfileEngineCreate, MakesAFileWhereNoneStands) {
  class Untold : public ForwardingFiles {
   public:
    using ForwardingFiles::ForwardingFiles;
    Presence PresenceOf(std::string_view) override { return Presence::unknown; }
  };
  class LaidMeanwhile : public ForwardingFiles {
   public:
    using ForwardingFiles::ForwardingFiles;
    std::unique_ptr<FileLock> Lock(std::string_view path, int milliseconds) override {
      const auto other = OpenToWrite(path);
      other->Write(std::array<std::uint8_t, 1>{'x'});
      return ForwardingFiles::Lock(path, milliseconds);
    }
  };
  const std::string_view fresh = "[s]\n";
  MemoryFiles files;
  EXPECT_TRUE(ProfileEngine(files).CreateIfAbsent("p.ini", fresh));
  EXPECT_FALSE(ProfileEngine(files).CreateIfAbsent("p.ini", std::string_view("[t]\n")));
  EXPECT_EQ(files.content["p.ini"], fresh);
  EXPECT_EQ(files.locks, 1) << "who finds a file needs no lock";
  Untold untold(files);
  EXPECT_FALSE(ProfileEngine(untold).CreateIfAbsent("q.ini", fresh));
  LaidMeanwhile meanwhile(files);
  EXPECT_FALSE(ProfileEngine(meanwhile).CreateIfAbsent("r.ini", fresh));
  EXPECT_EQ(files.content["r.ini"], "x");
  EXPECT_EQ(files.content.size(), 2U);
}

TEST(ProfileEngineWrite, RemovesWhatKilledWritersLeft) {
  const ScratchFolder folder;
  for (const char* name : {"p.ini", "p.ini.12.3.tmp", "p.ini.4.0.tmp", "p.ini.5.tmp", "p.ini.1.2.3.tmp",
                           "p.ini.a.1.tmp", "q.ini.1.2.tmp", "p.ini.1.2.tmp.bak"}) {
    folder.Write(name, "");
  }
  ASSERT_TRUE(ProfileEngine(SystemFiles()).WriteString("s", "gone", nullptr, folder.Path("p.ini").c_str()));
  EXPECT_THAT(folder.Names(), UnorderedElementsAre("p.ini", "p.ini.5.tmp", "p.ini.1.2.3.tmp", "p.ini.a.1.tmp",
                                                   "q.ini.1.2.tmp", "p.ini.1.2.tmp.bak"));
}

// Whoever holds the lock was stopped: the host's thread is held up once, not at each change.
TEST(ProfileEngineLock, IsWaitedForInVainOnlyOnce) {
  class Held : public ForwardingFiles {
   public:
    using ForwardingFiles::ForwardingFiles;
    std::unique_ptr<FileLock> Lock(std::string_view path, int milliseconds) override {
      waits.push_back(milliseconds);
      if (path != stuck) return ForwardingFiles::Lock(path, milliseconds);
      std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
      return nullptr;
    }
    std::string stuck = "p.ini";
    std::vector<int> waits;
  };
  MemoryFiles memory;
  Held files(memory);
  ProfileEngine engine(files, {.wait = 20, .restraint = 300});
  const auto write = [&](const char* path) { return engine.WriteString("s", "k", "v", path); };
  EXPECT_FALSE(write("p.ini"));
  EXPECT_FALSE(write("p.ini"));
  EXPECT_TRUE(write("q.ini")) << "another file isn't held";
  EXPECT_FALSE(write("p.ini"));
  EXPECT_THAT(std::exchange(files.waits, {}), ElementsAre(20, 0, 20, 0));
  files.stuck.clear();
  EXPECT_TRUE(write("p.ini"));
  EXPECT_TRUE(write("p.ini"));
  EXPECT_THAT(std::exchange(files.waits, {}), ElementsAre(0, 20)) << "who holds it goes on, and is waited for again";
  files.stuck = "p.ini";
  EXPECT_FALSE(write("p.ini"));
  std::this_thread::sleep_for(std::chrono::milliseconds(320));
  EXPECT_FALSE(write("p.ini"));
  EXPECT_THAT(files.waits, ElementsAre(20, 20));
}

// Many writers on a busy disk: none waits in vain while the others get on, and none is kept out by one in a hurry.
TEST(ProfileEngineLock, ComesToEachWriterOnABusyDisk) {
  class BusyDisk : public ForwardingFiles {
   public:
    using ForwardingFiles::ForwardingFiles;
    bool Replace(std::string_view from, std::string_view to) override {
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
      return ForwardingFiles::Replace(from, to);
    }
  };
  constexpr int writers = 8, writes = 5;
  const ScratchFolder folder;
  const std::string path = folder.Path("p.ini");
  BusyDisk files(SystemFiles());
  ProfileEngine engine(files, {.wait = 300, .restraint = 0});
  std::vector<std::future<int>> failures;
  failures.reserve(writers);
  for (int writer = 0; writer < writers; ++writer) {
    failures.push_back(std::async(std::launch::async, [&, writer] {
      int failed = 0;
      for (int i = 0; i < writes; ++i) {
        const std::string key = std::to_string(writer * writes + i);
        failed += engine.WriteString("s", key.c_str(), "v", path.c_str()) ? 0 : 1;
      }
      return failed;
    }));
  }
  for (std::future<int>& failed : failures) EXPECT_EQ(failed.get(), 0);
  const std::string content = folder.Read("p.ini");
  EXPECT_EQ(std::count(content.begin(), content.end(), '\n'), 1 + writers * writes);
}

// Another writer will be done soon; a folder that was cleaned away won't come back.
TEST(ProfileEngineFaults, WaitForALockOnlyWhereItCanBeHad) {
  using std::chrono::milliseconds;
  const auto lastsAtLeast = [](milliseconds time, auto operation) {
    const auto start = std::chrono::steady_clock::now();
    operation();
    return std::chrono::steady_clock::now() - start >= time;
  };
  const ScratchFolder folder;
  const auto held = SystemFiles().Lock(folder.Path("p.ini"), 0);
  ASSERT_TRUE(held);
  EXPECT_TRUE(lastsAtLeast(milliseconds(40), [&] { EXPECT_FALSE(SystemFiles().Lock(folder.Path("p.ini"), 50)); }));
  EXPECT_FALSE(lastsAtLeast(milliseconds(WriterPatience().wait / 2), [&] {
    ProfileEngine engine(SystemFiles());
    EXPECT_FALSE(engine.WriteString("s", "k", "v", folder.Path("gone/p.ini").c_str()));
    EXPECT_FALSE(engine.ReplaceFile(folder.Path("gone/p.ini").c_str(), std::string_view("[s]\n")));
  }));
}

}  // namespace
}  // namespace set32
