// Processes of an attack that run at the same time as their parent.
#pragma once

#include <sys/types.h>

#include <functional>
#include <utility>
#include <vector>

#include "platform/posix/file_handle.h"

namespace set32 {

// A child that runs `work` and ends with its result; it is killed and waited for when the object goes. What it
// throws ends it with 99.
class Child {
 public:
  explicit Child(const std::function<int()>& work);
  ~Child();
  Child(Child&& other) noexcept : process_(std::exchange(other.process_, -1)) {}
  Child& operator=(Child&&) = delete;
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  // False when the system gave no process.
  bool IsRunning() const { return process_ > 0; }
  void Kill() const;
  // The exit status, or minus the signal that ended it.
  int Wait();

 private:
  pid_t process_;
};

// Numbers that children tell their parent, each whole.
class Tellings {
 public:
  Tellings();
  bool Tell(int number) const;
  // In the parent, once all children have started: what is heard ends with the last of them.
  void CloseTelling() { tell_ = FileHandle(); }
  // False at the end.
  bool Hear(int& number) const;

 private:
  FileHandle hear_, tell_;
};

}  // namespace set32
