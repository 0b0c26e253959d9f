// The profile calls over plain files, the same on every platform.
//
// A read opens the file once, reads it whole and goes through it once. A write does so under the file's lock, writes
// the new content to a new file beside it, flushes that and puts it in the place of the old one; at any failure the
// old file stays and the new one is removed. All other bytes of the file stay as they are.
//
// Refused, with the file as it was: a value with a line end, a section name with ']' or a line end, a key with '=' or
// a line end or one that begins with ';' or '[' (none could be read back), and a file that stands but can't be read
// whole. Removing what isn't there succeeds and touches nothing. A file of more than `largestFile` bytes is not read.
//
// Any thread. The files must outlive it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/files.h"
#include "platform/profile_calls.h"

namespace set32 {

class ProfileEngine : public ProfileCalls {
 public:
  static constexpr std::size_t largestFile = std::size_t{16} << 20;
  // How long a write waits for another process's.
  static constexpr int lockMilliseconds = 3000;

  explicit ProfileEngine(Files& files) : files_(files) {}

  std::size_t GetString(const char* section, const char* key, const char* fallback, std::span<char> out,
                        const char* file) override;
  std::uint32_t GetInteger(const char* section, const char* key, std::int32_t fallback, const char* file) override;
  std::size_t GetSection(const char* section, std::span<char> out, const char* file) override;
  bool WriteString(const char* section, const char* key, const char* value, const char* file) override;
  bool ReplaceFile(const char* file, std::span<const char> content) override;

 private:
  enum class ReadResult { missing, whole, failed };

  // A file's bytes, not cleared before they are read in.
  struct Content {
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;
    std::string_view Text() const { return {bytes.get(), size}; }
  };

  ReadResult Read(const char* file, Content& content);
  // Under the file's lock. The pieces, in order, become the file.
  bool Replace(std::string_view file, std::span<const std::string_view> pieces);

  Files& files_;
};

}  // namespace set32
