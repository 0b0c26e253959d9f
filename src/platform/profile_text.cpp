#include "platform/profile_text.h"

#include <algorithm>

#include "platform/letter_case.h"

namespace set32::profile_text {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view lineEnds = "\r\n";

// One line: its text without LF and without blanks at its ends, and where it lies in the file.
struct RawLine {
  std::string_view text;
  std::size_t begin = 0;
  std::size_t next = 0;  // where the following line begins
};

constexpr bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f';
}

std::size_t TextStart(std::string_view text) {
  return text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
}

// The line at this place; false at the end of the text.
bool LineAt(std::string_view text, std::size_t at, RawLine& line) {
  if (at >= text.size()) return false;
  const std::size_t end = std::min(text.find('\n', at), text.size());
  line.text = Trim(text.substr(at, end - at));
  line.begin = at;
  line.next = std::min(end + 1, text.size());
  return true;
}

bool IsComment(std::string_view line) {
  return line.starts_with(';');
}

// The name between the brackets, whatever follows them. A line without the closing bracket is no header.
std::optional<std::string_view> HeaderName(std::string_view line) {
  if (!line.starts_with('[')) return std::nullopt;
  const std::size_t close = line.find(']');
  if (close == std::string_view::npos) return std::nullopt;
  return Trim(line.substr(1, close - 1));
}

// Whether the line holds this key; `equals` is then the place of the '=' in it.
bool HoldsKey(std::string_view line, std::string_view key, std::size_t& equals) {
  if (line.size() <= key.size() || !EqualFolded(line.substr(0, key.size()), key)) return false;
  equals = key.size();
  while (equals < line.size() && IsBlank(line[equals])) ++equals;
  return equals < line.size() && line[equals] == '=';
}

bool FindHeader(std::string_view text, std::string_view section, RawLine& header) {
  section = Trim(section);
  for (std::size_t at = TextStart(text); LineAt(text, at, header); at = header.next) {
    const auto name = HeaderName(header.text);
    if (name && EqualFolded(*name, section)) return true;
  }
  return false;
}

struct KeyPlace {
  RawLine line;
  std::size_t equals = 0;  // in line.text
};

// Searches the section whose lines begin at `at`.
bool FindKey(std::string_view text, std::size_t at, std::string_view key, KeyPlace& place) {
  key = Trim(key);
  if (key.empty() || IsComment(key) || key.find('=') != std::string_view::npos) return false;
  for (; LineAt(text, at, place.line) && !HeaderName(place.line.text); at = place.line.next) {
    if (HoldsKey(place.line.text, key, place.equals)) return true;
  }
  return false;
}

bool FindKey(std::string_view text, std::string_view section, std::string_view key, KeyPlace& place) {
  RawLine header;
  return FindHeader(text, section, header) && FindKey(text, header.next, key, place);
}

// What a reader may take of the text behind the '='.
std::string_view ValueText(std::string_view text) {
  return Trim(text.substr(0, text.find('\0')));
}

std::string_view LineEndOf(std::string_view text) {
  const std::size_t end = text.find('\n');
  const bool bare = end != std::string_view::npos && (end == 0 || text[end - 1] != '\r');
  return bare ? "\n" : "\r\n";
}

std::string LineText(std::string_view key, std::string_view value, std::string_view lineEnd) {
  std::string line;
  line.reserve(key.size() + value.size() + 1 + lineEnd.size());
  return line.append(Trim(key)).append("=").append(value).append(lineEnd);
}

// A new line at `at`, behind what stands there.
Edit InsertLines(std::string_view text, std::size_t at, std::string lines) {
  const bool open = at > TextStart(text) && text[at - 1] != '\n';
  if (open) lines.insert(0, LineEndOf(text));
  return {at, at, std::move(lines)};
}

// Where a new key goes: behind the last line of the section that isn't empty.
std::size_t SectionTail(std::string_view text, const RawLine& header) {
  std::size_t tail = header.next;
  RawLine line;
  for (std::size_t at = header.next; LineAt(text, at, line) && !HeaderName(line.text); at = line.next) {
    if (!line.text.empty()) tail = line.next;
  }
  return tail;
}

int DigitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  const char folded = Folded(c);
  return folded >= 'a' && folded <= 'f' ? folded - 'a' + 10 : 16;
}

// Takes a prefix that names a base off the text.
std::uint32_t TakeBase(std::string_view& text) {
  constexpr struct {
    std::string_view prefix;
    std::uint32_t base;
  } bases[] = {{"0x", 16}, {"0o", 8}, {"0b", 2}};
  for (const auto& entry : bases) {
    if (!text.starts_with(entry.prefix)) continue;
    text.remove_prefix(entry.prefix.size());
    return entry.base;
  }
  return 10;
}

}  // namespace

std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::optional<std::string_view> FindValue(std::string_view text, std::string_view section, std::string_view key) {
  KeyPlace place;
  if (!FindKey(text, section, key, place)) return std::nullopt;
  return ValueText(place.line.text.substr(place.equals + 1));
}

std::string_view Unquote(std::string_view value) {
  if (value.size() < 2 || value.front() != value.back()) return value;
  if (value.front() != '"' && value.front() != '\'') return value;
  return value.substr(1, value.size() - 2);
}

std::uint32_t ParseInteger(std::string_view value) {
  value = Trim(value);
  const bool negative = value.starts_with('-');
  if (negative || value.starts_with('+')) value.remove_prefix(1);
  const std::uint32_t base = TakeBase(value);
  std::uint32_t number = 0;
  for (const char c : value) {
    const auto digit = static_cast<std::uint32_t>(DigitValue(c));
    if (digit >= base) break;
    number = number * base + digit;
  }
  return negative ? 0 - number : number;
}

SectionLines::SectionLines(std::string_view text, std::string_view section) : text_(text), at_(text.size()) {
  RawLine header;
  if (FindHeader(text, section, header)) at_ = header.next;
}

bool SectionLines::Next(Line& line) {
  for (RawLine raw; LineAt(text_, at_, raw) && !HeaderName(raw.text);) {
    at_ = raw.next;
    const std::string_view visible = ValueText(raw.text);
    if (visible.empty() || IsComment(visible)) continue;
    const std::size_t equals = visible.find('=');
    line.name = Trim(visible.substr(0, equals));
    line.hasValue = equals != std::string_view::npos;
    line.value = line.hasValue ? Trim(visible.substr(equals + 1)) : std::string_view();
    return true;
  }
  return false;
}

bool IsSectionName(std::string_view section) {
  return section.find_first_of("]\r\n") == std::string_view::npos;
}

bool IsKeyName(std::string_view key) {
  key = Trim(key);
  if (key.empty() || IsComment(key) || key.starts_with('[')) return false;
  return key.find_first_of("=\r\n") == std::string_view::npos;
}

bool IsValue(std::string_view value) {
  return value.find_first_of(lineEnds) == std::string_view::npos;
}

Edit SetValue(std::string_view text, std::string_view section, std::string_view key, std::string_view value) {
  const std::string_view lineEnd = LineEndOf(text);
  RawLine header;
  if (!FindHeader(text, section, header)) {
    std::string lines = "[";
    lines.append(Trim(section)).append("]").append(lineEnd).append(LineText(key, value, lineEnd));
    return InsertLines(text, text.size(), std::move(lines));
  }
  KeyPlace place;
  if (!FindKey(text, header.next, key, place)) {
    return InsertLines(text, SectionTail(text, header), LineText(key, value, lineEnd));
  }
  // Blanks behind the value go with it; the CR of the line end stays.
  const auto begin = static_cast<std::size_t>(place.line.text.data() - text.data()) + place.equals + 1;
  std::size_t end = std::min(text.find('\n', begin), text.size());
  if (end > begin && end < text.size() && text[end - 1] == '\r') --end;
  return {begin, end, std::string(value)};
}

std::optional<Edit> RemoveKey(std::string_view text, std::string_view section, std::string_view key) {
  KeyPlace place;
  if (!FindKey(text, section, key, place)) return std::nullopt;
  return Edit{place.line.begin, place.line.next, {}};
}

std::optional<Edit> RemoveSection(std::string_view text, std::string_view section) {
  RawLine header;
  if (!FindHeader(text, section, header)) return std::nullopt;
  std::size_t end = header.next;
  for (RawLine line; LineAt(text, end, line) && !HeaderName(line.text);) end = line.next;
  return Edit{header.begin, end, {}};
}

}  // namespace set32::profile_text
