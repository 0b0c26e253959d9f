// A dialog's template as the window system reads it, made in memory from the tables of resources/.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/dialog_template.h"

namespace set32::win32 {

// DLGTEMPLATEEX and its items; aligned, since the elements are double words. A dialog made from it lives on when a
// control can't be made.
std::vector<std::uint32_t> DialogBytes(const DialogTemplate& source);

}  // namespace set32::win32
