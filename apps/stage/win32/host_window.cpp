#include "apps/stage/win32/host_window.h"

#include "platform/win32/module_instance.h"

namespace set32::win32 {

namespace {

constexpr wchar_t className[] = L"set32.host";
constexpr UINT lastMessage = 0xBFFF;

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* handler = reinterpret_cast<HostWindowHandler*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (handler != nullptr && message >= WM_USER && message <= lastMessage)
    return handler->OnHostMessage(message, wParam, lParam);
  return DefWindowProcW(window, message, wParam, lParam);
}

bool RegisterOnce() {
  WNDCLASSEXW known{};
  known.cbSize = sizeof known;
  if (GetClassInfoExW(ModuleInstance(), className, &known)) return true;
  WNDCLASSEXW made{};
  made.cbSize = sizeof made;
  made.lpfnWndProc = Procedure;
  made.hInstance = ModuleInstance();
  made.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
  made.hbrBackground = GetSysColorBrush(COLOR_APPWORKSPACE);
  made.lpszClassName = className;
  return RegisterClassExW(&made) != 0;
}

}  // namespace

HWND MakeHostWindow(Size client, HostWindowHandler& handler) {
  if (!RegisterOnce()) return nullptr;
  constexpr DWORD style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
  RECT outer{0, 0, client.width, client.height};
  AdjustWindowRect(&outer, style, FALSE);
  const HWND window = CreateWindowExW(0, className, L"", style, 0, 0, outer.right - outer.left,
                                      outer.bottom - outer.top, nullptr, nullptr, ModuleInstance(), nullptr);
  if (window != nullptr) SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&handler));
  return window;
}

HostWindowHandler* HostHandlerOf(HWND window) {
  if (reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC)) != &Procedure) return nullptr;
  return reinterpret_cast<HostWindowHandler*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

}  // namespace set32::win32
