// The library that holds the panel, loaded by name as a data source does it.
#pragma once

#include <windows.h>

#include <string>

#include "platform/win32/handle.h"
#include "set32/ui_fix_setting.h"

namespace scan_desk {

class PanelLibrary {
 public:
  // `file` is a path. On false nothing is loaded and `trouble` is a sentence that says why.
  bool Load(const std::wstring& file, std::wstring& trouble);
  // Only once the panel's windows are gone.
  void Unload();
  bool IsLoaded() const { return fixSetting_ != nullptr; }
  // Whether something else of the process had it loaded before, so that it is none that was loaded anew: a message
  // box on a thread of its own keeps it until it is closed.
  bool WasHeld() const { return wasHeld_; }

  // Null unless loaded. The library's other function, uiIsSettingOpen, speaks of the inline face alone: a host of
  // that face finds it here in the same way, and asks it where this desk asks whether a page stands (Panel::Page).
  set32::UiFixSettingFunction FixSetting() const { return fixSetting_; }

 private:
  set32::win32::OwnedModule library_;
  set32::UiFixSettingFunction fixSetting_ = nullptr;
  bool wasHeld_ = false;
};

}  // namespace scan_desk
