#include <algorithm>
#include <random>

#include "apps/stage/model/headless_system.h"
#include "boundary/option_keys.h"
#include "fuzz/seeds/seeds.h"
#include "fuzz/support/choices.h"
#include "fuzz/support/file_marks.h"
#include "platform/profile_engine.h"
#include "profile/config_items.h"
#include "profile/hex_text.h"
#include "profile/profile_keys.h"
#include "scanner/list_file.h"
#include "tests/support/memory_files.h"

namespace set32::fuzz {

namespace {

constexpr const char* path = "file";
constexpr char allActs = 0x1F;  // of the configurations' list, on the bytes as they stand

// A file as the profile calls write it.
class ProfileFile {
 public:
  explicit ProfileFile(const std::string& content = {}) {
    if (!content.empty()) files_.content[path] = content;
  }
  ProfileFile& Write(const char* section, const char* key, const std::string& value) {
    engine_.WriteString(section, key, value.c_str(), path);
    return *this;
  }
  template <typename Key>
  ProfileFile& Write(const Key& key, const std::string& value) {
    return Write(key.section, key.name, value);
  }
  const std::string& Text() { return files_.content[path]; }

 private:
  MemoryFiles files_;
  ProfileEngine engine_{files_};
};

std::string ItemText(const ScanSettings& settings, std::uint8_t editable) {
  const std::string bytes = BytesIn(ScanConfigItem{settings, editable, editable, {}});
  return EncodeHex(BytesOf(bytes));
}

std::string Options(int face) {
  ProfileFile file;
  for (const IntegerKey& key :
       {option_key::oem, option_key::lowLevelDriver, option_key::paperSourceControls, option_key::feederAutoCrop})
    file.Write(key, "1");
  for (const TextKey& key :
       {option_key::productName, option_key::application, option_key::highBitApplications, option_key::defaultDevice})
    file.Write(key, "a");
  file.Write(option_key::paperSource, "2").Write(option_key::hasCrop, "0");
  return file.Write(option_key::uiFace, std::to_string(face)).Text();
}

std::string ModuleSettingsFile(int driverType) {
  ProfileFile file;
  file.Write(module_key::runtimeOptionsName, "o.ini").Write(module_key::profileName, "p.ini");
  file.Write(module_key::scannerListName, "l.dat").Write(module_key::driverType, std::to_string(driverType));
  return file.Write(module_key::deviceIds[1], "VID_1234&PID_5678").Text();
}

// With the neutral values of every mode.
std::string WithDefaults(const std::string& profile) {
  ProfileFile file(profile);
  for (const std::uint32_t scanMode : {mode::colour, mode::gray, mode::blackWhite}) {
    const profile_key::AdjustmentKeys keys = profile_key::AdjustmentKeysOf(scanMode);
    for (const char* key : {keys.brightness, keys.contrast, keys.gamma}) {
      if (key != nullptr) file.Write(profile_key::defaultSettings, key, "1.5");
    }
  }
  return file.Write(profile_key::defaultSettings, profile_key::jpegQuality, "7").Text();
}

std::string ScannerList() {
  MemoryFiles files;
  ProfileEngine engine(files);
  CScannerList list;
  list.AddScannerEntry(scanner_type::network, 0x0A00, 0x0001, networkScannerPort, "", SCANNER_FLAG_ADDED);
  list.AddScannerEntry(scanner_type::usb, 0x0C5A, 0x0E72, 3, usbScannerName, 0);
  list.selectedIndex = 1;
  WriteListFile(engine, path, list);
  return files.content[path];
}

// Without the byte that the files begin with.
std::string ActsBeforeFiles(std::mt19937& random) {
  constexpr std::size_t size = 60;
  std::string acts(size, '\0');
  for (char& act : acts) act = static_cast<char>(random());
  std::ranges::replace(acts, fileMark, '\0');
  return acts;
}

void AddDictionaries(Seeds& seeds) {
  std::vector<std::string> words = {"\n[", "]\n", "=", "\r\n", ";", "\""};
  const auto add = [&](const auto& key) { words.insert(words.end(), {key.section, std::string(key.name) + '='}); };
  for (const TextKey& key : {module_key::runtimeOptionsName, module_key::profileName, module_key::scannerListName,
                             module_key::deviceIds[0], hardware_key::dialogPlace, option_key::productName,
                             option_key::application, option_key::highBitApplications, option_key::defaultDevice}) {
    add(key);
    words.emplace_back(key.fallback);
  }
  for (const IntegerKey& key : {module_key::driverType, hardware_key::highBitControl, option_key::uiFace,
                                option_key::oem, option_key::lowLevelDriver, option_key::paperSourceControls,
                                option_key::paperSource, option_key::hasCrop, option_key::feederAutoCrop})
    add(key);
  for (const char* word : {profile_key::configItems, profile_key::tmpSection, profile_key::selected,
                           profile_key::defaultSettings, profile_key::jpegQuality})
    words.emplace_back(word);
  for (std::uint32_t source = paper_source::flatbed; source <= paper_source::negative; ++source)
    words.emplace_back(profile_key::SelectedKey(source));
  for (const char* target : {"fuzz_profile", "fuzz_config_list", "fuzz_module_files"}) seeds.AddWords(target, words);
  std::vector<std::string> marks;
  for (const auto& [mark, file] : markedRoles) marks.push_back(Marked(file, ""));
  seeds.AddWords("fuzz_module_files", marks);
}

}  // namespace

void AddProfiles(Seeds& seeds) {
  SimulatedClock clock;
  HeadlessSystem system(clock, 0x0409);
  const std::string fresh = WithDefaults(FreshProfile(system));
  ScanSettings settings = MakeSettings(system, {});
  const std::string guarded = ItemText(settings, 0);
  settings.paperSource = paper_source::feeder;
  settings.sizeId = size_id::userDefined;
  const std::string own = ItemText(settings, 1);
  const std::string small = ProfileFile()
                                .Write(profile_key::configItems, "one", guarded)
                                .Write(profile_key::configItems, "two", own)
                                .Write(profile_key::tmpSection, profile_key::tmp, own)
                                .Write(profile_key::selected, profile_key::SelectedKey(0), "1")
                                .Text();

  for (const std::string& profile : {small, fresh}) {
    seeds.Add("fuzz_config_list", profile + allActs);
    seeds.Add("fuzz_config_list", "two\n" + profile + allActs);
    seeds.Add("fuzz_profile", "Config Items\tone\tvalue\n" + profile);
    seeds.Add("fuzz_profile", "Selected\tActive\t\"7\"\n" + profile);
    seeds.Add("fuzz_profile", "new\tkey\tvalue\n" + profile);
  }
  for (const char offset : {'\0', '\4'}) {
    seeds.Add("fuzz_hex_record", std::string{offset, '\xC8'} + own);
    seeds.Add("fuzz_hex_record", std::string{offset, '\x10'} + own.substr(0, 41));
  }
  seeds.AddWords("fuzz_hex_record", {"0", "ff", "DEADBEEF"});

  std::mt19937 random;
  for (const int face : {0, 1}) {
    for (const std::string& profile : {small, fresh}) {
      for (const int driverType : {0, 3}) {
        std::string input = ActsBeforeFiles(random);
        input += Marked(ModuleFile::module, ModuleSettingsFile(driverType));
        input += Marked(ModuleFile::hardware, ProfileFile().Write(hardware_key::dialogPlace, "40,50").Text());
        input += Marked(ModuleFile::options, Options(face));
        input += Marked(ModuleFile::profile, profile);
        seeds.Add("fuzz_module_files", input + Marked(ModuleFile::list, ScannerList()));
      }
    }
  }
  seeds.Add("fuzz_scanner_list", ScannerList());
  seeds.AddWords("fuzz_scanner_list", {ScannerList().substr(0, 4), std::string(usbScannerName)});
  AddDictionaries(seeds);
}

}  // namespace set32::fuzz
