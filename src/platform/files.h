// Files, small enough that a test can fail every single operation.
//
// Paths are bytes of the module's code page. Any thread; a File object is used by one thread at a time. Nothing
// throws; a failure is a result.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace set32 {

// An open file. Releasing it closes it (and gives a lock back).
class File {
 public:
  virtual ~File() = default;
  // Reads up to the size of the span; fewer bytes mean the end of the file or a failure. Never blocks for long.
  virtual std::size_t Read(std::span<std::uint8_t> into) = 0;
  // Result: how many bytes were written; fewer than given is a failure (a full disk).
  virtual std::size_t Write(std::span<const std::uint8_t> bytes) = 0;
  // Bytes on the medium; false on failure. Must be called before a file replaces another.
  virtual bool Flush() = 0;
  // Size in bytes at this moment, 0 when it can't be told.
  virtual std::uint64_t Size() = 0;
};

// Holds a lock between processes until it is released. Locks of one thread don't nest.
class FileLock {
 public:
  virtual ~FileLock() = default;
};

class Files {
 public:
  virtual ~Files() = default;

  // False for what isn't there, and when that can't be told.
  virtual bool Exists(std::string_view path) = 0;
  // Null when the file isn't there or can't be read.
  virtual std::unique_ptr<File> OpenToRead(std::string_view path) = 0;
  // Creates or empties. Null on failure.
  virtual std::unique_ptr<File> OpenToWrite(std::string_view path) = 0;
  // Puts `from` in the place of `to` in one step, whether or not `to` exists; `from` must be closed. On false both
  // files are as they were.
  virtual bool Replace(std::string_view from, std::string_view to) = 0;
  // A failure is of no consequence to the callers.
  virtual bool Remove(std::string_view path) = 0;
  // Waits for at most `milliseconds` for the lock that belongs to this path (a file beside it, which stays); null
  // when it wasn't had, and at once where no waiting would help. Other processes and other threads that ask for the
  // same path wait meanwhile.
  virtual std::unique_ptr<FileLock> Lock(std::string_view path, int milliseconds) = 0;
};

class ForwardingFiles : public Files {
 public:
  explicit ForwardingFiles(Files& target) : target_(target) {}
  bool Exists(std::string_view path) override { return target_.Exists(path); }
  std::unique_ptr<File> OpenToRead(std::string_view path) override { return target_.OpenToRead(path); }
  std::unique_ptr<File> OpenToWrite(std::string_view path) override { return target_.OpenToWrite(path); }
  bool Replace(std::string_view from, std::string_view to) override { return target_.Replace(from, to); }
  bool Remove(std::string_view path) override { return target_.Remove(path); }
  std::unique_ptr<FileLock> Lock(std::string_view path, int milliseconds) override {
    return target_.Lock(path, milliseconds);
  }

 private:
  Files& target_;
};

}  // namespace set32
