// A picture of a window as it stands on the screen.
#pragma once

#include <windows.h>

#include <string>

namespace scan_desk {

// Writes a bitmap file of 24 bits. False when the window or the file gives none.
bool SaveSnapshot(HWND window, const std::wstring& path);

}  // namespace scan_desk
