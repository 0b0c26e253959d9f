#include "profile/config_items.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <iterator>
#include <span>
#include <utility>

#include "platform/letter_case.h"
#include "platform/profile_text.h"
#include "profile/hex_text.h"
#include "profile/profile_file.h"
#include "profile/profile_keys.h"
#include "resources/ids.h"
#include "resources/strings.h"
#include "set32/new_settings.h"

namespace set32 {

static_assert(std::endian::native == std::endian::little, "records are stored as they stand in memory");

namespace {

struct SectionText {
  std::unique_ptr<char[]> bytes;
  std::size_t size = 0;
};

// The section's lines in one read as a rule; a section past the first guess is read again. Memory that no line comes
// to is never touched.
SectionText ReadSection(ProfileCalls& calls, const std::string& profilePath) {
  for (std::size_t capacity = 0x8000;; capacity *= 8) {
    SectionText text{std::make_unique_for_overwrite<char[]>(capacity)};
    text.size = calls.GetSection(profile_key::configItems, {text.bytes.get(), capacity}, profilePath.c_str());
    if (text.size + 2 < capacity) return text;
  }
}

std::span<std::uint8_t> BytesOf(ScanConfigItem& item) {
  return {reinterpret_cast<std::uint8_t*>(&item), sizeof(item)};
}

// Of a text that begins with a line "name=value".
std::string_view NameOf(std::string_view line) {
  return profile_text::Trim(line.substr(0, line.find('=')));
}
std::string_view ValueOf(std::string_view line) {
  return profile_text::Unquote(profile_text::Trim(line.substr(line.find('=') + 1)));
}

// The digits that an item's value begins with, as many as can count, whatever the line's length.
std::string_view ItemDigits(std::string_view text) {
  constexpr std::string_view digits = "0123456789ABCDEFabcdef";
  text.remove_prefix(text.find('=') + 1);
  text.remove_prefix(std::min(text.find_first_of(digits), text.size()));
  text = text.substr(0, 2 * sizeof(ScanConfigItem));
  return text.substr(0, text.find_first_not_of(digits));
}

std::size_t HashFolded(std::string_view name) {
  std::uint32_t hash = 2166136261U;
  for (const char letter : name) hash = (hash ^ static_cast<std::uint8_t>(Folded(letter))) * 16777619U;
  return hash ^ (hash >> 15);
}

struct FactoryConfig {
  std::uint32_t mode;
  std::uint32_t resolutionId;
  std::int32_t dpi;
  std::uint32_t paperSource;
  std::uint8_t editable;
};

// In the order of the profile. Two rows of the feeder pair 300 dpi's code with another number; the code wins when a
// row is loaded.
constexpr std::array<FactoryConfig, 10> factoryConfigs = {{
    {mode::blackWhite, resolution::dpi300, 300, paper_source::flatbed, 0},
    {mode::blackWhite, resolution::dpi200, 200, paper_source::flatbed, 0},
    {mode::gray, resolution::dpi200, 200, paper_source::flatbed, 0},
    {mode::colour, resolution::dpi100, 100, paper_source::flatbed, 0},
    {mode::colour, resolution::dpi200, 200, paper_source::flatbed, 0},
    {mode::colour, resolution::dpi100, 100, paper_source::flatbed, 1},
    {mode::colour, resolution::dpi100, 100, paper_source::feeder, 0},
    {mode::colour, resolution::dpi300, 100, paper_source::feeder, 0},
    {mode::gray, resolution::dpi300, 600, paper_source::feeder, 0},
    {mode::colour, resolution::dpi100, 100, paper_source::feeder, 1},
}};

constexpr std::size_t flatbedCustomRow = 5;

constexpr const char* lineEnd = "\r\n";

}  // namespace

ConfigEntries::ConfigEntries(ProfileCalls& calls, const std::string& profilePath) : firsts_(64) {
  SectionText section = ReadSection(calls, profilePath);
  text_ = std::move(section.bytes);
  size_ = section.size;
  const auto lines = static_cast<std::size_t>(std::count(text_.get(), text_.get() + size_, '\0'));
  most_ = lines + lines / 7 + firsts_.size();
}

std::string_view ConfigEntries::TextFrom(First first) const {
  const std::size_t place = (first & ~noItem) - 1;
  return {text_.get() + place, size_ - place};
}

ConfigEntries::First& ConfigEntries::Slot(std::string_view name) {
  std::size_t at = HashFolded(name) % firsts_.size();
  while (firsts_[at] != 0 && !EqualFolded(NameOf(TextFrom(firsts_[at])), name)) at = (at + 1) % firsts_.size();
  return firsts_[at];
}

void ConfigEntries::Grow() {
  const std::vector<First> old = std::exchange(firsts_, std::vector<First>(std::min(firsts_.size() * 4, most_)));
  for (const First first : old) {
    if (first != 0) Slot(NameOf(TextFrom(first))) = first;
  }
}

bool ConfigEntries::Next(ConfigEntry& entry) {
  while (at_ < size_) {
    const auto place = static_cast<First>(at_ + 1);
    std::string_view line = TextFrom(place);
    line = line.substr(0, line.find('\0'));
    at_ += line.size() + 1;
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || equals == 0) continue;

    entry.name = NameOf(line);
    if (names_ >= firsts_.size() / 8 * 7 && firsts_.size() < most_) Grow();
    First& first = Slot(entry.name);
    if (first == 0) {
      ++names_;
      first = CountHex(ValueOf(line), 0) == 0 ? place | noItem : place;
    }
    const bool hasItem = (first & noItem) == 0;
    entry.item = std::span(item_).first(hasItem ? DecodeHex(ItemDigits(TextFrom(first)), item_, 0) : 0);
    return true;
  }
  return false;
}

std::size_t CopyStoredItem(const ConfigEntry& entry, ScanConfigItem& item) {
  std::ranges::copy(entry.item, BytesOf(item).begin());
  return entry.item.size();
}

std::optional<std::size_t> ReadStoredItem(ProfileCalls& calls, const std::string& profilePath, std::string_view name,
                                          ScanConfigItem& item) {
  ConfigEntries entries(calls, profilePath);
  for (ConfigEntry entry; entries.Next(entry);) {
    if (IsSameKey(entry.name, name)) return CopyStoredItem(entry, item);
  }
  return std::nullopt;
}

bool IsSameKey(std::string_view one, std::string_view other) {
  return IsSameName(profile_text::Trim(one), profile_text::Trim(other));
}

bool IsSameName(std::string_view one, std::string_view other) {
  return EqualFolded(one, other);
}

bool IsUsableConfigName(std::string_view name) {
  if (name.find_first_not_of(' ') == std::string_view::npos) return false;
  // A name of other blanks alone passes; the file then takes nothing.
  const bool isBlank = profile_text::Trim(name).empty();
  return isBlank ? name.find_first_of("\r\n") == std::string_view::npos : profile_text::IsKeyName(name);
}

Stored StoreConfigItem(ProfileCalls& calls, const std::string& profilePath, const std::string& name,
                       ScanConfigItem item) {
  ScanConfigItem present{};
  if (const auto stored = ReadStoredItem(calls, profilePath, name, present)) {
    if (*stored < offsetof(ScanConfigItem, reserved)) return Stored::guarded;
    item.editable = present.editable;
    item.deletable = present.deletable;
  }
  if (item.editable == 0) return Stored::guarded;
  std::ranges::fill(item.reserved, std::uint8_t{0});
  CProfileFile profile(calls);
  profile.SetFileName(profilePath.c_str());
  const bool isWritten = profile.WriteBinary(profile_key::configItems, name.c_str(), BytesOf(item));
  return isWritten ? Stored::written : Stored::failed;
}

bool RemoveConfigItem(ProfileCalls& calls, const std::string& profilePath, const std::string& name) {
  CProfileFile profile(calls);
  profile.SetFileName(profilePath.c_str());
  return profile.DeleteKey(profile_key::configItems, name.c_str());
}

ScanSettings MakeSettings(System& system, const SettingsInputs& inputs) {
  constexpr std::uint16_t primaryLanguageBits = 0x3FF;
  constexpr std::uint16_t english = 9;

  const bool isEnglish = (system.DefaultLanguage() & primaryLanguageBits) == english;
  ScanSettings settings = NewSettings(isEnglish ? size_id::letter : size_id::a4);
  const std::string_view name = CutAtCharacter(system, inputs.name, sizeof(settings.name) - 1);
  std::memcpy(settings.name, name.data(), name.size());
  settings.mode = inputs.mode;
  settings.resolutionId = inputs.resolutionId;
  settings.dpi = inputs.dpi;
  settings.paperSource = inputs.paperSource;
  return settings;
}

std::string FreshProfile(System& system) {
  std::string items;
  std::string tmp;
  for (std::size_t row = 0; row < factoryConfigs.size(); ++row) {
    const FactoryConfig& factory = factoryConfigs[row];
    const std::string name = LoadString(system, text::firstFactoryConfig + static_cast<int>(row));
    ScanConfigItem item{};
    item.settings =
        MakeSettings(system, {name, factory.mode, factory.resolutionId, factory.dpi, factory.paperSource});
    item.editable = factory.editable;
    const std::string value = EncodeHex(BytesOf(item));
    items.append(name).append("=").append(value).append(lineEnd);
    if (row == flatbedCustomRow) tmp = value;
  }
  // The first line is written as plain text, the others come from profile calls, whose lines end in CR LF.
  return "[Config Items]\n" + items +                         //
         "[Tmp]" + lineEnd + "Tmp=" + tmp + lineEnd +         //
         "[Selected]" + lineEnd + "Active=5" + lineEnd +      //
         "ADFActive=3" + lineEnd + "NTAActive=0" + lineEnd +  //
         "TAActive=0" + lineEnd;
}

}  // namespace set32
