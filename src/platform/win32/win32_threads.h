// Threads and named mutexes of the Win32 system. Any thread.
#pragma once

#include "platform/threads.h"

namespace set32 {

class Win32Threads : public Threads {
 public:
  bool Start(ThreadPriority priority, std::function<void()> work) override;
  std::unique_ptr<NamedMutex> MakeMutex(std::string_view name, bool owned) override;
};

}  // namespace set32
