#include "profile/profile_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

#include "profile/hex_text.h"
#include "profile/stored_number.h"

namespace set32 {

namespace {

constexpr std::size_t firstCapacity = 512;
// Past this a profile's text is cut, whatever the calls report.
constexpr std::size_t largestCapacity = std::size_t{64} << 20;
// An integer's text is read up to here.
constexpr std::size_t numberBytes = 64;

std::uint32_t RadixOf(int radix) {
  return radix == 2 || radix == 8 || radix == 16 ? static_cast<std::uint32_t>(radix) : 10;
}

const char* OrEmpty(const char* text) {
  return text == nullptr ? "" : text;
}

// Reads with a growing capacity until the count shows that nothing was cut. The capacity doubles, so that a text of
// any length costs no more than twice its own reading. `reserve` is how many bytes stay free in a buffer that was
// large enough.
template <typename ReadInto>
std::string ReadGrowing(std::size_t reserve, ReadInto readInto) {
  std::string text;
  for (std::size_t capacity = firstCapacity;; capacity *= 2) {
    text.resize(capacity);
    const std::size_t count = std::min(readInto(std::span<char>(text)), capacity);
    if (count + reserve < capacity || capacity >= largestCapacity) {
      text.resize(count);
      return text;
    }
  }
}

// The section's lines as a packed list without its closing NUL, which the string supplies.
std::string ReadSection(ProfileCalls& calls, const char* section, const char* file) {
  return ReadGrowing(2, [&](std::span<char> out) { return calls.GetSection(section, out, file); });
}

// Collects the key names of a packed list of lines.
int TakeKeyName(const char* line, void* context) {
  const char* const equals = std::strchr(line, '=');
  if (equals == nullptr || equals == line) return 1;
  std::string name(line, equals);
  TrimBlanks(name.data());
  name.resize(std::strlen(name.c_str()));
  static_cast<std::vector<std::string>*>(context)->push_back(std::move(name));
  return 1;
}

std::vector<std::string> ReadKeyNames(ProfileCalls& calls, const char* section, const char* file) {
  std::vector<std::string> names;
  ForEachString(ReadSection(calls, section, file).c_str(), TakeKeyName, &names);
  return names;
}

bool IsTrimmed(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

std::string FormatInteger(std::uint32_t value, std::uint32_t radix) {
  std::array<char, 33> digits{};
  char* const end = digits.data() + digits.size();
  const auto written = radix == 10 ? std::to_chars(digits.data(), end, static_cast<std::int32_t>(value))
                                   : std::to_chars(digits.data(), end, value, static_cast<int>(radix));
  std::string text(digits.data(), written.ptr);
  for (char& digit : text) {
    if (digit >= 'a' && digit <= 'f') digit = static_cast<char>(digit - 'a' + 'A');
  }
  return text;
}

}  // namespace

void CProfileFile::SetFileName(const char* path) {
  if (path != nullptr) {
    file_ = path;
  } else if (file_) {
    file_->clear();
  }
}

std::string CProfileFile::ReadValue(const char* section, const char* key, const char* fallback) const {
  if (section == nullptr || key == nullptr) return OrEmpty(fallback);
  return ReadGrowing(
      1, [&](std::span<char> out) { return calls_.GetString(section, key, OrEmpty(fallback), out, FileName()); });
}

std::size_t CProfileFile::GetString(const char* section, const char* key, std::span<char> out,
                                    const char* fallback) const {
  const std::string value = ReadValue(section, key, fallback);
  if (out.data() == nullptr) return value.size();
  const std::size_t count = std::min(value.size(), out.size());
  const auto rest = std::copy_n(value.begin(), count, out.begin());
  std::fill(rest, out.end(), '\0');
  return count;
}

bool CProfileFile::WriteString(const char* section, const char* key, const char* value) const {
  if (section == nullptr || key == nullptr) return false;
  return calls_.WriteString(section, key, OrEmpty(value), FileName());
}

std::uint32_t CProfileFile::GetInteger(const char* section, const char* key, std::uint32_t fallback,
                                       int radix) const {
  const std::string text = ReadValue(section, key, nullptr);
  if (text.empty()) return fallback;
  return ParseUnsigned(std::string_view(text).substr(0, numberBytes), RadixOf(radix));
}

double CProfileFile::GetDouble(const char* section, const char* key, double fallback) const {
  const std::string text = ReadValue(section, key, nullptr);
  if (text.empty()) return fallback;
  return ParseDouble(std::string_view(text).substr(0, numberBytes));
}

bool CProfileFile::WriteInteger(const char* section, const char* key, std::uint32_t value, int radix) const {
  return WriteString(section, key, FormatInteger(value, RadixOf(radix)).c_str());
}

std::size_t CProfileFile::GetBinary(const char* section, const char* key, std::span<std::uint8_t> out,
                                    std::size_t offset) const {
  const std::string text = ReadValue(section, key, nullptr);
  return out.data() == nullptr ? CountHex(text, offset) : DecodeHex(text, out, offset);
}

bool CProfileFile::WriteBinary(const char* section, const char* key, std::span<const std::uint8_t> data) const {
  if (data.data() == nullptr) return false;
  return WriteString(section, key, EncodeHex(data).c_str());
}

std::size_t CProfileFile::GetSectionText(const char* section, std::span<char> out) const {
  if (!out.empty()) out[0] = '\0';
  if (section == nullptr) return 0;
  if (out.data() != nullptr) return calls_.GetSection(section, out, FileName());
  return ReadSection(calls_, section, FileName()).size() + 2;
}

std::size_t CProfileFile::GetKeyList(const char* section, std::span<char> out) const {
  if (!out.empty()) out[0] = '\0';
  if (section == nullptr) return 0;
  std::size_t total = 0;
  for (const std::string& name : ReadKeyNames(calls_, section, FileName())) {
    std::size_t length = name.size();
    if (out.data() != nullptr) {
      // The last byte is the list's own.
      if (total + 1 >= out.size()) break;
      length = std::min(length, out.size() - 1 - total - 1);
      std::copy_n(name.data(), length, out.data() + total);
      out[total + length] = '\0';
    }
    total += length + 1;
  }
  if (total < out.size()) out[total] = '\0';
  return total;
}

void CProfileFile::GetKeyNames(const char* section, std::vector<std::string>* names) const {
  if (names == nullptr) return;
  names->clear();
  if (section != nullptr) *names = ReadKeyNames(calls_, section, FileName());
}

bool CProfileFile::DeleteSection(const char* section) const {
  return calls_.WriteString(section, nullptr, nullptr, FileName());
}

bool CProfileFile::DeleteKey(const char* section, const char* key) const {
  // Without a key the call below would remove the whole section.
  return key != nullptr && calls_.WriteString(section, key, nullptr, FileName());
}

int ForEachString(const char* list, StringCallback callback, void* context) {
  if (list == nullptr || callback == nullptr) return 0;
  for (const char* text = list; *text != '\0'; text += std::strlen(text) + 1) {
    if (callback(text, context) == 0) return 0;
  }
  return 1;
}

bool TrimBlanks(char* text) {
  if (text == nullptr) return false;
  const std::size_t length = std::strlen(text);
  std::size_t end = length;
  while (end > 0 && IsTrimmed(text[end - 1])) --end;
  std::size_t begin = 0;
  while (begin < end && IsTrimmed(text[begin])) ++begin;
  std::memmove(text, text + begin, end - begin);
  text[end - begin] = '\0';
  return end - begin < length;
}

}  // namespace set32
