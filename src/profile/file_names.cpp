#include "profile/file_names.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "boundary/option_keys.h"
#include "platform/letter_case.h"

namespace set32 {

namespace {

bool IsOneOf(std::string_view name, std::initializer_list<std::string_view> others) {
  return std::ranges::any_of(others, [&](std::string_view other) { return EqualFolded(name, other); });
}

bool EndsFolded(std::string_view name, std::string_view end) {
  return name.size() >= end.size() && EqualFolded(name.substr(name.size() - end.size()), end);
}

// A separator's byte can also be the second one of a character.
bool HoldsSeparator(System& system, std::string_view name) {
  while (!name.empty()) {
    const std::size_t length = std::max<std::size_t>(system.CharacterLength(name), 1);
    if (length == 1 && (name.front() == '/' || name.front() == '\\' || name.front() == ':')) return true;
    name.remove_prefix(std::min(length, name.size()));
  }
  return false;
}

// Whatever stands behind the first point.
bool IsDevice(std::string_view name) {
  std::string_view stem = name.substr(0, name.find('.'));
  stem = stem.substr(0, stem.find_last_not_of(' ') + 1);
  if (IsOneOf(stem, {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$", "CLOCK$"})) return true;
  const bool isNumbered = stem.size() == 4 && stem.back() >= '0' && stem.back() <= '9';
  return isNumbered && IsOneOf(stem.substr(0, 3), {"COM", "LPT"});
}

}  // namespace

bool IsPlainFileName(System& system, std::string_view name) {
  if (name.empty() || name.ends_with(' ') || name.ends_with('.')) return false;
  if (EndsFolded(name, ".lock") || EndsFolded(name, ".tmp")) return false;
  return !HoldsSeparator(system, name) && !IsDevice(name);
}

FileNames SettleFileNames(System& system, FileNames names) {
  struct Role {
    std::string& name;
    const char* fallback;
  };
  const std::array roles = {Role{names.runtimeOptions, module_key::runtimeOptionsName.fallback},
                            Role{names.profile, module_key::profileName.fallback},
                            Role{names.scannerList, module_key::scannerListName.fallback}};
  for (std::size_t at = 0; at < roles.size(); ++at) {
    const auto isTaken = [&](const Role& other) {
      if (&other == &roles[at]) return false;
      const bool isEarlier = &other < &roles[at];
      return EqualFolded(roles[at].name, other.fallback) || (isEarlier && EqualFolded(roles[at].name, other.name));
    };
    const bool isFixed = IsOneOf(roles[at].name, {module_file::settings, module_file::hardwareOptions});
    if (!IsPlainFileName(system, roles[at].name) || isFixed || std::ranges::any_of(roles, isTaken)) {
      roles[at].name = roles[at].fallback;
    }
  }
  return names;
}

}  // namespace set32
