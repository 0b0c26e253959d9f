// The messages between panel and host as lines of the log.
#pragma once

#include <windows.h>

#include <string>

#include "apps/scan-desk/frames/frame_drag.h"
#include "set32/host_records.h"

namespace scan_desk {

// The record that a message of the panel carries; null for a message that carries none.
const set32::ScanSettings* RecordOf(UINT message, LPARAM lParam);

std::wstring LineOfMessage(UINT message, WPARAM wParam, LPARAM lParam);
std::wstring LineOfReport(const FrameChange& change, const set32::Rect& frame);
std::wstring LineOfAutoCrop(const set32::Rect& frame);
std::wstring LineOfQuestion();

}  // namespace scan_desk
