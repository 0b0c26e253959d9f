// References of the module to itself, which keep it loaded while its code may run.
//
// A host can free the library at any time and on any thread. Under a window of ours, or inside a call, only a
// reference of our own keeps the code there. It is given back as soon as nothing leads here any more, so that a host
// that frees the library in order unloads it. But the last reference of all can't be given back by code that would go
// with it: where the host has none left by then, ours stays, and the module with it, until the process ends.
#pragma once

#include "platform/win32/windows_api.h"

namespace set32::win32 {

// One reference. Any thread.
class ModuleHold {
 public:
  ModuleHold();  // false on failure
  ~ModuleHold();
  ModuleHold(ModuleHold&& other) noexcept;
  ModuleHold& operator=(ModuleHold&&) = delete;
  explicit operator bool() const { return module_ != nullptr; }
  // The last thing of a thread of the module's own: gives the reference back, even the last one.
  [[noreturn]] void EndThread();

 private:
  HMODULE module_;
};

// While one of these lives the module is held. They share one reference; made on the windows' thread alone.
class ModuleUse {
 public:
  ModuleUse();
  ~ModuleUse();
  ModuleUse(const ModuleUse&) = delete;
  ModuleUse& operator=(const ModuleUse&) = delete;
};

// A call from outside into the module, for as long as it lasts: a function of the host's choice, a window's
// procedure, a hook. The windows' thread.
class ModuleEntry {
 public:
  ModuleEntry();
  ~ModuleEntry();
  ModuleEntry(const ModuleEntry&) = delete;
  ModuleEntry& operator=(const ModuleEntry&) = delete;
  // Of a thread that has ended: it was stopped in the middle of our code. Any thread.
  static bool AnyUnderWay();

 private:
  ModuleUse use_;
};

}  // namespace set32::win32
