// The profile calls over plain files, the same on every platform.
//
// A read opens the file once, reads it whole and goes through it once. A write does so under the file's lock, writes
// the new content to a new file beside it, flushes that and puts it in the place of the old one; at any failure the
// old file stays and the new one is removed. All other bytes of the file stay as they are. New files that writers
// left when they were killed go with the next write.
//
// A writer that has waited in vain (who holds the lock has been stopped) doesn't hold up its thread again for a
// while: until `restraint` is over, writes of that file are tried without waiting. Nothing is queued.
//
// Refused, with the file as it was: a value with a line end, a section name with ']' or a line end, a key with '=' or
// a line end or one that begins with ';' or '[' (none could be read back), and a file that stands but can't be read
// whole. Removing what isn't there succeeds and touches nothing. A file of more than `largestFile` bytes is not read.
//
// Any thread. The files must outlive it.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/profile_calls.h"

namespace set32 {

// How long a write waits for another process's, and for how long none waits after one that waited in vain.
struct WriterPatience {
  int wait = 3000;  // milliseconds, both
  int restraint = 30000;
};

class ProfileEngine : public ProfileCalls {
 public:
  static constexpr std::size_t largestFile = std::size_t{16} << 20;

  explicit ProfileEngine(Files& files, WriterPatience patience = {}) : files_(files), patience_(patience) {}

  std::size_t GetString(const char* section, const char* key, const char* fallback, std::span<char> out,
                        const char* file) override;
  std::uint32_t GetInteger(const char* section, const char* key, std::int32_t fallback, const char* file) override;
  std::size_t GetSection(const char* section, std::span<char> out, const char* file) override;
  bool WriteString(const char* section, const char* key, const char* value, const char* file) override;
  bool ReplaceFile(const char* file, std::span<const char> content) override;
  bool CreateIfAbsent(const char* file, std::span<const char> content) override;

 private:
  enum class ReadResult { missing, whole, failed };

  // A file's bytes, not cleared before they are read in.
  struct Content {
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;
    std::string_view Text() const { return {bytes.get(), size}; }
  };

  // The right to replace one file, as long as it is kept.
  struct Claim {
    std::string place;
    std::unique_ptr<FileLock> lock;
  };

  ReadResult Read(const char* file, Content& content);
  std::optional<Claim> ClaimFile(const char* file);
  std::unique_ptr<FileLock> LockPatiently(const std::string& place);
  void RemoveLeftBehind(const std::string& place);
  // The pieces, in order, become the file.
  bool Replace(const Claim& claim, std::span<const std::string_view> pieces);

  Files& files_;
  const WriterPatience patience_;
  // The file for which a writer waited in vain, and when it may be waited for again. Two writers that set them at
  // once may mix them up: that costs a wait, or spares one.
  std::atomic<std::size_t> stuckPlace_ = 0;        // hash of the path
  std::atomic<std::int64_t> restrainedUntil_ = 0;  // milliseconds of the steady clock
};

}  // namespace set32
