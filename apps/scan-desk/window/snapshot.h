// A picture of a window as it stands on the screen.
#pragma once

#include <windows.h>

#include <string>

namespace scan_desk {

// Writes a PNG file. False when the window or the file gives none.
bool SaveSnapshot(HWND window, const std::wstring& path);

// Turns the panel inside a window to a page of its sheet, as a click on the tab does.
void TurnToPage(HWND within, int page);

}  // namespace scan_desk
