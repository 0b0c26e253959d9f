// What the system says about its errors, and the texts that pass between panel and desk.
#pragma once

#include <windows.h>

#include <string>

namespace scan_desk {

// The system's sentence for an error of GetLastError, or its number.
std::wstring ErrorText(DWORD error);

// A text of the panel: UTF-8 where the system's code page can't hold its texts, else that code page. Empty for null.
std::wstring WideText(const char* bytes);

}  // namespace scan_desk
