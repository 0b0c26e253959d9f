// Error boxes that don't block the caller.
#pragma once

#include <string_view>

#include "boundary/module_state.h"

namespace set32 {

// Shows a stop box with the product's name on a thread of its own and returns at once. It belongs to the inline
// page's window where there is one. Each call has its own copy of the text, so that of two errors in a row both can
// be read; a text is cut to 255 bytes. Host's thread.
void ShowMessageOnThread(ModuleState& state, std::string_view text);

}  // namespace set32
