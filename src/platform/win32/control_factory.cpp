#include "platform/win32/combo_control.h"
#include "platform/win32/edit_control.h"
#include "platform/win32/list_control.h"
#include "platform/win32/range_controls.h"
#include "platform/win32/real_tooltip.h"
#include "platform/win32/simple_controls.h"
#include "platform/win32/tab_control.h"
#include "platform/win32/window_set.h"

namespace set32::win32 {

std::unique_ptr<Control> WindowSet::MakeControl(Win32Dialog& dialog, HWND window, const ControlTemplate& source) {
  switch (source.kind) {
    case ControlKind::label:
      return std::make_unique<RealLabel>(dialog, window, source);
    case ControlKind::group:
      return std::make_unique<RealGroup>(dialog, window, source);
    case ControlKind::edit:
      return std::make_unique<RealEdit>(dialog, window, source);
    case ControlKind::combo:
    case ControlKind::iconCombo:
      return std::make_unique<RealCombo>(dialog, window, source);
    case ControlKind::button:
    case ControlKind::defaultButton:
      return std::make_unique<RealButton>(dialog, window, source);
    case ControlKind::pictureButton:
      return std::make_unique<RealPictureButton>(dialog, window, source);
    case ControlKind::check:
    case ControlKind::radio:
      return std::make_unique<RealCheck>(dialog, window, source);
    case ControlKind::list:
      return std::make_unique<RealList>(dialog, window, source);
    case ControlKind::tab:
      return std::make_unique<RealTabBar>(dialog, window, source);
    case ControlKind::slider:
      return std::make_unique<RealSlider>(dialog, window, source);
    case ControlKind::scroll:
      return std::make_unique<RealScrollBar>(dialog, window, source);
    case ControlKind::spin:
      return std::make_unique<RealSpin>(dialog, window, source);
    case ControlKind::address:
      return std::make_unique<RealAddress>(dialog, window, source);
    case ControlKind::picture:
      return std::make_unique<RealPicture>(dialog, window, source);
    case ControlKind::frame:
      return std::make_unique<RealFrame>(dialog, window, source);
  }
  return nullptr;
}

std::unique_ptr<RealTooltip> WindowSet::MakeTips(HWND dialog) {
  return std::make_unique<RealTooltip>(dialog);
}

}  // namespace set32::win32
