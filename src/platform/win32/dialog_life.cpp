// How a dialog's window comes, appears, disappears and goes.
#include <algorithm>
#include <array>
#include <cwchar>

#include "platform/win32/dialog_bytes.h"
#include "platform/win32/module_instance.h"
#include "platform/win32/rects.h"
#include "platform/win32/win32_dialog.h"
#include "platform/win32/win32_windows.h"

namespace set32 {

namespace {

// The property that leads from a window to its object; another copy of this code in the process has another name.
const wchar_t* ObjectProperty() {
  static const std::array<wchar_t, 48> name = [] {
    std::array<wchar_t, 48> text{};
    std::swprintf(text.data(), text.size(), L"set32.dialog.%p", static_cast<void*>(win32::ModuleInstance()));
    return text;
  }();
  return name.data();
}

bool IsOfThisThread(HWND window) {
  return GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
}

}  // namespace

Win32Dialog* Win32Dialog::Of(HWND window) {
  if (window == nullptr || !IsOfThisThread(window)) return nullptr;
  return static_cast<Win32Dialog*>(GetPropW(window, ObjectProperty()));
}

bool Win32Dialog::MakeWindow(const DialogTemplate& source) {
  const std::vector<std::uint32_t> bytes = win32::DialogBytes(source);
  const HWND window = CreateDialogIndirectParamW(
      win32::ModuleInstance(), reinterpret_cast<LPCDLGTEMPLATEW>(bytes.data()), parent_, &Win32Dialog::Procedure, 0);
  if (window == nullptr) return false;
  // Without its object the window could not even tell that it ended.
  if (!SetPropW(window, ObjectProperty(), this)) {
    DestroyWindow(window);
    return false;
  }
  window_ = window;
  client_ = win32::ClientSizeOf(window);
  windowSet_->standing.push_back(this);
  if (windowSet_->loopHook == nullptr) windowSet_->loopHook = std::make_unique<win32::LoopHook>();
  TakeControls(source);
  // A page lies over the tab bar of the sheet around it.
  if (child_ && Of(parent_) != nullptr)
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  return true;
}

void Win32Dialog::TakeControls(const DialogTemplate& source) {
  for (const ControlTemplate& control : source.controls) {
    const HWND window = GetDlgItem(window_, control.id);
    if (window == nullptr) continue;
    if ((control.flags & control_flag::fill) != 0) MoveWindow(window, 0, 0, client_.width, client_.height, FALSE);
    // A group's frame lies under everything inside it.
    if (control.kind == ControlKind::group)
      SetWindowPos(window, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    controls_.push_back(windowSet_->MakeControl(*this, window, control));
  }
}

// Releasing drops the window and all inside it without a word to any handler, since the handlers may be gone already.
Win32Dialog::~Win32Dialog() {
  if (Win32Dialog::IsAlive()) {
    TellClosed();
    const HWND window = window_;
    const bool returnsFocus = !child_ && ReturnsFocus();
    const win32::Quiet quiet(windowSet_, win32::Quiet::What::both);
    for (Win32Dialog* other : windowSet_->standing) {
      const HWND home = other->child_ ? other->window_ : other->parent_;
      if (home == window || ::IsChild(window, home)) other->silent_ = true;
    }
    silent_ = true;
    DestroyOwned();
    DestroyWindow(window);
    if (window_ != nullptr) OnWindowGone();  // it can't be destroyed, or went with its thread without a word
    if (returnsFocus) ReturnFocus(focusBefore_);
  }
  if (windowSet_->deliveries > 0) windowSet_->graveyard.splice(windowSet_->graveyard.end(), held_);
}

void Win32Dialog::SetVisible(bool visible) {
  if (!IsAlive()) return;
  if (child_) {
    const HWND window = window_;
    ShowWindow(window, visible ? SW_SHOWNA : SW_HIDE);
    if (!visible && Of(window) == this && FocusIsInside()) ::SetFocus(GetParent(window));
  } else if (visible) {
    Show();
  } else {
    LeaveScreen();
  }
}

// A pop-up appears; a modal one tells so inside its run.
void Win32Dialog::Show() {
  if (onScreen_) {
    TellOpened();  // shown once more
    return;
  }
  const HWND window = window_;
  if (!FocusIsInside() && focusBefore_ == nullptr) focusBefore_ = GetFocus();
  onScreen_ = true;
  ShowWindow(window, takesFocus_ ? SW_SHOW : SW_SHOWNA);
  if (Of(window) != this || !onScreen_) return;
  PlaceFocus();
  if (Of(window) != this || !onScreen_) return;
  if (modal_) {
    PostOpened();
  } else {
    TellOpened();
  }
}

// On the first control that can take it, unless the start-up placed the focus inside already.
void Win32Dialog::PlaceFocus() {
  const HWND window = window_;
  focusPlaced_ = true;
  if (!takesFocus_ || Focused() != nullptr) return;
  ::SetFocus(window);
  if (Of(window) != this) return;
  for (const std::unique_ptr<Control>& control : controls_) {
    if (!TakesFocus(control->Kind()) || !control->IsEnabled() || !control->IsVisible()) continue;
    if (auto* edit = dynamic_cast<Edit*>(control.get())) edit->Select({0, -1});
    control->SetFocus();
    return;
  }
}

// A pop-up disappears, to be shown again or to die. The focus goes back where it was, without a word, unless a person
// has moved it elsewhere meanwhile.
void Win32Dialog::LeaveScreen() {
  if (!IsAlive() || !onScreen_) return;
  const HWND window = window_;
  const HWND before = std::exchange(focusBefore_, nullptr);
  const bool returnsFocus = ReturnsFocus();
  focusPlaced_ = false;
  {
    const win32::Quiet quiet(windowSet_, win32::Quiet::What::gains);
    ShowWindow(window, SW_HIDE);
    if (Of(window) == this && FocusIsInside()) ::SetFocus(nullptr);
    if (returnsFocus) ReturnFocus(before);
  }
  if (Of(window) == this) TellClosed();
}

bool Win32Dialog::ReturnsFocus() const {
  return FocusIsInside() || (takesFocus_ && GetFocus() == nullptr);
}

void Win32Dialog::ReturnFocus(HWND before) {
  if (before != nullptr && ::IsWindow(before) && IsOfThisThread(before)) ::SetFocus(before);
}

void Win32Dialog::TellShown(bool shown) {
  if (shown_ == shown || (!shown && child_ && destroying_)) return;
  shown_ = shown;
  repaintDue_ = shown;
  Tell([shown](DialogHandler& handler) { handler.OnShown(shown); });
}

void Win32Dialog::TellOpened() {
  if (!IsAlive()) return;
  const win32::Delivery delivery(windowSet_);
  windowSet_->OnOpened(*this);
}

void Win32Dialog::TellClosed() {
  if (!onScreen_) return;
  onScreen_ = false;
  const win32::Delivery delivery(windowSet_);
  windowSet_->OnClosed(*this, result_);
}

void Win32Dialog::EndModal(int result) {
  if (!IsAlive() || !modal_) return;
  const HWND window = window_;
  result_ = result;
  ended_ = true;
  // It isn't to be seen any more, and hears nothing of that.
  shown_ = false;
  const win32::Quiet quiet(windowSet_, win32::Quiet::What::gains);
  SetWindowPos(window, nullptr, 0, 0, 0, 0, SWP_HIDEWINDOW | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  if (Of(window) == this && FocusIsInside()) ::SetFocus(window);
  PostMessageW(window, WM_NULL, 0, 0);  // so that the loop looks
}

// Runs the thread's messages until the dialog was ended or its window is gone.
int Win32Dialog::RunLoop() {
  MSG message{};
  while (IsAlive() && !ended_) {
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);
    if (got == 0) PostQuitMessage(static_cast<int>(message.wParam));  // for the loop outside
    if (got <= 0) break;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return result_;
}

void Win32Dialog::Destroy() {
  if (!IsAlive() || destroying_) return;
  const HWND window = window_;
  const std::shared_ptr<win32::WindowSet> windowSet = windowSet_;
  if (!child_) LeaveScreen();
  Win32Dialog* self = Of(window);
  if (self == nullptr) return;
  if (child_) {
    // Everything hears what is coming while the focus still is where it was.
    self->OnWindowDestroying();
    const win32::Quiet quiet(windowSet, win32::Quiet::What::both);
    DestroyWindow(window);
  } else {
    DestroyWindow(window);
  }
}

// The first dialog that fits among those of the numbers behind `after`, up to `last`. Asked one by one, as each may
// take others along, and ending a window may not need memory.
template <typename Fits>
Win32Dialog* Win32Dialog::Next(const win32::WindowSet& among, std::uint32_t after, std::uint32_t last, Fits fits) {
  const auto found = std::find_if(among.standing.begin(), among.standing.end(), [&](const Win32Dialog* dialog) {
    return dialog->number_ > after && dialog->number_ <= last && fits(*dialog);
  });
  return found == among.standing.end() ? nullptr : *found;
}

// Pop-ups that were opened over a part of this window are no system's business: the system knows only top-level
// owners.
void Win32Dialog::DestroyOwned() const {
  const auto isOwned = [window = window_](const Win32Dialog& other) {
    return !other.child_ && (other.parent_ == window || ::IsChild(window, other.parent_));
  };
  const std::shared_ptr<win32::WindowSet> windowSet = windowSet_;
  const std::uint32_t last = windowSet->lastNumber;
  std::uint32_t after = 0;
  while (Win32Dialog* other = Next(*windowSet, after, last, isOwned)) {
    after = other->number_;
    if (other->silent_) {
      DestroyWindow(other->window_);
    } else {
      other->Destroy();
    }
  }
}

// Parents hear it before their children.
void Win32Dialog::OnWindowDestroying() {
  if (destroying_) return;
  destroying_ = true;
  const HWND window = window_;
  const std::shared_ptr<win32::WindowSet> windowSet = windowSet_;
  DestroyOwned();
  if (Of(window) != this) return;
  if (!child_) {
    TellShown(false);
    if (Of(window) == this) TellClosed();
  }
  if (Of(window) != this) return;
  Tell([](DialogHandler& handler) { handler.OnDestroying(); });
  const auto isInside = [window](const Win32Dialog& other) {
    return other.child_ && ::IsChild(window, other.window_);
  };
  const std::uint32_t last = windowSet->lastNumber;
  std::uint32_t after = 0;
  while (Win32Dialog* other = Next(*windowSet, after, last, isInside)) {
    after = other->number_;
    other->OnWindowDestroying();
  }
}

void Win32Dialog::OnWindowGone() {
  RemovePropW(window_, ObjectProperty());
  window_ = nullptr;
  tips_.reset();
  const std::shared_ptr<win32::WindowSet> windowSet = windowSet_;
  std::erase(windowSet->standing, this);
  if (windowSet->standing.empty()) windowSet->loopHook.reset();
  // So that the loop of its run looks, which a message sent from outside would not wake.
  if (modal_) PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
  if (silent_) return;
  const win32::Delivery delivery(windowSet);
  DialogHandler& handler = *handler_;
  Win32Windows::Detach(handler);
  Guarded([&handler] { handler.OnDestroyed(); });
}

}  // namespace set32
