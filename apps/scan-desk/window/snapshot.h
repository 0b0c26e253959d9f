// A picture of the desk as it stands on the screen, and what a person turns to for it.
#pragma once

#include <windows.h>

#include <string>

namespace scan_desk {

// Writes a PNG file of all windows of this thread that can be seen. False when there is none or no file.
bool SaveSnapshot(const std::wstring& path);

// Turns the sheet around its General page to another page and to a tab there, as clicks do. Nothing on the inline
// face.
void TurnToPage(HWND general, int page, int tab);

// Clicks the button that opens the inline face's dialog.
void OpenAdvanced(HWND page);

}  // namespace scan_desk
