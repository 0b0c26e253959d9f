// The text of a profile as the profile engine reads and edits it: pure functions over the bytes of one file.
//
// Nothing here allocates but the text that an edit brings in, and everything costs one pass. A byte order mark at the
// start is passed over. A line ends at LF; CR and the other blanks at its ends don't count. What stands behind a NUL
// in a line isn't part of a value.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace set32::profile_text {

// Space, tab, CR, vertical tab and form feed from both ends.
std::string_view Trim(std::string_view text);

// The trimmed value of the first such key of the first such section; nothing when there is none.
std::optional<std::string_view> FindValue(std::string_view text, std::string_view section, std::string_view key);

// A value without the one pair of quotes, " or ', that may stand around it.
std::string_view Unquote(std::string_view value);

// Digits after an optional sign, decimal unless 0x, 0o or 0b stands before them; 0 without any. Past 32 bits it
// wraps.
std::uint32_t ParseInteger(std::string_view value);

// Goes through the lines of a section as a reader of the whole section sees them: comments and empty lines are left
// out, blanks around name and value are gone, a line without '=' stands as it is.
class SectionLines {
 public:
  struct Line {
    std::string_view name;
    bool hasValue = false;
    std::string_view value;
  };

  SectionLines(std::string_view text, std::string_view section);
  bool Next(Line& line);

 private:
  std::string_view text_;
  std::size_t at_;
};

// The bytes from begin to end give way to `insert`.
struct Edit {
  std::size_t begin = 0;
  std::size_t end = 0;
  std::string insert;
};

// Whether the text can carry them so that they read back as they are; a name must also not begin a comment or header.
bool IsSectionName(std::string_view section);
bool IsKeyName(std::string_view key);
bool IsValue(std::string_view value);

// Names that passed the tests above. An existing key gets the value in place, a new one comes behind the last line of
// its section that isn't empty, a new section at the end; new lines end as the first line of the text does.
Edit SetValue(std::string_view text, std::string_view section, std::string_view key, std::string_view value);
// Nothing when there is nothing to remove.
std::optional<Edit> RemoveKey(std::string_view text, std::string_view section, std::string_view key);
std::optional<Edit> RemoveSection(std::string_view text, std::string_view section);

}  // namespace set32::profile_text
