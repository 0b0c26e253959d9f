#include "scanner/default_device.h"

#include <algorithm>
#include <cstdint>
#include <memory>

#include "boundary/option_file.h"
#include "scanner/registry_value.h"

namespace set32 {

namespace {

constexpr std::size_t valueBytes = 255;

constexpr char olderRoot[] = "Software\\Norvane";
constexpr char olderKey[] = "Software\\Norvane\\K700";
constexpr char olderValue[] = "IPAddress";

OptionFile RuntimeOptionsOf(ModuleState& state) {
  return {state.platform.profiles, state.platform.system, state.runtimeIniPath};
}

}  // namespace

bool LooksLikeAddress(std::string_view text) {
  return std::count(text.begin(), text.end(), '.') >= 3;
}

void StoreDefaultDevice(ModuleState& state, const std::string& text) {
  RuntimeOptionsOf(state).Write(option_key::defaultDevice, text);
}

std::string TakeDefaultDevice(ModuleState& state) {
  const std::unique_ptr<RegistryKey> user = state.platform.registry.CurrentUser();
  std::uint32_t result = registry_result::success;
  std::unique_ptr<RegistryKey> older = user->Open(olderKey, RegistryAccess::read, result);
  if (!older) return RuntimeOptionsOf(state).Read(option_key::defaultDevice);
  std::string value;
  older->ReadString(olderValue, valueBytes, value);
  value.resize(std::min(value.size(), value.find('\0')));
  if (LooksLikeAddress(value)) StoreDefaultDevice(state, value);
  older.reset();
  DeleteRegistryTree(*user, olderRoot);
  return value;
}

}  // namespace set32
