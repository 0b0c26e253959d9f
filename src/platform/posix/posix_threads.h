// Threads and named mutexes of a POSIX system. Any thread.
//
// Names of mutexes are known inside the process, the only place where the panel meets itself. A mutex belongs to the
// thread that waited for it, as often as it waited; dropping the object gives back what was had through it.
#pragma once

#include "platform/threads.h"

namespace set32 {

class PosixThreads : public Threads {
 public:
  bool Start(ThreadPriority priority, std::function<void()> work) override;
  std::unique_ptr<NamedMutex> MakeMutex(std::string_view name, bool owned) override;
};

}  // namespace set32
