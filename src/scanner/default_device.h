// The default device: the network scanner that was last chosen, as a text in the run-time options.
#pragma once

#include <string>
#include <string_view>

#include "boundary/module_state.h"

namespace set32 {

// Whether a text may be a device's address: it holds three dots or more.
bool LooksLikeAddress(std::string_view text);

// Stores the text, unless it can't be a value in a profile.
void StoreDefaultDevice(ModuleState& state, const std::string& text);

// The stored text, at most 255 bytes, "NoDefault" where there is none. While an older version's value stands in the
// registry, that one instead: it is stored, if it looks like an address, and goes from the registry with its key.
std::string TakeDefaultDevice(ModuleState& state);

}  // namespace set32
