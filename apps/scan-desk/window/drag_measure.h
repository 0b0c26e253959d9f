// How long a person waits for the picture while dragging a slider of the Advanced page.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "set32/dib.h"

namespace scan_desk {

// Drags the upper slider of the tab in front, step by step, and times each from the slider's report until all that it
// changed is painted; beside it the copy of the picture's bytes, in turn. A line with both medians, in milliseconds
// and as a ratio; none where there is no such page or no picture.
std::optional<std::wstring> MeasureDrag(HWND desk, HWND general, const set32::CDib& picture);

}  // namespace scan_desk
