#include "platform/win32/win32_dialog.h"

#include <algorithm>
#include <cwchar>

#include "platform/win32/code_page.h"
#include "platform/win32/edit_control.h"
#include "platform/win32/rects.h"
#include "platform/win32/simple_controls.h"

namespace set32 {

using win32::ModuleText;
using win32::RealControl;

Win32Dialog::Win32Dialog(std::shared_ptr<win32::WindowSet> windowSet, const DialogTemplate& source, HWND parent,
                         DialogHandler& handler, bool modal)
    : windowSet_(std::move(windowSet)),
      templateId_(source.id),
      parent_(parent),
      handler_(&handler),
      child_(source.style == DialogStyle::child || source.style == DialogStyle::sheet),
      modal_(modal),
      takesFocus_(source.style != DialogStyle::notePopup),
      number_(++windowSet_->lastNumber) {}

Control* Win32Dialog::Find(int id) const {
  const auto found =
      std::find_if(controls_.begin(), controls_.end(), [id](const auto& control) { return control->Id() == id; });
  return found == controls_.end() ? nullptr : found->get();
}

Rect Win32Dialog::Place() const {
  if (!IsAlive()) return {};
  RECT place{};
  GetWindowRect(window_, &place);
  return win32::FromScreen(place, child_ ? GetParent(window_) : nullptr);
}

void Win32Dialog::Move(const Rect& place) {
  if (IsAlive()) MoveWindow(window_, place.left, place.top, place.Width(), place.Height(), TRUE);
}

Size Win32Dialog::ClientSize() const {
  return IsAlive() ? win32::ClientSizeOf(window_) : Size{};
}

bool Win32Dialog::IsVisible() const {
  return IsAlive() && (GetWindowLongPtrW(window_, GWL_STYLE) & WS_VISIBLE) != 0;
}

void Win32Dialog::SetEnabled(bool enabled) {
  if (IsAlive()) EnableWindow(window_, enabled);
}

bool Win32Dialog::IsEnabled() const {
  return IsAlive() && (GetWindowLongPtrW(window_, GWL_STYLE) & WS_DISABLED) == 0;
}

void Win32Dialog::SetTitle(std::string_view title) {
  if (IsAlive()) SetWindowTextW(window_, ModuleText().Wide(title).c_str());
}

std::string Win32Dialog::Title() const {
  if (!IsAlive()) return {};
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window_)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window_, text.data(), static_cast<int>(text.size()))));
  return ModuleText().Narrow(text);
}

void Win32Dialog::SetIcon(const Picture& icon) {
  if (!IsAlive()) return;
  win32::OwnedIcon made = win32::MakeIcon(icon);
  for (const WPARAM size : {ICON_BIG, ICON_SMALL})
    SendMessageW(window_, WM_SETICON, size, reinterpret_cast<LPARAM>(made.Get()));
  icon_ = std::move(made);
}

void Win32Dialog::RemoveCaption() {
  if (!IsAlive()) return;
  const LONG_PTR style = GetWindowLongPtrW(window_, GWL_STYLE);
  SetWindowLongPtrW(window_, GWL_STYLE, style & ~static_cast<LONG_PTR>(WS_CAPTION));
  SetWindowPos(window_, nullptr, 0, 0, 0, 0,
               SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Win32Dialog::TakeFocus() {
  if (IsAlive()) ::SetFocus(window_);
}

Control* Win32Dialog::Focused() const {
  const HWND focus = GetFocus();
  if (!IsAlive() || focus == nullptr) return nullptr;
  const auto found = std::find_if(controls_.begin(), controls_.end(), [=](const auto& control) {
    const auto* real = dynamic_cast<const RealControl*>(control.get());
    return real != nullptr && real->Covers(focus);
  });
  return found == controls_.end() ? nullptr : found->get();
}

void Win32Dialog::Invalidate() {
  if (!IsAlive()) return;
  repaintDue_ = true;
  InvalidateRect(window_, nullptr, TRUE);
}

void Win32Dialog::Update() {
  if (!IsAlive()) return;
  UpdateWindow(window_);
  // A look for messages, without taking any: Wine brings to the screen what was painted only when a thread looks, and
  // the next thing that this one does may be to wait for the network.
  MsgWaitForMultipleObjects(0, nullptr, FALSE, 0, 0);
}

void Win32Dialog::CentreOverParent() {
  if (!IsAlive()) return;
  if (parent_ == nullptr || !::IsWindow(parent_)) {
    CentreOnScreen();
    return;
  }
  if (child_) {
    const Size size = win32::ClientSizeOf(parent_);
    Centre({0, 0, size.width, size.height});
    return;
  }
  RECT over{};
  GetWindowRect(parent_, &over);
  Centre(win32::FromRECT(over));
}

void Win32Dialog::CentreOnScreen() {
  const Size screen = win32::FullScreenSize();
  if (IsAlive()) Centre({0, 0, screen.width, screen.height});
}

void Win32Dialog::CentreOnPointer() {
  POINT pointer{};
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  if (!IsAlive() || !GetCursorPos(&pointer)) return;
  if (!GetMonitorInfoW(MonitorFromPoint(pointer, MONITOR_DEFAULTTONEAREST), &screen)) return;
  const Rect place = Place();
  const Rect centred = CentredIn({pointer.x, pointer.y, pointer.x, pointer.y}, {place.Width(), place.Height()});
  PutAt(MovedInto(win32::FromRECT(screen.rcWork), centred));
}

void Win32Dialog::Centre(const Rect& over) {
  const Rect place = Place();
  PutAt(CentredIn(over, {place.Width(), place.Height()}));
}

void Win32Dialog::PutAt(const Rect& place) const {
  SetWindowPos(window_, nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

Tooltip& Win32Dialog::Tips() {
  static Tooltip none;
  if (!IsAlive()) return none;
  if (tips_ == nullptr) tips_ = windowSet_->MakeTips(window_);
  return tips_->Exists() ? static_cast<Tooltip&>(*tips_) : none;
}

RealControl* Win32Dialog::ControlAround(HWND window) const {
  for (const std::unique_ptr<Control>& control : controls_) {
    auto* real = dynamic_cast<RealControl*>(control.get());
    if (real != nullptr && real->Covers(window)) return real;
  }
  return nullptr;
}

bool Win32Dialog::FocusIsInside() const {
  const HWND focus = GetFocus();
  return IsAlive() && focus != nullptr && (focus == window_ || ::IsChild(window_, focus));
}

void Win32Dialog::TakeEnter() const {
  const HWND window = window_;
  if (const auto* edit = dynamic_cast<const win32::RealEdit*>(Focused())) edit->OnEnterSeen();
  if (Of(window) != this) return;
  const Control* button = Focused();
  if (dynamic_cast<const Button*>(button) == nullptr || button->Kind() == ControlKind::pictureButton) {
    const auto found = std::find_if(controls_.begin(), controls_.end(), [](const auto& control) {
      return control->Kind() == ControlKind::defaultButton;
    });
    button = found == controls_.end() ? nullptr : found->get();
  }
  if (button == nullptr) {
    Accept();
  } else if (button->IsEnabled() && button->IsVisible()) {
    win32::ClickedIn(*this, button->Id());
  }
}

}  // namespace set32
