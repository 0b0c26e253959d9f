// Where exceptions end, and what is put back while one passes.
//
// The panel lives in its host's process, among the frames of a window system that knows no exceptions: one that left
// a window procedure, a hook, a thread or one of the two functions would take the host along. So each of these
// entries runs what it does in Guarded, and nothing else in the library catches. Little can be thrown there, and
// mostly it is memory that isn't to be had; nobody could be told, as that would need more.
#pragma once

#include <exception>
#include <utility>

namespace set32 {

// What the act gives, and this answer where it throws.
template <typename Answer, typename Act>
Answer Guarded(Answer onFailure, Act&& act) noexcept {
  try {
    return act();
  } catch (...) {
    return onFailure;
  }
}

// The same for an act that gives nothing. Result: whether it got through.
template <typename Act>
bool Guarded(Act&& act) noexcept {
  return Guarded(false, [&act] {
    act();
    return true;
  });
}

// Puts something back when an exception leaves its scope, and nothing otherwise. Undoing must not throw.
template <typename Undo>
class OnFailure {
 public:
  explicit OnFailure(Undo undo) : undo_(std::move(undo)) {}
  ~OnFailure() {
    if (std::uncaught_exceptions() > before_) undo_();
  }
  OnFailure(const OnFailure&) = delete;
  OnFailure& operator=(const OnFailure&) = delete;

 private:
  Undo undo_;
  const int before_ = std::uncaught_exceptions();
};

// Holds a value for its scope and puts back what stood there, however the scope is left.
template <typename T>
class Hold {
 public:
  Hold(T& value, T held) : value_(value), kept_(std::exchange(value, held)) {}
  ~Hold() { value_ = kept_; }
  Hold(const Hold&) = delete;
  Hold& operator=(const Hold&) = delete;

 private:
  T& value_;
  const T kept_;
};

}  // namespace set32
