#include "apps/stage/win32/watched_window_set.h"

#include "apps/stage/win32/host_window.h"
#include "apps/stage/win32/watched_controls.h"
#include "platform/win32/win32_dialog.h"

namespace set32 {

std::vector<Dialog*> WatchedWindowSet::Standing() const {
  return {standing.begin(), standing.end()};
}

void WatchedWindowSet::OnOpening(Dialog& dialog) {
  if (opening_) opening_(dialog);
}

void WatchedWindowSet::OnOpened(Dialog& dialog) {
  if (opened_) opened_(dialog);
}

void WatchedWindowSet::OnClosed(Dialog& dialog, int result) {
  if (closed_) closed_(dialog, result);
}

void WatchedWindowSet::OnRepaintAsked(HWND window) {
  if (HostWindowHandler* handler = win32::HostHandlerOf(window)) handler->OnRepaintAsked();
}

std::unique_ptr<Control> WatchedWindowSet::MakeControl(Win32Dialog& dialog, HWND window,
                                                       const ControlTemplate& source) {
  switch (source.kind) {
    case ControlKind::edit:
      return std::make_unique<win32::WatchedEdit>(dialog, window, source);
    case ControlKind::combo:
    case ControlKind::iconCombo:
      return std::make_unique<win32::WatchedCombo>(dialog, window, source);
    case ControlKind::pictureButton:
      return std::make_unique<win32::WatchedPictureButton>(dialog, window, source);
    case ControlKind::picture:
      return std::make_unique<win32::WatchedPicture>(dialog, window, source);
    case ControlKind::frame:
      return std::make_unique<win32::WatchedFrame>(dialog, window, source);
    default:
      return WindowSet::MakeControl(dialog, window, source);
  }
}

std::unique_ptr<win32::RealTooltip> WatchedWindowSet::MakeTips(HWND dialog) {
  return std::make_unique<win32::WatchedTooltip>(dialog);
}

}  // namespace set32
