#include "platform/posix/posix_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <optional>
#include <string>
#include <thread>

#include "platform/posix/file_handle.h"

namespace set32 {

namespace {

constexpr mode_t ownerOnly = 0600;
constexpr mode_t permissionBits = 0777;

// Until a signal no longer cuts the call short.
template <typename Call>
auto Retry(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

FileHandle Open(const std::string& path, int flags) {
  return FileHandle(Retry([&] { return open(path.c_str(), flags | O_CLOEXEC, ownerOnly); }));
}

std::optional<struct stat> StatusOf(const FileHandle& handle) {
  struct stat status = {};
  if (fstat(handle.Get(), &status) != 0) return std::nullopt;
  return status;
}

std::optional<struct stat> StatusOf(const std::string& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) return std::nullopt;
  return status;
}

class PosixFile : public File {
 public:
  explicit PosixFile(FileHandle handle) : handle_(std::move(handle)) {}

  std::size_t Read(std::span<std::uint8_t> into) override {
    return Transfer(into.size(),
                    [&](std::size_t at) { return read(handle_.Get(), into.data() + at, into.size() - at); });
  }

  std::size_t Write(std::span<const std::uint8_t> bytes) override {
    return Transfer(bytes.size(),
                    [&](std::size_t at) { return write(handle_.Get(), bytes.data() + at, bytes.size() - at); });
  }

  bool Flush() override {
    return Retry([&] { return fsync(handle_.Get()); }) == 0;
  }

  std::uint64_t Size() override {
    const auto status = StatusOf(handle_);
    return status ? static_cast<std::uint64_t>(std::max<off_t>(status->st_size, 0)) : 0;
  }

 private:
  // Calls `step` with the place reached until everything has passed or it moves nothing more.
  template <typename Step>
  static std::size_t Transfer(std::size_t size, Step step) {
    std::size_t done = 0;
    while (done < size) {
      const ssize_t count = Retry([&] { return step(done); });
      if (count <= 0) break;
      done += static_cast<std::size_t>(count);
    }
    return done;
  }

  FileHandle handle_;
};

// The lock goes with the descriptor.
class PosixFileLock : public FileLock {
 public:
  explicit PosixFileLock(FileHandle handle) : handle_(std::move(handle)) {}

 private:
  FileHandle handle_;
};

// Whether the path still leads to this file: somebody who cleans up may have removed it, and the next one who asks
// would then lock another file.
bool StillStands(const FileHandle& handle, const std::string& path) {
  const auto held = StatusOf(handle);
  const auto named = StatusOf(path);
  return held && named && held->st_dev == named->st_dev && held->st_ino == named->st_ino;
}

struct LockTry {
  std::unique_ptr<FileLock> lock;
  bool isWorthAnother = false;  // somebody has it; any other failure would only come back
};

LockTry TryLock(const std::string& lockPath) {
  FileHandle handle = Open(lockPath, O_RDWR | O_CREAT | O_NOFOLLOW);
  if (!handle.IsOpen()) return {};
  if (flock(handle.Get(), LOCK_EX | LOCK_NB) != 0) return {nullptr, errno == EWOULDBLOCK || errno == EINTR};
  if (!StillStands(handle, lockPath)) return {nullptr, true};
  return {std::make_unique<PosixFileLock>(std::move(handle))};
}

}  // namespace

bool PosixFiles::Exists(std::string_view path) {
  return StatusOf(std::string(path)).has_value();
}

std::unique_ptr<File> PosixFiles::OpenToRead(std::string_view path) {
  // Opening a pipe would otherwise wait for a writer.
  FileHandle handle = Open(std::string(path), O_RDONLY | O_NONBLOCK);
  if (!handle.IsOpen()) return nullptr;
  const auto status = StatusOf(handle);
  if (!status || !S_ISREG(status->st_mode)) return nullptr;
  return std::make_unique<PosixFile>(std::move(handle));
}

std::unique_ptr<File> PosixFiles::OpenToWrite(std::string_view path) {
  FileHandle handle = Open(std::string(path), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_NONBLOCK);
  if (!handle.IsOpen()) return nullptr;
  return std::make_unique<PosixFile>(std::move(handle));
}

bool PosixFiles::Replace(std::string_view from, std::string_view to) {
  const std::string source(from);
  const std::string target(to);
  const auto old = StatusOf(target);
  if (old && (old->st_mode & permissionBits) != ownerOnly &&
      chmod(source.c_str(), old->st_mode & permissionBits) != 0) {
    return false;
  }
  // The folder is not flushed: after a crash the old file or the new one stands, each whole, and that is the promise.
  return rename(source.c_str(), target.c_str()) == 0;
}

bool PosixFiles::Remove(std::string_view path) {
  return unlink(std::string(path).c_str()) == 0;
}

std::unique_ptr<FileLock> PosixFiles::Lock(std::string_view path, int milliseconds) {
  const std::string lockPath = std::string(path) + ".lock";
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
  for (;;) {
    LockTry attempt = TryLock(lockPath);
    if (attempt.lock || !attempt.isWorthAnother || std::chrono::steady_clock::now() >= deadline) {
      return std::move(attempt.lock);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

}  // namespace set32
