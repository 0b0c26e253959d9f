// Scan configurations as they stand in the profile: section "Config Items", one line a configuration, the key its
// name and the value a ScanConfigItem in hexadecimal digits. Free of windows. Host's thread only.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host_records.h"
#include "platform/profile_calls.h"
#include "platform/system.h"

namespace set32 {

// One line of the section: the name without its blanks, and the bytes of an item that its value holds, by the rules
// of CProfileFile::GetBinary: at most 200, and none where a character is foreign. Lines of one name share them.
struct ConfigEntry {
  std::string name;
  std::shared_ptr<const std::vector<std::uint8_t>> item;
};

// All configurations of a profile, in file order, read in one pass. Of equal names each reads the first one's value,
// as the profile calls find it.
std::vector<ConfigEntry> ReadConfigEntries(ProfileCalls& calls, const std::string& profilePath);

// Lays what is stored over an item: a short value replaces the start. Result: bytes replaced.
std::size_t CopyStoredItem(const ConfigEntry& entry, ScanConfigItem& item);

// Whether the file would take two names for one key: blanks at the ends and ASCII letter case don't count.
bool IsSameKey(std::string_view one, std::string_view other);

// The same for names whose blanks count.
bool IsSameName(std::string_view one, std::string_view other);

// The entry that a name stands for, null when there is none.
const ConfigEntry* FindConfigEntry(const std::vector<ConfigEntry>& entries, std::string_view name);

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
struct NewSettings {
  std::string name;  // cut at 19 bytes, at the start of a character
  std::uint32_t mode = mode::colour;
  std::uint32_t resolutionId = resolution::dpi100;
  std::int32_t dpi = 100;
  std::uint32_t paperSource = paper_source::flatbed;
};

// A new record: 8.5 by 11 inches, Letter on an English system, else A4 by name.
ScanSettings MakeSettings(System& system, const NewSettings& inputs);

// The whole text of a fresh profile: ten factory configurations, `Tmp` and the selected rows.
std::string FreshProfile(System& system);

}  // namespace set32
