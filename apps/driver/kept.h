// A value that is put back at the end of a scope, as one that a nested run changes.
#pragma once

namespace set32 {

template <typename T>
class Kept {
 public:
  explicit Kept(T& value) : value_(value), kept_(value) {}
  ~Kept() { value_ = kept_; }
  Kept(const Kept&) = delete;
  Kept& operator=(const Kept&) = delete;

 private:
  T& value_;
  T kept_;
};

}  // namespace set32
