// What set32.dll exports. The module starts at the first call, not while the loader loads the library: at that time
// neither windows nor other libraries may be touched.
#include <mutex>

#include "host/module.h"
#include "platform/guarded.h"
#include "platform/win32/exception_room.h"
#include "platform/win32/handle.h"
#include "platform/win32/module_hold.h"
#include "platform/win32/win32_platform.h"
#include "run_time_end.h"
#include "set32/ui_fix_setting.h"
#include "thread_storage.h"

namespace {

using set32::win32::ModuleEntry;

set32::Win32Platform& ThePlatform() {
  static set32::Win32Platform platform;
  return platform;
}

// Made once, whichever thread comes first; what couldn't be made is tried again at the next call. The static object
// of the module is made after the platform's, and so goes before it.
void EnsureStarted() {
  static const bool started = [] {
    set32::InstallPlatform(&ThePlatform().Get());
    uiIsSettingOpen();  // the first question starts the module
    return true;
  }();
  (void)started;
}

// What is thrown later, in a window's procedure too, is thrown on a thread that called first.
bool IsReady() {
  return set32::win32::HasRoomForExceptions() && set32::Guarded(EnsureStarted);
}

// The thread that has the panel, none with the id 0. Once a thread has ended another one can get its id, so that only
// the handle tells.
struct Owner {
  static Owner Current() {
    const DWORD id = GetCurrentThreadId();
    return {id, set32::win32::OwnedHandle(OpenThread(SYNCHRONIZE, FALSE, id))};
  }
  bool HasEnded() const { return thread && WaitForSingleObject(thread.Get(), 0) == WAIT_OBJECT_0; }

  DWORD id = 0;
  set32::win32::OwnedHandle thread;
};

std::mutex ownerLock;
Owner owner;

// A thread that ended leaves the panel to whoever comes next, but for one that ended in the middle of our code, where
// nobody knows what stands half way.
void ForgetEndedOwner() {
  if (!owner.HasEnded() || ModuleEntry::AnyUnderWay()) return;
  if (set32::Guarded(set32::ForgetPanelWindows)) owner = {};
}

// The panel is its thread's: another one would have to wait for that, which may be waiting for it. A call that opens
// nothing leaves the panel to whoever comes next.
class Turn {
 public:
  Turn() {
    const std::lock_guard lock(ownerLock);
    ForgetEndedOwner();
    isFirst_ = owner.id == 0;
    if (isFirst_) owner = Owner::Current();
    isOurs_ = owner.id == GetCurrentThreadId() && !owner.HasEnded();
  }
  ~Turn() {
    const std::lock_guard lock(ownerLock);
    if (isFirst_ && !opened_) owner = {};
  }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;

  bool IsOurs() const { return isOurs_; }
  set32::WindowHandle Take(set32::WindowHandle page) {
    opened_ = page != 0;
    return page;
  }

 private:
  bool isFirst_ = false;
  bool isOurs_ = false;
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
  const ModuleEntry entry;
  return turn.Take(uiFixSetting(parentWindow, hostWindow, limits, settings, preview, jpegModes, unused, bwThreshold,
                                outputBits, panelRect, caps));
}

extern "C" std::uint32_t ExportedIsSettingOpen() {
  if (!IsReady()) return 0;
  {
    const std::lock_guard lock(ownerLock);
    ForgetEndedOwner();
  }
  return uiIsSettingOpen();
}

// The windows of a thread that ends hear nothing of it.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void* endOfProcess) {
  if (reason == DLL_PROCESS_DETACH && endOfProcess == nullptr) ExpectUnload();
  if (reason == DLL_THREAD_DETACH && owner.id == GetCurrentThreadId()) ThePlatform().Windows().OnThreadEnding();
  if (reason == DLL_THREAD_DETACH) DropThreadStorage();
  return TRUE;
}
