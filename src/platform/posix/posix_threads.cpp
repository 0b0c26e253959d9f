#include "platform/posix/posix_threads.h"

#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <string>
#include <thread>

#include "platform/guarded.h"

namespace set32 {

namespace {

// A mutex that its thread may take again, with a wait that ends.
class RecursiveLock {
 public:
  bool Wait(int milliseconds) {
    std::unique_lock guard(inside_);
    const auto self = std::this_thread::get_id();
    const auto isFree = [&] { return depth_ == 0 || owner_ == self; };
    if (!free_.wait_for(guard, std::chrono::milliseconds(milliseconds), isFree)) return false;
    owner_ = self;
    ++depth_;
    return true;
  }

  void Release() {
    const std::lock_guard guard(inside_);
    if (depth_ > 0 && --depth_ == 0) free_.notify_one();
  }

 private:
  std::mutex inside_;
  std::condition_variable free_;
  std::thread::id owner_;
  int depth_ = 0;
};

class PosixNamedMutex : public NamedMutex {
 public:
  explicit PosixNamedMutex(std::shared_ptr<RecursiveLock> lock) : lock_(std::move(lock)) {}
  ~PosixNamedMutex() override {
    while (held_ > 0) PosixNamedMutex::Release();
  }
  PosixNamedMutex(const PosixNamedMutex&) = delete;
  PosixNamedMutex& operator=(const PosixNamedMutex&) = delete;

  bool Wait(int milliseconds) override {
    if (!lock_->Wait(milliseconds)) return false;
    ++held_;
    return true;
  }

  void Release() override {
    if (held_ == 0) return;
    --held_;
    lock_->Release();
  }

 private:
  std::shared_ptr<RecursiveLock> lock_;
  int held_ = 0;
};

// The lock of this name, and whether nobody had it before.
std::pair<std::shared_ptr<RecursiveLock>, bool> LockOfName(std::string_view name) {
  static std::mutex guard;
  static std::map<std::string, std::weak_ptr<RecursiveLock>, std::less<>> locks;
  const std::lock_guard hold(guard);
  std::weak_ptr<RecursiveLock>& entry = locks[std::string(name)];
  if (auto lock = entry.lock()) return {std::move(lock), false};
  auto lock = std::make_shared<RecursiveLock>();
  entry = lock;
  return {std::move(lock), true};
}

void ApplyPriority(ThreadPriority priority) {
  if (priority == ThreadPriority::normal) return;
  // One step up, where the user may; a thread is meant, although the call speaks of processes.
  setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), -1);
}

}  // namespace

bool PosixThreads::Start(ThreadPriority priority, std::function<void()> work) {
  return Guarded([&] {
    std::thread([priority, work = std::move(work)] {
      ApplyPriority(priority);
      Guarded(work);
    }).detach();
  });
}

std::unique_ptr<NamedMutex> PosixThreads::MakeMutex(std::string_view name, bool owned) {
  auto [lock, isNew] = LockOfName(name);
  auto mutex = std::make_unique<PosixNamedMutex>(std::move(lock));
  // As everywhere, only the first one can be owned from the start.
  if (owned && isNew) mutex->Wait(0);
  return mutex;
}

}  // namespace set32
