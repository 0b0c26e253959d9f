// The set of real windows under scripts and tests: it tells the hooks, and its controls answer to inspection.
#pragma once

#include "apps/stage/window_watch.h"
#include "platform/win32/window_set.h"

namespace set32 {

class WatchedWindowSet : public win32::WindowSet, public WindowWatch {
 public:
  std::vector<Dialog*> Standing() const override;

  void OnOpening(Dialog& dialog) override;
  void OnOpened(Dialog& dialog) override;
  void OnClosed(Dialog& dialog, int result) override;
  // A host's window hears it.
  void OnRepaintAsked(HWND window) override;
  std::unique_ptr<Control> MakeControl(Win32Dialog& dialog, HWND window, const ControlTemplate& source) override;
  std::unique_ptr<win32::RealTooltip> MakeTips(HWND dialog) override;
};

}  // namespace set32
