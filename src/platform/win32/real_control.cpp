#include "platform/win32/real_control.h"

#include "platform/guarded.h"
#include "platform/win32/code_page.h"
#include "platform/win32/handle.h"
#include "platform/win32/module_hold.h"
#include "platform/win32/rects.h"
#include "platform/win32/win32_dialog.h"

namespace set32::win32 {

RealControl::RealControl(Win32Dialog& dialog, HWND window, int id)
    : dialog_(dialog),
      window_(window),
      id_(id),
      original_(reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC))) {
  SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&RealControl::Procedure));
}

// The window goes before its object, but for one that can't be destroyed: that one goes on without an object.
RealControl::~RealControl() {
  if (window_ != nullptr) SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
}

LRESULT CALLBACK RealControl::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const ModuleEntry entry;
  auto* control = reinterpret_cast<RealControl*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (control == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  const WNDPROC original = control->original_;
  if (message == WM_NCDESTROY) {
    control->window_ = nullptr;
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  } else if (const auto answer =
                 Guarded(std::optional<LRESULT>(0), [&] { return control->OnMessage(message, wParam, lParam); })) {
    return *answer;
  } else if (!IsWindow(window)) {
    return 0;
  }
  return CallWindowProcW(original, window, message, wParam, lParam);
}

bool RealControl::Covers(HWND window) const {
  return window_ != nullptr && window != nullptr && (window == window_ || IsChild(window_, window));
}

void RealControl::Raise(Event event) const {
  event.controlId = id_;
  dialog_.Deliver(event);
}

bool RealControl::HasStyle(DWORD style) const {
  return window_ != nullptr && (static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE)) & style) == style;
}

std::wstring RealControl::WideText() const {
  if (window_ == nullptr) return {};
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window_)) + 1, L'\0');
  const int units = GetWindowTextW(window_, text.data(), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(units));
  return text;
}

void RealControl::PutText(std::string_view text) const {
  if (window_ != nullptr) SetWindowTextW(window_, ModuleText().Wide(text).c_str());
}

Rect RealControl::PlaceInDialog() const {
  if (window_ == nullptr) return {};
  RECT place{};
  GetWindowRect(window_, &place);
  return FromScreen(place, GetParent(window_));
}

void RealControl::PutAt(const Rect& place) const {
  if (window_ != nullptr) MoveWindow(window_, place.left, place.top, place.Width(), place.Height(), TRUE);
}

Size RealControl::Inside() const {
  return window_ == nullptr ? Size{} : ClientSizeOf(window_);
}

int RealControl::WidthOf(std::string_view text) const {
  if (window_ == nullptr) return 0;
  const WindowDc dc(window_);
  const auto font = reinterpret_cast<HFONT>(SendMessageW(window_, WM_GETFONT, 0, 0));
  const Selected selected(dc.Get(), font != nullptr ? font : GetStockObject(SYSTEM_FONT));
  const std::wstring wide = ModuleText().Wide(text);
  SIZE size{};
  GetTextExtentPoint32W(dc.Get(), wide.data(), static_cast<int>(wide.size()), &size);
  return size.cx;
}

void RealControl::TakeFocusHere() const {
  if (window_ != nullptr) ::SetFocus(window_);
}

std::string NarrowText(std::wstring_view text) {
  return ModuleText().Narrow(text);
}

}  // namespace set32::win32
