// Owner of a file descriptor.
#pragma once

#include <unistd.h>

#include <utility>

namespace set32 {

class FileHandle {
 public:
  explicit FileHandle(int descriptor = -1) : descriptor_(descriptor) {}
  ~FileHandle() {
    if (IsOpen()) close(descriptor_);
  }
  FileHandle(FileHandle&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  FileHandle& operator=(FileHandle&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  FileHandle(const FileHandle&) = delete;
  FileHandle& operator=(const FileHandle&) = delete;

  bool IsOpen() const { return descriptor_ >= 0; }
  int Get() const { return descriptor_; }

 private:
  int descriptor_;
};

}  // namespace set32
