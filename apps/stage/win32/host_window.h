// A top-level window that stands for a host's.
#pragma once

#include "apps/stage/input.h"
#include "platform/win32/windows_api.h"

namespace set32::win32 {

// Hidden. Messages from 0x400 on go to the handler, which must outlive the window. Null on failure.
HWND MakeHostWindow(Size client, HostWindowHandler& handler);

// The handler of such a window, null for any other window.
HostWindowHandler* HostHandlerOf(HWND window);

}  // namespace set32::win32
