// How a window is named at the host's boundary: the window system's handle on Windows, an opaque number that the
// model of windows gives elsewhere. 0 is no window.
#pragma once

#include <cstdint>

namespace set32 {

using WindowHandle = std::uintptr_t;
using WParam = std::uintptr_t;
using LParam = std::intptr_t;
using MessageResult = std::intptr_t;

}  // namespace set32
