// Removal of a registry key with all below it.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/registry.h"

namespace set32 {

// Result: 0, badKey for an empty name, or the first failure. A tree deeper than the registry allows (512 levels), or
// one from which keys don't go although their deletion succeeds, gives accessDenied and what was deleted stays so.
std::uint32_t DeleteRegistryTree(RegistryKey& parent, std::string_view subKey);

}  // namespace set32
