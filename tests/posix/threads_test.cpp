// Threads that outlive their starter, mutexes that belong to a thread, and the system's language.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <new>
#include <thread>

#include "platform/posix/posix_system.h"
#include "platform/posix/posix_threads.h"

namespace set32 {
namespace {

// On a thread of its own, waited for.
bool Elsewhere(const std::function<bool()>& test) {
  bool result = false;
  std::thread([&] { result = test(); }).join();
  return result;
}

TEST(PosixThreadsTest, OutliveTheirStarter) {
  std::atomic<bool> go{false};
  std::atomic<bool> done{false};
  {
    PosixThreads threads;
    ASSERT_TRUE(threads.Start(ThreadPriority::normal, [&] {
      while (!go) std::this_thread::yield();
      done = true;
    }));
  }
  go = true;
  while (!done) std::this_thread::yield();
}

TEST(PosixThreadsTest, EndWithWhatTheyThrow) {
  std::atomic<bool> thrown{false};
  ASSERT_TRUE(PosixThreads().Start(ThreadPriority::normal, [&] {
    thrown = true;
    throw std::bad_alloc();
  }));
  while (!thrown) std::this_thread::yield();
  std::this_thread::sleep_for(std::chrono::milliseconds(10));  // it would take the process along
}

TEST(NamedMutexTest, BelongsToOneThread) {
  PosixThreads threads;
  const auto mine = threads.MakeMutex("name", true);
  const auto same = threads.MakeMutex("name", true);
  const auto other = threads.MakeMutex("another", false);
  EXPECT_TRUE(same->Wait(0));
  EXPECT_FALSE(Elsewhere([&] { return same->Wait(10); }));
  EXPECT_TRUE(Elsewhere([&] {
    const bool owned = other->Wait(0);
    other->Release();
    return owned;
  }));
  same->Release();
  EXPECT_FALSE(Elsewhere([&] { return same->Wait(0); }));
  mine->Release();
  EXPECT_TRUE(Elsewhere([&] {
    const auto third = threads.MakeMutex("name", true);
    return third->Wait(0);  // given back with the object
  }));
  EXPECT_TRUE(mine->Wait(0));
}

TEST(NamedMutexTest, IsWaitedForUntilItIsReleased) {
  PosixThreads threads;
  auto mine = threads.MakeMutex("waited", true);
  std::atomic<bool> waiting{false};
  bool had = false;
  std::thread waiter([&] {
    const auto same = threads.MakeMutex("waited", false);
    waiting = true;
    had = same->Wait(10000);
  });
  while (!waiting) std::this_thread::yield();
  mine.reset();
  waiter.join();
  EXPECT_TRUE(had);
}

TEST(PosixSystemTest, KnowsTheLanguageOfALocale) {
  const struct {
    const char* locale;
    int language;
  } cases[] = {{"zh_TW.UTF-8", 0x0404}, {"zh_CN.GB2312", 0x0804},
               {"en", 0x0409},          {"en_GB@euro", 0x0809},
               {"de_AT.UTF-8", 0x0407}, {"pt_BR", 0x0416},
               {"pt_PT", 0x0816},       {"eno_XX", 0x0409},
               {"C", 0x0409},           {"", 0x0409}};
  for (const auto& c : cases) EXPECT_EQ(LanguageOfLocale(c.locale), c.language) << c.locale;
}

}  // namespace
}  // namespace set32
