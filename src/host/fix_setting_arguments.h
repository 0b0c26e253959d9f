// The arguments of uiFixSetting, in its order, without the one that nobody reads.
#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/geometry.h"
#include "set32/dib.h"
#include "set32/host_records.h"
#include "set32/window_handle.h"

namespace set32 {

struct FixSettingArguments {
  WindowHandle parentWindow = 0;
  WindowHandle hostWindow = 0;
  const DeviceLimits* limits = nullptr;
  ScanSettings* settings = nullptr;
  CDib* preview = nullptr;
  bool jpegModes = false;
  std::uint32_t bwThreshold = 0;
  std::uint32_t outputBits = 0;
  const PanelRect* panelRect = nullptr;
  const DeviceCaps* caps = nullptr;

  // Where the panel is to stand. A window system's places are 16 bits wide; within them no later sum passes the ints.
  Rect Place() const {
    const auto held = [](std::int32_t edge) { return std::clamp(edge, -0x8000, 0x7FFF); };
    return {held(panelRect->left), held(panelRect->top), held(panelRect->right), held(panelRect->bottom)};
  }
};

}  // namespace set32
