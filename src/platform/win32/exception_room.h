// The memory that an exception itself needs.
//
// The compiler's runtime asks for it at a thread's first exception, and at a process's first of many other things;
// where it isn't to be had there, the runtime ends the process or writes to nowhere. So whoever is about to run what
// may throw has it asked for before.
#pragma once

#include <cstdlib>
#include <memory>

namespace set32::win32 {

// Whether this thread can throw and catch. Once it could, it can for good; any thread.
inline bool HasRoomForExceptions() {
  // More than the runtime takes, which then finds it. A compiler that may would leave such a question out.
  void* volatile had = nullptr;
  {
    const std::unique_ptr<void, decltype(&std::free)> room(std::malloc(0x4000), &std::free);
    had = room.get();
  }
  if (had == nullptr) return false;
  struct First {};
  try {
    throw First();
  } catch (const First&) {
    return true;
  }
}

}  // namespace set32::win32
