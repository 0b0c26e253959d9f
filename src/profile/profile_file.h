// CProfileFile: structured values in one profile file.
//
// A short-lived object: an operation of the panel builds one, names the file, does its few reads or writes and drops
// it. It keeps nothing of the file, so each read sees what the last write left, another program's too. Any thread,
// one at a time; objects are never shared. Null arguments are told per operation.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/profile_calls.h"

namespace set32 {

class CProfileFile {
 public:
  explicit CProfileFile(ProfileCalls& calls) : calls_(calls) {}
  virtual ~CProfileFile() = default;
  CProfileFile(const CProfileFile&) = delete;
  CProfileFile& operator=(const CProfileFile&) = delete;

  // Null empties the path, if there is one.
  void SetFileName(const char* path);

  // The value's text, of any length; the fallback (null: empty) where it is missing or section or key is null.
  std::string ReadValue(const char* section, const char* key, const char* fallback) const;

  // Clears the first byte of `out`, then copies at most out.size() bytes and fills the rest with NUL; a value of
  // out.size() bytes or more leaves no terminator. Result: the value's length, capped at out.size(); with an empty
  // span (null data) the whole length.
  std::size_t GetString(const char* section, const char* key, std::span<char> out, const char* fallback) const;

  // A null section or key writes nothing and gives false; a null value counts as empty.
  bool WriteString(const char* section, const char* key, const char* value) const;

  // Radix 2, 8 and 16 stand for themselves, any other means 10. An empty or missing value gives the fallback, text
  // without a digit gives 0.
  std::uint32_t GetInteger(const char* section, const char* key, std::uint32_t fallback, int radix) const;
  double GetDouble(const char* section, const char* key, double fallback) const;
  bool WriteInteger(const char* section, const char* key, std::uint32_t value, int radix) const;

  // Bytes from hexadecimal text, past an offset. Result: bytes stored, 0 when any character is foreign (`out` is then
  // unchanged). With null data: bytes available past the offset.
  std::size_t GetBinary(const char* section, const char* key, std::span<std::uint8_t> out, std::size_t offset) const;
  // Upper-case digits, two a byte. Null data writes nothing and gives false.
  bool WriteBinary(const char* section, const char* key, std::span<const std::uint8_t> data) const;

  // The section's lines as a packed string list; with null data the size to allocate. A null section gives 0.
  std::size_t GetSectionText(const char* section, std::span<char> out) const;

  // The section's key names as a packed string list. Result: bytes that the names take, the list's closing NUL not
  // counted. The last byte of `out` is kept for that NUL; names that don't fit before it are cut, then left out.
  std::size_t GetKeyList(const char* section, std::span<char> out) const;
  // In file order. Null: nothing happens.
  void GetKeyNames(const char* section, std::vector<std::string>* names) const;

  bool DeleteSection(const char* section) const;
  bool DeleteKey(const char* section, const char* key) const;

 private:
  const char* FileName() const { return file_ ? file_->c_str() : nullptr; }

  ProfileCalls& calls_;
  std::optional<std::string> file_;
};

using StringCallback = int (*)(const char* text, void* context);

// Calls with each string of a packed list, in order. A callback's 0 stops the walk and gives 0; else 1. A null list
// or callback gives 0.
int ForEachString(const char* list, StringCallback callback, void* context);

// Takes space, tab, CR and LF from both ends, in place. Result: whether anything was taken. A null text gives false.
bool TrimBlanks(char* text);

}  // namespace set32
