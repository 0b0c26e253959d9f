// Threads and named mutexes of a POSIX system. Any thread.
//
// Names of mutexes are known inside the process, the only place where the panel meets itself. A mutex belongs to the
// thread that waited for it, as often as it waited; dropping the object gives back what was had through it.
#pragma once

#include "platform/threads.h"

namespace set32 {

class PosixThreads : public Threads {
 public:
  PosixThreads();
  bool Start(ThreadPriority priority, std::function<void()> work) override;
  std::unique_ptr<NamedMutex> MakeMutex(std::string_view name, bool owned) override;

  // Waits until no thread that was started here runs, at most this long; false when one still does. For the end of a
  // process, so that nothing is torn down under a running thread.
  bool WaitForAll(int milliseconds);

 private:
  class Running;
  std::shared_ptr<Running> running_;  // outlives this object as long as a thread runs
};

}  // namespace set32
