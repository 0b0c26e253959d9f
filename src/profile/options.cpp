#include "profile/options.h"

#include <algorithm>

#include "controls/number_text.h"
#include "profile/profile_keys.h"
#include "set32/host_records.h"

namespace set32 {

FileNames ModuleSettings::Names() const {
  return SettleFileNames(system_, {.runtimeOptions = file_.Read(module_key::runtimeOptionsName),
                                   .profile = file_.Read(module_key::profileName),
                                   .scannerList = file_.Read(module_key::scannerListName)});
}

std::string RuntimeOptions::ProductName(const std::string& ownName) const {
  return IsOem() ? file_.Read(option_key::productName) : ownName;
}

bool RuntimeOptions::HighBitRestricted() const {
  return !ListsApplication(file_.Read(option_key::highBitApplications), file_.Read(option_key::application));
}

bool RuntimeOptions::PaperSourceControlsShown() const {
  return HasLowLevelDriver() && file_.Read(option_key::paperSourceControls) != 0;
}

bool ListsApplication(std::string_view list, std::string_view application) {
  while (!list.empty()) {
    const std::size_t comma = std::min(list.find(','), list.size());
    if (comma > 0 && list.substr(0, comma) == application) return true;
    list.remove_prefix(std::min(comma + 1, list.size()));
  }
  return false;
}

AdjustmentDefaults ReadAdjustmentDefaults(const CProfileFile& profile, std::uint32_t mode) {
  const profile_key::AdjustmentKeys keys = profile_key::AdjustmentKeysOf(mode);
  const auto integer = [&](const char* key) {
    return static_cast<std::int32_t>(profile.GetInteger(profile_key::defaultSettings, key, 0, 10));
  };
  AdjustmentDefaults values;
  if (keys.brightness != nullptr) values.brightness = integer(keys.brightness);
  if (keys.contrast != nullptr) values.contrast = integer(keys.contrast);
  if (keys.gamma != nullptr) values.gamma = profile.GetDouble(profile_key::defaultSettings, keys.gamma, 1.0);
  values.jpegQuality = CutToInt(profile.GetDouble(profile_key::defaultSettings, profile_key::jpegQuality, 9.0));
  return values;
}

}  // namespace set32
