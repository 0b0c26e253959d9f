#include "platform/win32/win32_files.h"

#include <algorithm>
#include <string>

#include "platform/win32/code_page.h"
#include "platform/win32/handle.h"

namespace set32 {

using win32::ModuleText;
using win32::OwnedHandle;

namespace {

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::size_t largestStep = 1U << 20;
constexpr DWORD pause = 2;  // milliseconds between two tries
// Milliseconds for which a program that has a file open without sharing it (a virus scanner, an index) is waited for.
constexpr int patience = 200;

OwnedHandle Open(std::string_view path, DWORD access, DWORD how) {
  return win32::OwnedFile(
      CreateFileW(ModuleText().Wide(path).c_str(), access, shareAll, nullptr, how, FILE_ATTRIBUTE_NORMAL, nullptr));
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

// The lock goes with the handle.
class Win32FileLock : public FileLock {
 public:
  explicit Win32FileLock(OwnedHandle handle) : handle_(std::move(handle)) {}

 private:
  OwnedHandle handle_;
};

std::unique_ptr<FileLock> TryLock(const std::string& lockPath) {
  OwnedHandle handle = Open(lockPath, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS);
  OVERLAPPED start{};
  if (!handle || !LockFileEx(handle.Get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &start))
    return nullptr;
  return std::make_unique<Win32FileLock>(std::move(handle));
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

bool Win32Files::Exists(std::string_view path) {
  return GetFileAttributesW(ModuleText().Wide(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::unique_ptr<File> Win32Files::OpenToRead(std::string_view path) {
  return Plain(TryFor(patience, [path] { return Open(path, GENERIC_READ, OPEN_EXISTING); }));
}

std::unique_ptr<File> Win32Files::OpenToWrite(std::string_view path) {
  return Plain(Open(path, GENERIC_WRITE, CREATE_ALWAYS));
}

bool Win32Files::Replace(std::string_view from, std::string_view to) {
  const std::wstring source = ModuleText().Wide(from);
  const std::wstring target = ModuleText().Wide(to);
  const auto move = [&] {
    return MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE;
  };
  // A target that is open is also reported as one without access.
  return TryFor(patience, move, [] { return IsHeldByAnother() || GetLastError() == ERROR_ACCESS_DENIED; });
}

bool Win32Files::Remove(std::string_view path) {
  return DeleteFileW(ModuleText().Wide(path).c_str()) != FALSE;
}

std::unique_ptr<FileLock> Win32Files::Lock(std::string_view path, int milliseconds) {
  const std::string lockPath = std::string(path) + ".lock";
  return TryFor(milliseconds, [&] { return TryLock(lockPath); });
}

}  // namespace set32
