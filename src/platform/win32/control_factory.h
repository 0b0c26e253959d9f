#pragma once

#include <memory>

#include "platform/win32/real_control.h"

namespace set32::win32 {

// The typed control over a window that a dialog's template made.
std::unique_ptr<Control> MakeControl(Win32Dialog& dialog, HWND window, const ControlTemplate& source);

}  // namespace set32::win32
