// The window messages between host and panel, by number. All are sent synchronously on the host's thread; a pointer
// in lParam is valid until the message returns.
#pragma once

#include <cstdint>

namespace set32 {

// Panel to host, sent to the `hostWindow` that uiFixSetting was given.
namespace to_host {
inline constexpr std::uint32_t resolutionChanged = 0x401;  // wParam unit shown, lParam dpi
inline constexpr std::uint32_t areaChanged = 0x402;        // wParam 0, lParam ScanSettings*: redraw the frame
inline constexpr std::uint32_t settingsChanged = 0x403;    // wParam one of settings_change::, lParam ScanSettings*
inline constexpr std::uint32_t modeShown = 0x404;          // wParam 0, lParam mode
inline constexpr std::uint32_t unitChosen = 0x405;         // wParam unit shown, lParam dpi
inline constexpr std::uint32_t customSizeTaken = 0x407;    // wParam 0, lParam ScanSettings*
inline constexpr std::uint32_t autoCropChanged = 0x409;    // wParam one of auto_crop_change::, lParam ScanSettings*
inline constexpr std::uint32_t frameTabChanged = 0x40B;    // wParam frame index, lParam pointer to a word with it
inline constexpr std::uint32_t deviceSelected = 0x40C;     // wParam 1: the entry that adds a scanner; lParam char*
}  // namespace to_host

// wParam of to_host::settingsChanged
namespace settings_change {
inline constexpr std::uint32_t values = 0;         // with frameCommand set: a frame was removed
inline constexpr std::uint32_t sourceInPlace = 1;  // the record of a new paper source is in place
inline constexpr std::uint32_t askSource = 2;      // inline face: result 0 refuses the change of paper source
}  // namespace settings_change

// wParam of to_host::autoCropChanged
namespace auto_crop_change {
inline constexpr std::uint32_t checkBox = 0;
inline constexpr std::uint32_t taken = 1;  // a typed size took over, or a configuration was selected
}  // namespace auto_crop_change

// Host to panel, sent to the window that uiFixSetting returned.
namespace to_panel {
inline constexpr std::uint32_t frameReport = 0x403;  // wParam one of frame_report::, lParam ScanSettings*; result 0
inline constexpr std::uint32_t autoCropOff = 0x40A;  // result 0
inline constexpr std::uint32_t deviceQuestion = 0x40C;  // sheet face: result 1 and nothing else
inline constexpr std::uint32_t askAddress = 0x40D;      // sheet face: ask for a scanner's address
}  // namespace to_panel

// wParam of to_panel::frameReport; any other value takes over only the unit.
namespace frame_report {
inline constexpr std::uint32_t drawn = 0;
inline constexpr std::uint32_t cropped = 2;
inline constexpr std::uint32_t cropAgain = 3;
}  // namespace frame_report

}  // namespace set32
