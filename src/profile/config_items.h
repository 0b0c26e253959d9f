// Scan configurations as they stand in the profile: section "Config Items", one line a configuration, the key its
// name and the value a ScanConfigItem in hexadecimal digits. Free of windows. Host's thread only.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/profile_calls.h"
#include "platform/system.h"
#include "set32/host_records.h"

namespace set32 {

// One line of the section: the name without its blanks, and the bytes of an item that its value holds, by the rules
// of CProfileFile::GetBinary: at most 200, and none where a character is foreign.
struct ConfigEntry {
  std::string_view name;
  std::span<const std::uint8_t> item;
};

// All configurations of a profile, in file order, read in one pass. Of equal names each has the first one's value, as
// the profile calls find it. A file may hold a million names, or say one a million times: beside the section's text
// a few bytes a name are kept, and no value is gone through more than once.
class ConfigEntries {
 public:
  ConfigEntries(ProfileCalls& calls, const std::string& profilePath);

  // The next one; what it shows stays until the call after this. False at the end.
  bool Next(ConfigEntry& entry);

 private:
  // Where a name first stands: the place of its line plus 1, with the mark where its value holds no item; 0 is none.
  using First = std::uint32_t;
  static constexpr First noItem = 0x80000000;

  // All that stands behind the start of the line that an entry of the table names.
  std::string_view TextFrom(First first) const;
  // The name's own entry in the table, or the free one for it.
  First& Slot(std::string_view name);
  void Grow();

  std::unique_ptr<const char[]> text_;
  std::size_t size_ = 0;
  std::size_t at_ = 0;
  std::vector<First> firsts_;  // by the name's hash, the next free one where that is taken; never full
  std::size_t names_ = 0;
  std::size_t most_ = 0;                                     // entries that the text's lines can need
  std::array<std::uint8_t, sizeof(ScanConfigItem)> item_{};  // of the present entry
};

// Lays what is stored over an item: a short value replaces the start. Result: bytes replaced.
std::size_t CopyStoredItem(const ConfigEntry& entry, ScanConfigItem& item);

// The same for the one that a name stands for; nothing when there is none.
std::optional<std::size_t> ReadStoredItem(ProfileCalls& calls, const std::string& profilePath, std::string_view name,
                                          ScanConfigItem& item);

// Whether the file would take two names for one key: blanks at the ends and ASCII letter case don't count.
bool IsSameKey(std::string_view one, std::string_view other);

// The same for names whose blanks count.
bool IsSameName(std::string_view one, std::string_view other);

// Whether a name can be a key at all: not blank, no '=', no line end, no leading '[' or ';', which the file would
// read as something else and so lose the configuration.
bool IsUsableConfigName(std::string_view name);

// What became of an item that was to be stored: a guarded one is left as it is on purpose, since it isn't editable or
// its stored form can't be read; `failed` is the file's fault.
enum class Stored { written, guarded, failed };

// Writes one item under its name. The flags of a stored item never change.
Stored StoreConfigItem(ProfileCalls& calls, const std::string& profilePath, const std::string& name,
                       ScanConfigItem item);

bool RemoveConfigItem(ProfileCalls& calls, const std::string& profilePath, const std::string& name);

// The five inputs of a new record.
struct SettingsInputs {
  std::string name;  // cut at 19 bytes, at the start of a character
  std::uint32_t mode = mode::colour;
  std::uint32_t resolutionId = resolution::dpi100;
  std::int32_t dpi = 100;
  std::uint32_t paperSource = paper_source::flatbed;
};

// A new record: 8.5 by 11 inches, Letter on an English system, else A4 by name.
ScanSettings MakeSettings(System& system, const SettingsInputs& inputs);

// The whole text of a fresh profile: ten factory configurations, `Tmp` and the selected rows.
std::string FreshProfile(System& system);

}  // namespace set32
