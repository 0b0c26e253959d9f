#include "boundary/option_file.h"

#include <algorithm>

namespace set32 {

namespace {

// Longest character in bytes: as much more is read, so that a text is cut between characters and not in one.
constexpr std::size_t longestCharacter = 4;

}  // namespace

std::int32_t OptionFile::Read(const IntegerKey& key) const {
  return static_cast<std::int32_t>(calls_.GetInteger(key.section, key.name, key.fallback, path_.c_str()));
}

std::string OptionFile::Read(const TextKey& key) const {
  std::string text(key.maxBytes + longestCharacter + 1, '\0');
  text.resize(std::min(calls_.GetString(key.section, key.name, key.fallback, text, path_.c_str()), text.size()));
  text.resize(CutAtCharacter(system_, text, key.maxBytes).size());
  return text;
}

bool OptionFile::Write(const TextKey& key, const std::string& value) const {
  return calls_.WriteString(key.section, key.name, value.c_str(), path_.c_str());
}

}  // namespace set32
