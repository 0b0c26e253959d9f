// The module: start-up, the choice of the face, and the object behind the two exported functions.
#pragma once

#include <cstdint>
#include <memory>

#include "host/fix_setting_arguments.h"
#include "platform/platform.h"
#include "set32/window_handle.h"

namespace set32 {

// Everything that the module keeps between load and unload. Construction is the module's start-up: it reads the file
// names and the driver type. The platform must outlive it. Dropping it while windows of the panel stand detaches it
// from them: nothing is written, and they answer no more.
class Module {
 public:
  explicit Module(Platform& platform);
  ~Module();
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  // What it throws leaves everything as it was, the host's record included.
  WindowHandle FixSetting(const FixSettingArguments& arguments);
  bool IsSettingOpen() const;
  void ForgetWindows();

 private:
  struct Inside;
  std::unique_ptr<Inside> inside_;
};

// The platform that uiFixSetting's module is started with at its first call. A host that links the panel calls this
// first; the DLL does it when it is loaded. Null drops the module's state (the process "ends"): the next call of
// uiFixSetting starts anew with the platform that was installed then.
void InstallPlatform(Platform* platform);

// The thread of the panel has ended, and the windows that stood there with it, without a word. Nothing is written and
// the host's record isn't touched, since both may be gone; the inline face can open again, the sheet, as always,
// can't. Whichever thread has the panel from now on.
void ForgetPanelWindows();

}  // namespace set32
