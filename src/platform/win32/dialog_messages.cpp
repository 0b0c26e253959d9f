// What a dialog's window hears, and how it reaches the handler.
#include <utility>

#include "platform/win32/module_hold.h"
#include "platform/win32/rects.h"
#include "platform/win32/simple_controls.h"
#include "platform/win32/win32_dialog.h"

namespace set32 {

using win32::RealControl;

namespace {

// Below these the window system's dialogs have messages of their own.
constexpr UINT firstHostMessage = 0x403;
constexpr UINT lastHostMessage = 0xBFFF;

UINT OpenedMessage() {
  static const UINT message = RegisterWindowMessageW(L"set32.opened");
  return message;
}

UINT ActivatedMessage() {
  static const UINT message = RegisterWindowMessageW(L"set32.activated");
  return message;
}

bool IsPointerMessage(WORD message) {
  switch (message) {
    case WM_MOUSEMOVE:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP:
      return true;
    default:
      return false;
  }
}

// The full position of a thumb; the message itself has room for 16 bits. A message that wasn't made by a drag has
// nothing else.
int ThumbPosition(HWND bar, WPARAM wParam) {
  const WORD code = LOWORD(wParam);
  const int told = static_cast<short>(HIWORD(wParam));
  if (code != SB_THUMBTRACK && code != SB_THUMBPOSITION) return told;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS;
  const bool dragged = GetScrollInfo(bar, SB_CTL, &info) && LOWORD(info.nTrackPos) == HIWORD(wParam);
  return dragged ? info.nTrackPos : told;
}

}  // namespace

INT_PTR CALLBACK Win32Dialog::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const win32::ModuleEntry entry;
  Win32Dialog* dialog = Of(window);
  if (dialog == nullptr) return FALSE;
  return Guarded(INT_PTR{FALSE}, [&] { return dialog->OnMessage(message, wParam, lParam); });
}

INT_PTR Win32Dialog::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      return OnCommand(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
    case WM_NOTIFY: {
      const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
      RealControl* control = ControlAround(header.hwndFrom);
      if (control == nullptr) return FALSE;
      const HWND window = window_;
      const LRESULT result = control->OnNotify(header);
      return Answer(window, result);
    }
    case WM_HSCROLL:
    case WM_VSCROLL: {
      const auto bar = reinterpret_cast<HWND>(lParam);
      RealControl* control = ControlAround(bar);
      if (control != nullptr) control->OnScroll(LOWORD(wParam), ThumbPosition(bar, wParam));
      return control != nullptr;
    }
    case WM_DRAWITEM: {
      const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
      RealControl* control = ControlAround(item.hwndItem);
      if (control != nullptr) control->OnDrawItem(item);
      return control != nullptr;
    }
    case WM_CTLCOLORSTATIC:
      return OnColour(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
    case WM_SETCURSOR:
      return OnCursor(HIWORD(lParam));
    case WM_ERASEBKGND:
      SpareFrames(reinterpret_cast<HDC>(wParam));
      return FALSE;
    case WM_PAINT:
      return OnPaint();
    case WM_SIZE:
      OnSize(wParam, {LOWORD(lParam), HIWORD(lParam)});
      return FALSE;
    case WM_SHOWWINDOW:
      TellShown(wParam != FALSE);
      return FALSE;
    case WM_ENABLE:
      Tell([enabled = wParam != FALSE](DialogHandler& handler) { handler.OnEnabled(enabled); });
      return TRUE;
    case WM_ACTIVATE:
      return child_ ? FALSE : OnActivate(LOWORD(wParam) != WA_INACTIVE);
    case WM_SETFOCUS:
      return TRUE;  // the focus stays on the window: by default it would go on to a control
    case WM_CLOSE:
      Tell([](DialogHandler& handler) { handler.OnClose(); });
      return TRUE;
    case WM_DESTROY:
      OnWindowDestroying();
      return FALSE;
    case WM_NCDESTROY:
      OnWindowGone();
      return FALSE;
    default:
      break;
  }
  if (message == OpenedMessage()) {
    TellOpened();
    return TRUE;
  }
  if (message == ActivatedMessage()) {
    TakeFocusBack();
    return TRUE;
  }
  return message >= firstHostMessage && message <= lastHostMessage ? OnHostMessage(message, wParam, lParam) : FALSE;
}

INT_PTR Win32Dialog::OnCommand(WORD id, WORD code, HWND window) {
  if (RealControl* control = window == nullptr ? nullptr : ControlAround(window)) {
    control->OnCommand(code);
  } else if (window == nullptr && (id == IDOK || id == IDCANCEL)) {
    win32::ClickedIn(*this, id);
  } else {
    return FALSE;
  }
  return TRUE;
}

INT_PTR Win32Dialog::OnHostMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const HWND window = window_;
  MessageResult result = 0;
  Tell([&](DialogHandler& handler) { result = handler.OnMessage(message, wParam, lParam); });
  return Answer(window, result);
}

// The control that had the focus gets it back once whatever brought the window to the front is over: a click on
// another one would else leave it at once, and an edit that is left judges what stands in it.
INT_PTR Win32Dialog::OnActivate(bool active) {
  if (!active) {
    focusInside_ = FocusIsInside() ? GetFocus() : nullptr;
  } else if (focusPlaced_ && focusInside_ != nullptr) {
    PostMessageW(window_, ActivatedMessage(), 0, 0);
  }
  return TRUE;
}

void Win32Dialog::TakeFocusBack() {
  const HWND control = std::exchange(focusInside_, nullptr);
  const HWND focus = GetFocus();
  const bool isOnNoControl = focus == nullptr || focus == window_;
  if (isOnNoControl && GetActiveWindow() == window_ && ::IsWindow(control)) ::SetFocus(control);
}

// The result of a message; of a window that is gone nobody waits for one.
INT_PTR Win32Dialog::Answer(HWND window, LRESULT result) {
  if (::IsWindow(window)) SetWindowLongPtrW(window, DWLP_MSGRESULT, result);
  return TRUE;
}

// A label without a colour of its own, and every other text of a dialog, keeps the system's: black by default, and in
// a contrast theme the one that the person chose, which a black laid over it would make unreadable.
INT_PTR Win32Dialog::OnColour(HDC dc, HWND window) const {
  const auto* label = dynamic_cast<const win32::RealLabel*>(ControlAround(window));
  if (label == nullptr || !label->OwnColour()) return FALSE;
  SetTextColor(dc, win32::ToCOLORREF(*label->OwnColour()));
  SetBkColor(dc, GetSysColor(COLOR_BTNFACE));
  return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_BTNFACE));
}

INT_PTR Win32Dialog::OnCursor(WORD mouseMessage) const {
  POINT at{};
  if (!IsPointerMessage(mouseMessage) || !GetCursorPos(&at)) return FALSE;
  ScreenToClient(window_, &at);
  Tell([at](DialogHandler& handler) { handler.OnPointerMoved({at.x, at.y}); });
  return FALSE;
}

// Frames show what was last drawn on them by themselves. Under a background that is erased first they would flicker.
void Win32Dialog::SpareFrames(HDC dc) const {
  for (const std::unique_ptr<Control>& control : controls_) {
    if (control->Kind() != ControlKind::frame || !control->IsVisible()) continue;
    const Rect place = control->Place();
    ExcludeClipRect(dc, place.left, place.top, place.right, place.bottom);
  }
}

// A window that is merely uncovered needs no new drawing.
INT_PTR Win32Dialog::OnPaint() {
  PAINTSTRUCT paint{};
  BeginPaint(window_, &paint);
  EndPaint(window_, &paint);
  if (std::exchange(repaintDue_, false)) Deliver(Event{.kind = EventKind::paint});
  return TRUE;
}

void Win32Dialog::OnSize(WPARAM how, Size client) {
  if (client == client_ || how == SIZE_MINIMIZED) return;
  client_ = client;
  repaintDue_ = true;
  const ResizeKind kind = how == SIZE_MAXIMIZED ? ResizeKind::maximised : ResizeKind::restored;
  const HWND window = window_;
  Tell([=](DialogHandler& handler) { handler.OnResize(kind, client); });
  // A moved control takes its pixels along, and a group's frame those of whatever stands over it.
  RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void Win32Dialog::Deliver(const Event& event) const {
  if (event.kind == EventKind::focusGained && windowSet_->quietGains > 0) return;
  if (event.kind == EventKind::focusLost && windowSet_->quietLosses > 0) return;
  Tell([&](DialogHandler& handler) { handler.OnEvent(event); });
}

void Win32Dialog::Accept() const {
  Tell([](DialogHandler& handler) { handler.OnOk(); });
}

void Win32Dialog::Cancel() const {
  Tell([](DialogHandler& handler) { handler.OnCancel(); });
}

void Win32Dialog::PostOpened() const {
  PostMessageW(window_, OpenedMessage(), 0, 0);
}

}  // namespace set32
