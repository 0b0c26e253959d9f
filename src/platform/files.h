// Files, small enough that a test can fail every single operation.
//
// Paths are bytes of the module's code page. Any thread; a File object is used by one thread at a time. Nothing
// throws; a failure is a result.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

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

// Whether something stands at a path. What the system wouldn't tell is `unknown`, and so is a link that leads
// nowhere: nobody may take either for a free place.
enum class Presence { absent, present, unknown };

// Holds a lock between processes until it is released. Locks of one thread don't nest.
class FileLock {
 public:
  virtual ~FileLock() = default;
};

class Files {
 public:
  virtual ~Files() = default;

  virtual Presence PresenceOf(std::string_view path) = 0;
  // Where a new file must go to take the place of the one at this path: the path itself, or what a link leads to.
  // Nothing where none may take its place: it is read-only, no plain file, or a link to what isn't the user's own.
  virtual std::optional<std::string> PlaceToReplace(std::string_view path) = 0;
  // Of the files beside this path whose names begin with its own: what stands behind it in each name. Empty also when
  // the folder can't be read.
  virtual std::vector<std::string> EndingsBeside(std::string_view path) = 0;
  // Null when the file isn't there or can't be read.
  virtual std::unique_ptr<File> OpenToRead(std::string_view path) = 0;
  // Creates or empties. Null on failure.
  virtual std::unique_ptr<File> OpenToWrite(std::string_view path) = 0;
  // Puts `from` in the place of `to` in one step, whether or not `to` exists; `from` must be closed. On false both
  // files are as they were.
  virtual bool Replace(std::string_view from, std::string_view to) = 0;
  // A failure is of no consequence to the callers.
  virtual bool Remove(std::string_view path) = 0;
  // Waits for the lock that belongs to this path (a file beside it, which stays): for `milliseconds` while nothing
  // moves, and anew whenever the file at the path has given way to another, since then the others get on with it.
  // Null when it wasn't had, and at once where no waiting would help. Whoever gives a lock back lets those that wait
  // go before it asks again.
  virtual std::unique_ptr<FileLock> Lock(std::string_view path, int milliseconds) = 0;
};

}  // namespace set32
