#include "scanner/registry_value.h"

#include <memory>
#include <string>

namespace set32 {

namespace {

constexpr int deepest = 512;
constexpr int mostKeys = 100'000;

std::uint32_t DeleteTree(RegistryKey& parent, std::string_view subKey, int depth, int& keysLeft) {
  if (subKey.empty()) return registry_result::badKey;
  if (depth == deepest || keysLeft-- == 0) return registry_result::accessDenied;
  std::uint32_t result = registry_result::success;
  const std::unique_ptr<RegistryKey> key = parent.Open(subKey, RegistryAccess::enumerateAndDelete, result);
  if (!key) return result;
  while (result == registry_result::success) {
    std::string child;
    result = key->SubKeyName(0, child);
    if (result == registry_result::noMoreItems) return parent.DeleteSubKey(subKey);
    if (result == registry_result::success) result = DeleteTree(*key, child, depth + 1, keysLeft);
  }
  return result;
}

}  // namespace

std::uint32_t DeleteRegistryTree(RegistryKey& parent, std::string_view subKey) {
  int keysLeft = mostKeys;
  return DeleteTree(parent, subKey, 0, keysLeft);
}

}  // namespace set32
