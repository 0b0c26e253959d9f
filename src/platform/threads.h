// Short threads and named mutexes.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

namespace set32 {

enum class ThreadPriority { normal, aboveNormal };

class NamedMutex {
 public:
  virtual ~NamedMutex() = default;
  // Waits for at most this time; true when the mutex is owned.
  virtual bool Wait(int milliseconds) = 0;
  virtual void Release() = 0;
};

class Threads {
 public:
  virtual ~Threads() = default;
  // Runs the work on a thread of its own, which holds the module loaded until it ends; nobody waits for it. False
  // when no thread could be had (the work is then dropped). What the work throws ends it.
  virtual bool Start(ThreadPriority priority, std::function<void()> work) = 0;
  // Null on failure.
  virtual std::unique_ptr<NamedMutex> MakeMutex(std::string_view name, bool owned) = 0;
};

}  // namespace set32
