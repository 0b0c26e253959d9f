#include "platform/posix/posix_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <tuple>

#include "platform/lock_wait.h"
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

// Two bytes of a lock's file: whoever owns the lock has the one, those that wait for it share the other. A lock ends
// with its descriptor.
enum LockByte : off_t { owned = 0, awaited = 1 };

struct flock LockOn(LockByte byte, short kind) {
  struct flock lock = {};
  lock.l_type = kind;
  lock.l_whence = SEEK_SET;
  lock.l_start = byte;
  lock.l_len = 1;
  return lock;
}

bool TakeLock(const FileHandle& handle, LockByte byte, short kind) {
  struct flock lock = LockOn(byte, kind);
  return Retry([&] { return fcntl(handle.Get(), F_OFD_SETLK, &lock); }) == 0;
}

bool IsAwaited(const FileHandle& handle) {
  struct flock lock = LockOn(LockByte::awaited, F_WRLCK);
  return fcntl(handle.Get(), F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

// Long enough for those that have waited to try: one that writes again and again would keep them out.
constexpr auto politePause = std::chrono::milliseconds(3);

class PosixFileLock : public FileLock {
 public:
  explicit PosixFileLock(FileHandle handle) : handle_(std::move(handle)) {}
  ~PosixFileLock() override {
    const bool isAwaited = IsAwaited(handle_);
    handle_ = FileHandle();
    if (isAwaited) std::this_thread::sleep_for(politePause);
  }
  PosixFileLock(const PosixFileLock&) = delete;
  PosixFileLock& operator=(const PosixFileLock&) = delete;

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

FileHandle OpenLock(const std::string& lockPath) {
  return Open(lockPath, O_RDWR | O_CREAT | O_NOFOLLOW);
}

struct LockTry {
  std::unique_ptr<FileLock> lock;
  bool isWorthAnother = false;  // somebody has it; any other failure would only come back
};

LockTry TryLock(const std::string& lockPath) {
  FileHandle handle = OpenLock(lockPath);
  if (!handle.IsOpen()) return {};
  if (!TakeLock(handle, LockByte::owned, F_WRLCK)) return {nullptr, errno == EAGAIN || errno == EACCES};
  if (!StillStands(handle, lockPath)) return {nullptr, true};
  return {std::make_unique<PosixFileLock>(std::move(handle))};
}

// Says on a lock's file that somebody waits, for as long as it is kept.
FileHandle AnnounceWait(const std::string& lockPath) {
  FileHandle handle = OpenLock(lockPath);
  if (handle.IsOpen()) TakeLock(handle, LockByte::awaited, F_RDLCK);
  return handle;
}

// Differs once the file at a path has given way to another.
using FileSign = std::tuple<ino_t, time_t, long>;

FileSign SignOf(const std::string& path) {
  const auto status = StatusOf(path);
  return status ? FileSign{status->st_ino, status->st_mtim.tv_sec, status->st_mtim.tv_nsec} : FileSign{};
}

std::int64_t Milliseconds() {
  using std::chrono::milliseconds;
  return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

bool IsLink(const std::string& path) {
  struct stat status = {};
  return lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

// What a link leads to, if that is the user's own.
std::optional<std::string> OwnTarget(const std::string& link) {
  const std::unique_ptr<char, decltype(&free)> resolved(realpath(link.c_str(), nullptr), free);
  if (!resolved) return std::nullopt;
  const auto status = StatusOf(std::string(resolved.get()));
  if (!status || status->st_uid != geteuid()) return std::nullopt;
  return resolved.get();
}

// The privileged may write a file that is read-only, but they were asked not to.
bool MayBeReplaced(const std::string& path, const struct stat& status) {
  return S_ISREG(status.st_mode) && (status.st_mode & S_IWUSR) != 0 &&
         faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

// Folder and name of a path.
std::pair<std::string, std::string> Split(std::string_view path) {
  const std::size_t end = path.rfind('/');
  if (end == std::string_view::npos) return {".", std::string(path)};
  return {std::string(path.substr(0, end + 1)), std::string(path.substr(end + 1))};
}

}  // namespace

Presence PosixFiles::PresenceOf(std::string_view path) {
  const std::string name(path);
  if (StatusOf(name)) return Presence::present;
  const bool isAbsent = (errno == ENOENT || errno == ENOTDIR) && !IsLink(name);
  return isAbsent ? Presence::absent : Presence::unknown;
}

std::optional<std::string> PosixFiles::PlaceToReplace(std::string_view path) {
  std::optional<std::string> place(path);
  if (IsLink(*place)) place = OwnTarget(*place);
  if (!place) return std::nullopt;
  const auto status = StatusOf(*place);
  const bool isFree = status ? MayBeReplaced(*place, *status) : errno == ENOENT;
  return isFree ? std::move(place) : std::nullopt;
}

std::vector<std::string> PosixFiles::EndingsBeside(std::string_view path) {
  const auto [folder, name] = Split(path);
  std::vector<std::string> endings;
  const std::unique_ptr<DIR, int (*)(DIR*)> listing(opendir(folder.c_str()), closedir);
  while (const dirent* const entry = listing ? readdir(listing.get()) : nullptr) {
    const std::string_view other = entry->d_name;
    if (other.size() > name.size() && other.starts_with(name)) endings.emplace_back(other.substr(name.size()));
  }
  return endings;
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
  if (rename(source.c_str(), target.c_str()) != 0) return false;
  // Else a crash could bring the old file back. That it fails changes nothing: the new one has its place.
  const FileHandle folder = Open(Split(target).first, O_RDONLY | O_DIRECTORY);
  if (folder.IsOpen()) fsync(folder.Get());
  return true;
}

bool PosixFiles::Remove(std::string_view path) {
  return unlink(std::string(path).c_str()) == 0;
}

std::unique_ptr<FileLock> PosixFiles::Lock(std::string_view path, int milliseconds) {
  const std::string file(path);
  const std::string lockPath = file + ".lock";
  LockTry attempt = TryLock(lockPath);
  if (attempt.lock || !attempt.isWorthAnother) return std::move(attempt.lock);
  const FileHandle waiting = AnnounceWait(lockPath);
  for (LockWait wait(Milliseconds(), milliseconds, SignOf(file)); wait.GoesOn(Milliseconds(), SignOf(file));) {
    std::this_thread::sleep_for(std::chrono::milliseconds(wait.Pause()));
    attempt = TryLock(lockPath);
    if (attempt.lock || !attempt.isWorthAnother) break;
  }
  return std::move(attempt.lock);
}

}  // namespace set32
