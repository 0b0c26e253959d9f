// What set32.dll exports. The module starts at the first call, not while the loader loads the library: at that time
// neither windows nor other libraries may be touched.
#include <atomic>

#include "host/module.h"
#include "platform/guarded.h"
#include "platform/win32/exception_room.h"
#include "platform/win32/win32_platform.h"
#include "set32/ui_fix_setting.h"

namespace {

// Made once, whichever thread comes first; what couldn't be made is tried again at the next call. The static object
// of the module is made after the platform's, and so goes before it.
void EnsureStarted() {
  static set32::Win32Platform platform;
  static const bool started = [] {
    set32::InstallPlatform(&platform.Get());
    uiIsSettingOpen();  // the first question starts the module
    return true;
  }();
  (void)started;
}

// What is thrown later, in a window's procedure too, is thrown on a thread that called first.
bool IsReady() {
  return set32::win32::HasRoomForExceptions() && set32::Guarded(EnsureStarted);
}

std::atomic<DWORD> panelThread{0};

// The panel is its thread's: another one would have to wait for that, which may be waiting for it. A call that opens
// nothing leaves the panel to whoever comes next.
class Turn {
 public:
  Turn() { isFirst_ = panelThread.compare_exchange_strong(owner_, GetCurrentThreadId()); }
  ~Turn() {
    if (isFirst_ && !opened_) panelThread = 0;
  }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;

  bool IsOurs() const { return isFirst_ || owner_ == GetCurrentThreadId(); }
  set32::WindowHandle Take(set32::WindowHandle page) {
    opened_ = page != 0;
    return page;
  }

 private:
  DWORD owner_ = 0;
  bool isFirst_ = false;
  bool opened_ = false;
};

}  // namespace

// The definition file exports these under the names of ui_fix_setting.h.
extern "C" set32::WindowHandle ExportedFixSetting(set32::WindowHandle parentWindow, set32::WindowHandle hostWindow,
                                                  const set32::DeviceLimits* limits, set32::ScanSettings* settings,
                                                  set32::CDib* preview, std::uint8_t jpegModes, std::uint32_t unused,
                                                  std::uint32_t bwThreshold, std::uint32_t outputBits,
                                                  const set32::PanelRect* panelRect, const set32::DeviceCaps* caps) {
  if (!IsReady()) return 0;
  Turn turn;
  if (!turn.IsOurs()) return 0;
  return turn.Take(uiFixSetting(parentWindow, hostWindow, limits, settings, preview, jpegModes, unused, bwThreshold,
                                outputBits, panelRect, caps));
}

extern "C" std::uint32_t ExportedIsSettingOpen() {
  return IsReady() ? uiIsSettingOpen() : 0;
}
