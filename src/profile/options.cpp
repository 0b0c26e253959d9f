#include "profile/options.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "controls/number_text.h"
#include "host_records.h"
#include "profile/profile_keys.h"

namespace set32 {

namespace {

// Takes a number off the text, a comma before the next one with it.
std::optional<int> TakeNumber(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  if (text.starts_with('+')) text.remove_prefix(1);
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  if (text.starts_with(',')) {
    text.remove_prefix(1);
  } else {
    text = {};
  }
  return number;
}

}  // namespace

FileNames ModuleSettings::Names() const {
  return SettleFileNames(system_, {.runtimeOptions = file_.Read(module_key::runtimeOptionsName),
                                   .profile = file_.Read(module_key::profileName),
                                   .scannerList = file_.Read(module_key::scannerListName)});
}

std::optional<Point> HardwareOptions::DialogPlace() const {
  const std::string text = file_.Read(hardware_key::dialogPlace);
  std::string_view rest = text;
  const std::optional<int> x = TakeNumber(rest);
  const std::optional<int> y = TakeNumber(rest);
  if (!x || !y) return std::nullopt;
  return Point{*x, *y};
}

bool HardwareOptions::WriteDialogPlace(const Rect& place) const {
  std::string text;
  for (const int edge : {place.left, place.top, place.right, place.bottom}) {
    if (!text.empty()) text += ',';
    text += std::to_string(edge);
  }
  return file_.Write(hardware_key::dialogPlace, text);
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
