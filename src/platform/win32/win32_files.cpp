#include "platform/win32/win32_files.h"

#include <algorithm>
#include <string>

#include "platform/lock_wait.h"
#include "platform/win32/code_page.h"
#include "platform/win32/handle.h"

namespace set32 {

using win32::ModuleText;
using win32::OwnedHandle;

namespace {

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::size_t largestStep = 1U << 20;
constexpr DWORD pause = 2;  // milliseconds between two tries
// Long enough for those that have waited to try: one that writes again and again would keep them out.
constexpr DWORD politePause = 3;
// Milliseconds for which a program that has a file open without sharing it (a virus scanner, an index) is waited for.
constexpr int patience = 200;

// A path as the system takes it at any length. Short ones stay as they are: the longer form knows no '/', no "..".
std::wstring SystemPath(std::string_view path) {
  constexpr std::size_t roomForName = 12;  // which the system keeps in the path of a folder
  std::wstring wide = ModuleText().Wide(path);
  if (wide.size() < MAX_PATH - roomForName || wide.starts_with(L"\\\\?\\")) return wide;
  std::wstring full(0x8000, L'\0');
  const DWORD units = GetFullPathNameW(wide.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
  if (units == 0 || units >= full.size()) return wide;
  full.resize(units);
  return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

OwnedHandle Open(std::string_view path, DWORD access, DWORD how) {
  return win32::OwnedFile(
      CreateFileW(SystemPath(path).c_str(), access, shareAll, nullptr, how, FILE_ATTRIBUTE_NORMAL, nullptr));
}

class Win32File : public File {
 public:
  explicit Win32File(OwnedHandle handle) : handle_(std::move(handle)) {}

  std::size_t Read(std::span<std::uint8_t> into) override {
    return Transfer(into.size(), [&](std::size_t at, DWORD size, DWORD& moved) {
      return ReadFile(handle_.Get(), into.data() + at, size, &moved, nullptr);
    });
  }

  std::size_t Write(std::span<const std::uint8_t> bytes) override {
    return Transfer(bytes.size(), [&](std::size_t at, DWORD size, DWORD& moved) {
      return WriteFile(handle_.Get(), bytes.data() + at, size, &moved, nullptr);
    });
  }

  bool Flush() override { return FlushFileBuffers(handle_.Get()) != FALSE; }

  std::uint64_t Size() override {
    LARGE_INTEGER size{};
    return GetFileSizeEx(handle_.Get(), &size) ? static_cast<std::uint64_t>(size.QuadPart) : 0;
  }

 private:
  // Calls `step` with the place reached until everything has passed or it moves nothing more.
  template <typename Step>
  static std::size_t Transfer(std::size_t size, Step step) {
    std::size_t done = 0;
    while (done < size) {
      DWORD moved = 0;
      const auto wanted = static_cast<DWORD>(std::min(size - done, largestStep));
      if (!step(done, wanted, moved) || moved == 0) break;
      done += moved;
    }
    return done;
  }

  OwnedHandle handle_;
};

// A plain file, not a device that would make a reader wait.
std::unique_ptr<File> Plain(OwnedHandle handle) {
  if (!handle || GetFileType(handle.Get()) != FILE_TYPE_DISK) return nullptr;
  return std::make_unique<Win32File>(std::move(handle));
}

// Two bytes of a lock's file: whoever owns the lock has the one, those that wait for it share the other. A lock goes
// with its handle.
enum LockByte : DWORD { owned = 0, awaited = 1 };

bool TakeLock(const OwnedHandle& handle, LockByte byte, DWORD kind) {
  OVERLAPPED place{};
  place.Offset = byte;
  return LockFileEx(handle.Get(), kind | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != FALSE;
}

OwnedHandle OpenLock(const std::string& lockPath) {
  return Open(lockPath, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS);
}

class Win32FileLock : public FileLock {
 public:
  explicit Win32FileLock(OwnedHandle handle) : handle_(std::move(handle)) {}
  ~Win32FileLock() override {
    const bool isAwaited = !TakeLock(handle_, LockByte::awaited, LOCKFILE_EXCLUSIVE_LOCK);
    handle_ = OwnedHandle();
    if (isAwaited) Sleep(politePause);
  }
  Win32FileLock(const Win32FileLock&) = delete;
  Win32FileLock& operator=(const Win32FileLock&) = delete;

 private:
  OwnedHandle handle_;
};

std::unique_ptr<FileLock> TryLock(const std::string& lockPath) {
  OwnedHandle handle = OpenLock(lockPath);
  if (!handle || !TakeLock(handle, LockByte::owned, LOCKFILE_EXCLUSIVE_LOCK)) return nullptr;
  return std::make_unique<Win32FileLock>(std::move(handle));
}

// Says on a lock's file that somebody waits, for as long as it is kept.
OwnedHandle AnnounceWait(const std::string& lockPath) {
  OwnedHandle handle = OpenLock(lockPath);
  if (handle) TakeLock(handle, LockByte::awaited, 0);
  return handle;
}

// Differs once the file at a path has given way to another.
std::uint64_t SignOf(const std::wstring& path) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) == FALSE) return 0;
  return (std::uint64_t{data.ftLastWriteTime.dwHighDateTime} << 32) | data.ftLastWriteTime.dwLowDateTime;
}

// Whether the last failure is one that passes: somebody else has the file for a moment.
bool IsHeldByAnother() {
  const DWORD error = GetLastError();
  return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION;
}

// Calls `attempt` until it succeeds, fails for good, or the time is over.
template <typename Attempt>
auto TryFor(int milliseconds, Attempt attempt, bool (*canPass)() = IsHeldByAnother) {
  const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(std::max(milliseconds, 0));
  for (;;) {
    auto result = attempt();
    if (result || !canPass() || GetTickCount64() >= end) return result;
    Sleep(pause);
  }
}

}  // namespace

Presence Win32Files::PresenceOf(std::string_view path) {
  if (GetFileAttributesW(SystemPath(path).c_str()) != INVALID_FILE_ATTRIBUTES) return Presence::present;
  const DWORD error = GetLastError();
  const bool isAbsent = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
  return isAbsent ? Presence::absent : Presence::unknown;
}

std::optional<std::string> Win32Files::PlaceToReplace(std::string_view path) {
  const DWORD attributes = GetFileAttributesW(SystemPath(path).c_str());
  const bool isFree = attributes == INVALID_FILE_ATTRIBUTES ||
                      (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) == 0;
  return isFree ? std::optional<std::string>(path) : std::nullopt;
}

std::vector<std::string> Win32Files::EndingsBeside(std::string_view path) {
  const std::size_t name = path.find_last_of("/\\:") + 1;
  const std::size_t units = ModuleText().Wide(path.substr(name)).size();
  std::vector<std::string> endings;
  WIN32_FIND_DATAW found{};
  const HANDLE listing = FindFirstFileW((SystemPath(path) + L"*").c_str(), &found);
  if (listing == INVALID_HANDLE_VALUE) return endings;
  do {
    const std::wstring_view other = found.cFileName;
    if (other.size() > units) endings.push_back(ModuleText().Narrow(other.substr(units)));
  } while (FindNextFileW(listing, &found));
  FindClose(listing);
  return endings;
}

std::unique_ptr<File> Win32Files::OpenToRead(std::string_view path) {
  return Plain(TryFor(patience, [path] { return Open(path, GENERIC_READ, OPEN_EXISTING); }));
}

std::unique_ptr<File> Win32Files::OpenToWrite(std::string_view path) {
  return Plain(Open(path, GENERIC_WRITE, CREATE_ALWAYS));
}

bool Win32Files::Replace(std::string_view from, std::string_view to) {
  const std::wstring source = SystemPath(from);
  const std::wstring target = SystemPath(to);
  const auto move = [&] {
    return MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE;
  };
  // A target that is open is also reported as one without access.
  return TryFor(patience, move, [] { return IsHeldByAnother() || GetLastError() == ERROR_ACCESS_DENIED; });
}

bool Win32Files::Remove(std::string_view path) {
  return DeleteFileW(SystemPath(path).c_str()) != FALSE;
}

std::unique_ptr<FileLock> Win32Files::Lock(std::string_view path, int milliseconds) {
  const std::string lockPath = std::string(path) + ".lock";
  std::unique_ptr<FileLock> lock = TryLock(lockPath);
  if (lock || !IsHeldByAnother()) return lock;
  const OwnedHandle waiting = AnnounceWait(lockPath);
  const std::wstring file = SystemPath(path);
  const auto now = [] { return static_cast<std::int64_t>(GetTickCount64()); };
  for (LockWait wait(now(), milliseconds, SignOf(file)); wait.GoesOn(now(), SignOf(file));) {
    Sleep(static_cast<DWORD>(wait.Pause()));
    lock = TryLock(lockPath);
    if (lock || !IsHeldByAnother()) break;
  }
  return lock;
}

}  // namespace set32
