#include "platform/win32/loop_hook.h"

#include "platform/guarded.h"
#include "platform/win32/edit_control.h"
#include "platform/win32/range_controls.h"
#include "platform/win32/simple_controls.h"
#include "platform/win32/win32_dialog.h"

#include <windowsx.h>

namespace set32::win32 {

namespace {

// The innermost dialog of ours around a window, and the outermost one that it takes part in.
struct Surroundings {
  Win32Dialog* inner = nullptr;
  HWND outer = nullptr;
};

bool HasDialogClass(HWND window) {
  constexpr ULONG_PTR dialogClass = 32770;
  return GetClassLongPtrW(window, GCW_ATOM) == dialogClass;
}

// Tabbing runs through children that are marked so, up to a dialog of the host's, if the panel stands in one.
bool TabbingGoesThrough(HWND window) {
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
  const auto extended = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE));
  return (style & WS_CHILD) != 0 && (extended & WS_EX_CONTROLPARENT) != 0;
}

Surroundings AroundWindow(HWND window) {
  Surroundings around;
  HWND at = window;
  while (at != nullptr && (around.inner = Win32Dialog::Of(at)) == nullptr) at = GetAncestor(at, GA_PARENT);
  if (at == nullptr) return around;
  around.outer = at;
  while (TabbingGoesThrough(at)) {
    at = GetAncestor(at, GA_PARENT);
    if (GetWindowThreadProcessId(at, nullptr) != GetCurrentThreadId()) break;
    if (HasDialogClass(at)) around.outer = at;
  }
  return around;
}

// A dropped list closes by these keys, for example.
bool WantsForItself(MSG& message) {
  const auto wants = SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
  return (wants & DLGC_WANTMESSAGE) != 0;
}

bool IsArrow(const MSG& message) {
  return message.message == WM_KEYDOWN && message.wParam >= VK_LEFT && message.wParam <= VK_DOWN;
}

// What a dialog answers by itself. Every other key is the host's first, since its loop may know it as one of its own.
bool IsDialogKey(const MSG& message) {
  switch (message.message) {
    case WM_KEYDOWN:
      return message.wParam == VK_TAB || IsArrow(message);
    case WM_SYSKEYDOWN:
      return message.wParam == VK_MENU;  // shows the mnemonics
    case WM_CHAR:
    case WM_SYSCHAR:
      return true;
    default:
      return false;
  }
}

void TakeEnterOrEscape(const Win32Dialog& dialog, MSG& message) {
  if (message.message != WM_KEYDOWN) return;
  if (WantsForItself(message)) {
    DispatchMessageW(&message);
  } else if (message.wParam == VK_RETURN) {
    dialog.TakeEnter();
  } else {
    dialog.Cancel();
  }
}

bool IsRadioButton(const RealControl* control) {
  const auto* button = dynamic_cast<const RealCheck*>(control);
  return button != nullptr && button->Kind() == ControlKind::radio;
}

// The arrows go round among the radio buttons of a group, and click the one that they reach.
bool MovedAmongRadioButtons(const Win32Dialog& dialog, const MSG& message) {
  if (!IsArrow(message) || !IsRadioButton(dialog.ControlAround(message.hwnd))) return false;
  const bool back = message.wParam == VK_LEFT || message.wParam == VK_UP;
  const HWND window = dialog.Window();
  const HWND next = GetNextDlgGroupItem(window, message.hwnd, back);
  if (next == nullptr || next == message.hwnd || !IsRadioButton(dialog.ControlAround(next))) return true;
  const int id = GetDlgCtrlID(next);
  SetFocus(next);
  if (Win32Dialog::Of(window) == &dialog && GetFocus() == next) ClickedIn(dialog, id);
  return true;
}

bool TakeKey(MSG& message) {
  const Surroundings around = AroundWindow(message.hwnd);
  if (around.inner == nullptr) return false;
  if (MovedAmongRadioButtons(*around.inner, message)) return true;
  if (message.message <= WM_CHAR && (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE)) {
    TakeEnterOrEscape(*around.inner, message);
    return true;
  }
  return IsDialogKey(message) && IsDialogMessageW(around.outer, &message) != FALSE;
}

// Not the pointer's moves, which do nothing by themselves.
bool IsInput(UINT message) {
  return (message >= WM_KEYFIRST && message <= WM_KEYLAST) ||
         (message > WM_NCMOUSEMOVE && message <= WM_NCXBUTTONDBLCLK) ||
         (message > WM_MOUSEMOVE && message <= WM_MOUSELAST);
}

// A message carries the lower half of the clock that a set of windows remembers.
bool WasForgotten(const MSG& message) {
  const Win32Dialog* dialog = AroundWindow(message.hwnd).inner;
  if (dialog == nullptr) return false;
  const ULONGLONG now = GetTickCount64();
  const auto age = static_cast<LONG>(static_cast<DWORD>(now) - message.time);
  const ULONGLONG made = now - static_cast<ULONGLONG>(static_cast<LONGLONG>(age));
  return made < dialog->WindowSet()->forgottenUntil;
}

// Menus, and windows that are moved by keys, take their keys in a loop of their own.
bool KeysBelongToTheSystem() {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  constexpr DWORD busy = GUI_INMENUMODE | GUI_INMOVESIZE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE;
  return GetGUIThreadInfo(GetCurrentThreadId(), &info) && (info.flags & busy) != 0;
}

// Older systems send the wheel to the window that has the focus; there a combo would take it for itself.
void AimWheel(MSG& message) {
  const HWND under = WindowFromPoint({GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)});
  const Win32Dialog* dialog = under == nullptr ? nullptr : Win32Dialog::Of(GetParent(under));
  const auto* slider = dialog == nullptr ? nullptr : dynamic_cast<RealSlider*>(dialog->ControlAround(under));
  const bool isUsable = slider != nullptr && slider->IsEnabled() && IsWindowEnabled(GetAncestor(under, GA_ROOT));
  if (isUsable && dialog->IsEnabled()) message.hwnd = under;
}

LRESULT CALLBACK OnMessageTaken(int code, WPARAM removed, LPARAM lParam) {
  const ModuleEntry entry;
  if (code == HC_ACTION && removed == PM_REMOVE) {
    auto& message = *reinterpret_cast<MSG*>(lParam);
    if (message.message == WM_MOUSEWHEEL) AimWheel(message);
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    const bool isForgotten = IsInput(message.message) && WasForgotten(message);
    const auto isTaken = [&] {
      return isKey && !KeysBelongToTheSystem() && Guarded(true, [&] { return TakeKey(message); });
    };
    if (isForgotten || isTaken()) {
      message.message = WM_NULL;
      message.wParam = 0;
      message.lParam = 0;
    }
  }
  return CallNextHookEx(nullptr, code, removed, lParam);
}

}  // namespace

LoopHook::LoopHook() : hook_(SetWindowsHookExW(WH_GETMESSAGE, OnMessageTaken, nullptr, GetCurrentThreadId())) {}

}  // namespace set32::win32
