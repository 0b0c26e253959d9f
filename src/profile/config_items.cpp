#include "profile/config_items.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <iterator>
#include <span>
#include <unordered_map>

#include "platform/letter_case.h"
#include "platform/profile_text.h"
#include "profile/hex_text.h"
#include "profile/profile_file.h"
#include "profile/profile_keys.h"
#include "resources/ids.h"
#include "resources/strings.h"

namespace set32 {

static_assert(std::endian::native == std::endian::little, "records are stored as they stand in memory");

namespace {

// The section's lines in one read as a rule; a section past the first guess is read again.
std::string ReadSection(ProfileCalls& calls, const std::string& profilePath) {
  std::string text(0x8000, '\0');
  for (;;) {
    const std::size_t stored = calls.GetSection(profile_key::configItems, text, profilePath.c_str());
    if (stored + 2 < text.size()) {
      text.resize(stored);
      return text;
    }
    text.assign(text.size() * 2, '\0');
  }
}

std::span<std::uint8_t> BytesOf(ScanConfigItem& item) {
  return {reinterpret_cast<std::uint8_t*>(&item), sizeof(item)};
}

// The bytes of an item that a value holds.
std::shared_ptr<const std::vector<std::uint8_t>> DecodeItem(std::string_view value) {
  auto bytes = std::make_shared<std::vector<std::uint8_t>>(std::min(value.size() / 2, sizeof(ScanConfigItem)));
  bytes->resize(DecodeHex(value, *bytes, 0));
  return bytes;
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

std::vector<ConfigEntry> ReadConfigEntries(ProfileCalls& calls, const std::string& profilePath) {
  const std::string text = ReadSection(calls, profilePath);
  std::vector<ConfigEntry> entries;
  std::unordered_map<std::string, std::size_t> firsts;  // by folded name
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view line = rest.substr(0, rest.find('\0'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || equals == 0) continue;
    const std::string_view name = profile_text::Trim(line.substr(0, equals));
    const auto [first, isFirst] = firsts.try_emplace(Folded(name), entries.size());
    // A file may say a name thousands of times: what the first one holds is decoded and kept once.
    entries.push_back(
        {std::string(name), isFirst ? DecodeItem(profile_text::Unquote(profile_text::Trim(line.substr(equals + 1))))
                                    : entries[first->second].item});
  }
  return entries;
}

std::size_t CopyStoredItem(const ConfigEntry& entry, ScanConfigItem& item) {
  std::ranges::copy(*entry.item, BytesOf(item).begin());
  return entry.item->size();
}

bool IsSameKey(std::string_view one, std::string_view other) {
  return IsSameName(profile_text::Trim(one), profile_text::Trim(other));
}

bool IsSameName(std::string_view one, std::string_view other) {
  return EqualFolded(one, other);
}

const ConfigEntry* FindConfigEntry(const std::vector<ConfigEntry>& entries, std::string_view name) {
  const auto found =
      std::ranges::find_if(entries, [&](const ConfigEntry& entry) { return IsSameKey(entry.name, name); });
  return found != entries.end() ? &*found : nullptr;
}

bool IsUsableConfigName(std::string_view name) {
  if (name.find_first_not_of(' ') == std::string_view::npos) return false;
  // A name of other blanks alone passes; the file then takes nothing.
  const bool isBlank = profile_text::Trim(name).empty();
  return isBlank ? name.find_first_of("\r\n") == std::string_view::npos : profile_text::IsKeyName(name);
}

Stored StoreConfigItem(ProfileCalls& calls, const std::string& profilePath, const std::string& name,
                       ScanConfigItem item) {
  const std::vector<ConfigEntry> entries = ReadConfigEntries(calls, profilePath);
  if (const ConfigEntry* stored = FindConfigEntry(entries, name)) {
    ScanConfigItem present{};
    if (CopyStoredItem(*stored, present) < offsetof(ScanConfigItem, reserved)) return Stored::guarded;
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

ScanSettings MakeSettings(System& system, const NewSettings& inputs) {
  constexpr std::uint16_t primaryLanguageBits = 0x3FF;
  constexpr std::uint16_t english = 9;

  ScanSettings settings{};
  const std::string_view name = CutAtCharacter(system, inputs.name, sizeof(settings.name) - 1);
  std::memcpy(settings.name, name.data(), name.size());
  settings.mode = inputs.mode;
  settings.resolutionId = inputs.resolutionId;
  settings.dpi = inputs.dpi;
  settings.paperSource = inputs.paperSource;
  settings.useDefaults = 1;
  settings.gammaAll = settings.gammaRed = settings.gammaGreen = settings.gammaBlue = 1.0;
  settings.width = settings.customWidth = 8.5;
  settings.height = settings.customHeight = 11.0;
  settings.jpegQuality = 9;
  settings.sizeId = (system.DefaultLanguage() & primaryLanguageBits) == english ? size_id::letter : size_id::a4;
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
