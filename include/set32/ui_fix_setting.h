// The two functions of the panel. C linkage and the C calling convention; on Windows they are the only exports of
// set32.dll, under these plain names.
//
// Both are called on the thread that owns the two windows and runs their message loop.
#pragma once

#include <cstdint>

#include <set32/host_records.h>
#include <set32/window_handle.h>

namespace set32 {
struct CDib;
}

extern "C" {

// Opens the panel, or binds a standing one to new pointers and refreshes it; see docs/host-guide.md.
//
//   parentWindow  becomes the parent of the panel
//   hostWindow    receives the messages of messages.h
//   limits        copied; null stands for every mode and the resolutions up to 4800 dpi, on the inline face for none
//   settings      kept and edited in place; must stay valid while the panel lives
//   preview       kept, may be null; stays the host's
//   jpegModes     inline face, first call: non-zero offers the two JPEG modes
//   unused        inline face, first call: kept and never read
//   bwThreshold   gray level above which the preview of a black-and-white scan is white; taken on every call
//   outputBits    inline face, first call: 36, 42 or 48
//   panelRect     place in parentWindow's client coordinates
//   caps          copied, may be null
//
// Result: the window that takes the host's messages; 0 when no page exists, or when parentWindow, hostWindow,
// settings or panelRect is null. 0 also when there isn't the memory for the call: everything is then as before it,
// the settings too, and a panel that stood keeps what it was bound to. No exception comes out of either function.
set32::WindowHandle uiFixSetting(set32::WindowHandle parentWindow, set32::WindowHandle hostWindow,
                                 const set32::DeviceLimits* limits, set32::ScanSettings* settings,
                                 set32::CDib* preview, std::uint8_t jpegModes, std::uint32_t unused,
                                 std::uint32_t bwThreshold, std::uint32_t outputBits,
                                 const set32::PanelRect* panelRect, const set32::DeviceCaps* caps);

// 1 from the end of the inline face's first call until its page takes a close message, else 0. The sheet face never
// sets it.
std::uint32_t uiIsSettingOpen();

}  // extern "C"

namespace set32 {

// The types of the two functions, for a host that loads the library by name.
using UiFixSettingFunction = decltype(&uiFixSetting);
using UiIsSettingOpenFunction = decltype(&uiIsSettingOpen);

}  // namespace set32
