#include "platform/win32/keyboard_hook.h"

#include "platform/win32/edit_control.h"
#include "platform/win32/simple_controls.h"
#include "platform/win32/win32_dialog.h"

namespace set32::win32 {

namespace {

// The dialogs around a window, as far as they are ours.
struct Surroundings {
  Win32Dialog* inner = nullptr;
  Win32Dialog* outer = nullptr;
};

Surroundings AroundWindow(HWND window) {
  Surroundings around;
  for (HWND at = window; at != nullptr; at = GetAncestor(at, GA_PARENT)) {
    Win32Dialog* dialog = Win32Dialog::Of(at);
    if (dialog == nullptr) {
      if (around.outer != nullptr) break;
      continue;
    }
    if (around.inner == nullptr) around.inner = dialog;
    around.outer = dialog;
    if (!dialog->IsChild()) break;
  }
  return around;
}

// A dropped list closes by these keys, for example.
bool WantsForItself(MSG& message) {
  const auto wants = SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
  return (wants & DLGC_WANTMESSAGE) != 0;
}

// What a dialog answers by itself. Every other key is the host's first, since its loop may know it as one of its own.
bool IsDialogKey(const MSG& message) {
  switch (message.message) {
    case WM_KEYDOWN:
      return message.wParam == VK_TAB || (message.wParam >= VK_LEFT && message.wParam <= VK_DOWN);
    case WM_SYSKEYDOWN:
      return message.wParam == VK_MENU;  // shows the mnemonics
    case WM_CHAR:
    case WM_SYSCHAR:
      return true;
    default:
      return false;
  }
}

bool TakeKey(MSG& message) {
  const Surroundings around = AroundWindow(message.hwnd);
  if (around.inner == nullptr) return false;
  const bool down = message.message == WM_KEYDOWN;
  const bool enter = message.wParam == VK_RETURN;
  const bool escape = message.wParam == VK_ESCAPE;
  if (message.message <= WM_CHAR && (enter || escape)) {
    if (down && WantsForItself(message)) return false;
    if (down && enter) around.inner->TakeEnter();
    if (down && escape) around.inner->Cancel();
    return true;
  }
  return IsDialogKey(message) && IsDialogMessageW(around.outer->Window(), &message) != FALSE;
}

LRESULT CALLBACK OnMessageTaken(int code, WPARAM removed, LPARAM lParam) {
  if (code == HC_ACTION && removed == PM_REMOVE) {
    auto& message = *reinterpret_cast<MSG*>(lParam);
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    if (isKey && TakeKey(message)) {
      message.message = WM_NULL;
      message.wParam = 0;
      message.lParam = 0;
    }
  }
  return CallNextHookEx(nullptr, code, removed, lParam);
}

}  // namespace

KeyboardHook::KeyboardHook()
    : hook_(SetWindowsHookExW(WH_GETMESSAGE, OnMessageTaken, nullptr, GetCurrentThreadId())) {}

}  // namespace set32::win32
