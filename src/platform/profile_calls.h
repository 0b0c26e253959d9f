// The four profile operations, with the contract of the window system's calls of these names.
//
// A profile is a text file of sections "[name]" and lines "key=value", lines ended by CR LF or LF, of any length.
// Names match without regard to ASCII letter case. Blanks around section names, keys and values don't count; one
// pair of quotes (" or ') around a value is taken off on reading; a line that begins with ';' is a comment; of
// several equal keys, or sections, the first counts. A null pointer is an argument that isn't given; a file without
// a name is a missing one that can't be written.
//
// A write replaces the file in one step, under a lock between processes: a reader sees the old file or the new one,
// and writers of different keys lose nothing. Nothing is cached: each call opens the file, reads it once, closes it.
// Any thread. Nothing throws.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace set32 {

class ProfileCalls {
 public:
  virtual ~ProfileCalls() = default;

  // Copies the value, cut to out.size() - 1 bytes and terminated. Result: bytes stored, the terminator not counted.
  // A missing file, section or key gives the fallback (null: empty). An empty span gives 0.
  virtual std::size_t GetString(const char* section, const char* key, const char* fallback, std::span<char> out,
                                const char* file) = 0;

  // The value's leading digits after an optional sign, decimal unless 0x, 0o or 0b stands before them (0 without
  // digits); the fallback when file, section or key is missing or the value is empty. Values past 32 bits wrap.
  virtual std::uint32_t GetInteger(const char* section, const char* key, std::int32_t fallback, const char* file) = 0;

  // All lines of the section that aren't empty, in file order, a line without '=' as it stands, as a packed string
  // list: each terminated, one more NUL at the end. Result: bytes stored, the closing NUL not counted; out.size() - 2
  // when the span was too small. Comment lines are left out. A missing file or section gives 0 and an empty list.
  virtual std::size_t GetSection(const char* section, std::span<char> out, const char* file) = 0;

  // Section, key and value given: an existing key gets the value in place; a new key comes at the end of its section,
  // a new section at the end of the file; a missing file is created. A null key removes the section, a null value the
  // key. Result: true on success, also when there was nothing to remove; on false the file is as it was. What
  // couldn't be read back is refused: line ends anywhere, '=' in a key, ']' in a section.
  virtual bool WriteString(const char* section, const char* key, const char* value, const char* file) = 0;

  // The file's whole content in one step, or nothing at all.
  virtual bool ReplaceFile(const char* file, std::span<const char> content) = 0;

  // The same where no file stands; one that does, or about which that can't be told, is left alone. Result: whether
  // this call made it.
  virtual bool CreateIfAbsent(const char* file, std::span<const char> content) = 0;
};

}  // namespace set32
