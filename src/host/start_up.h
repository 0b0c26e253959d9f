// Module start-up: what is read once, before the host's first call.
#pragma once

#include "boundary/module_state.h"

namespace set32 {

// Forms the module's paths and reads the driver type; missing files read as defaults. Nothing is written.
void StartUp(ModuleState& state);

}  // namespace set32
