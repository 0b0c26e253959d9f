// Windows whose messages go to an object.
#pragma once

#include <windows.h>

#include "platform/win32/module_instance.h"

namespace scan_desk {

// The procedure of a window that was created with its owner as lpParam. The owner's OnMessage(window, ...) hears
// every message from the first one on, its OnGone() the end of the window; behind that it hears nothing more.
template <typename Owner>
LRESULT CALLBACK PassToOwner(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const void* owner = reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(owner));
  }
  auto* owner = reinterpret_cast<Owner*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (owner == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    owner->OnGone();
    return DefWindowProcW(window, message, wParam, lParam);
  }
  return owner->OnMessage(window, message, wParam, lParam);
}

// The system's own cursors, by number.
namespace cursor {
inline constexpr WORD arrow = 32512, cross = 32515, risesLeft = 32642, risesRight = 32643, across = 32644,
                      down = 32645;
}

// A class of windows of Owner, which is this module's. Registering it again changes nothing; a failure shows when a
// window is to be created.
template <typename Owner>
void RegisterWindowClass(const wchar_t* name, UINT style, WORD cursorNumber, HBRUSH background) {
  WNDCLASSEXW kind{};
  kind.cbSize = sizeof kind;
  kind.style = style;
  kind.lpfnWndProc = PassToOwner<Owner>;
  kind.hInstance = set32::win32::ModuleInstance();
  kind.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(cursorNumber));
  kind.hbrBackground = background;
  kind.lpszClassName = name;
  RegisterClassExW(&kind);
}

// The class of a program goes with it, that of a library that an application loads does not. Only once its windows
// are gone.
inline void ForgetWindowClass(const wchar_t* name) {
  UnregisterClassW(name, set32::win32::ModuleInstance());
}

}  // namespace scan_desk
