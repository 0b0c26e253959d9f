#include "scanner/default_device.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>

#include "scanner/registry_value.h"

namespace set32 {

namespace {

constexpr std::size_t textBytes = 256;  // with the terminator

constexpr char section[] = "Device";
constexpr char key[] = "Default";

constexpr char olderRoot[] = "Software\\Norvane";
constexpr char olderKey[] = "Software\\Norvane\\K700";
constexpr char olderValue[] = "IPAddress";

std::string ReadDefaultDevice(ModuleState& state) {
  std::array<char, textBytes> value{};
  state.platform.profiles.GetString(section, key, "NoDefault", value, state.runtimeIniPath.c_str());
  return {value.begin(), std::find(value.begin(), value.end() - 1, '\0')};
}

}  // namespace

bool LooksLikeAddress(std::string_view text) {
  return std::count(text.begin(), text.end(), '.') >= 3;
}

void StoreDefaultDevice(ModuleState& state, const std::string& text) {
  state.platform.profiles.WriteString(section, key, text.c_str(), state.runtimeIniPath.c_str());
}

std::string TakeDefaultDevice(ModuleState& state) {
  const std::unique_ptr<RegistryKey> user = state.platform.registry.CurrentUser();
  std::uint32_t result = registry_result::success;
  std::unique_ptr<RegistryKey> older = user->Open(olderKey, RegistryAccess::read, result);
  if (!older) return ReadDefaultDevice(state);
  std::string value;
  older->ReadString(olderValue, textBytes - 1, value);
  value.resize(std::min(value.size(), value.find('\0')));
  if (LooksLikeAddress(value)) StoreDefaultDevice(state, value);
  older.reset();
  DeleteRegistryTree(*user, olderRoot);
  return value;
}

}  // namespace set32
