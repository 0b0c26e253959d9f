#include "stage/win32/watched_desk.h"

#include "platform/win32/win32_dialog.h"
#include "stage/win32/host_window.h"
#include "stage/win32/watched_controls.h"

namespace set32 {

std::vector<Dialog*> WatchedDesk::Standing() const {
  return {standing.begin(), standing.end()};
}

void WatchedDesk::OnOpening(Dialog& dialog) {
  if (opening_) opening_(dialog);
}

void WatchedDesk::OnOpened(Dialog& dialog) {
  if (opened_) opened_(dialog);
}

void WatchedDesk::OnClosed(Dialog& dialog, int result) {
  if (closed_) closed_(dialog, result);
}

void WatchedDesk::OnRepaintAsked(HWND window) {
  if (HostWindowHandler* handler = win32::HostHandlerOf(window)) handler->OnRepaintAsked();
}

std::unique_ptr<Control> WatchedDesk::MakeControl(Win32Dialog& dialog, HWND window, const ControlTemplate& source) {
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
      return DeskState::MakeControl(dialog, window, source);
  }
}

std::unique_ptr<win32::RealTooltip> WatchedDesk::MakeTips(HWND dialog) {
  return std::make_unique<win32::WatchedTooltip>(dialog);
}

}  // namespace set32
