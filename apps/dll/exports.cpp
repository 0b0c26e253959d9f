// What set32.dll exports. The module starts at the first call, not while the loader loads the library: at that time
// neither windows nor other libraries may be touched.
#include "host/module.h"
#include "platform/win32/win32_platform.h"
#include "ui_fix_setting.h"

namespace {

// Made once. The static object of the module is made after the platform's, and so goes before it.
void EnsurePlatform() {
  static set32::Win32Platform platform;
  static const bool installed = [] {
    set32::InstallPlatform(&platform.Get());
    return true;
  }();
  (void)installed;
}

}  // namespace

// The definition file exports these under the names of ui_fix_setting.h.
extern "C" set32::WindowHandle ExportedFixSetting(set32::WindowHandle parentWindow, set32::WindowHandle hostWindow,
                                                  const set32::DeviceLimits* limits, set32::ScanSettings* settings,
                                                  set32::CDib* preview, std::uint8_t jpegModes, std::uint32_t unused,
                                                  std::uint32_t bwThreshold, std::uint32_t outputBits,
                                                  const set32::PanelRect* panelRect, const set32::DeviceCaps* caps) {
  EnsurePlatform();
  return uiFixSetting(parentWindow, hostWindow, limits, settings, preview, jpegModes, unused, bwThreshold, outputBits,
                      panelRect, caps);
}

extern "C" std::uint32_t ExportedIsSettingOpen() {
  EnsurePlatform();
  return uiIsSettingOpen();
}
