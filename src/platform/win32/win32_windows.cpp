#include "platform/win32/win32_windows.h"

#include <utility>

#include "platform/win32/rects.h"
#include "platform/win32/win32_dialog.h"

#include <commctrl.h>

namespace set32 {

namespace {

HWND WindowOf(WindowHandle window) {
  return reinterpret_cast<HWND>(window);
}

// A panel lives in its host's process. A window of another one is none to it: what the messages point to isn't there.
bool IsOfThisProcess(HWND window) {
  DWORD process = 0;
  return GetWindowThreadProcessId(window, &process) != 0 && process == GetCurrentProcessId();
}

// A modal run keeps the top-level window of its owner disabled.
class OwnerPause {
 public:
  explicit OwnerPause(HWND owner) {
    const HWND top = owner == nullptr ? nullptr : GetAncestor(owner, GA_ROOT);
    if (top == nullptr || !IsWindowEnabled(top)) return;
    paused_ = top;
    EnableWindow(top, FALSE);
  }
  ~OwnerPause() { Resume(); }
  OwnerPause(const OwnerPause&) = delete;
  OwnerPause& operator=(const OwnerPause&) = delete;

  void Resume() {
    if (const HWND top = std::exchange(paused_, nullptr)) EnableWindow(top, TRUE);
  }

 private:
  HWND paused_ = nullptr;
};

}  // namespace

Win32Windows::Win32Windows(std::shared_ptr<win32::WindowSet> windowSet) : windowSet_(std::move(windowSet)) {
  INITCOMMONCONTROLSEX classes{};
  classes.dwSize = sizeof classes;
  classes.dwICC = ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES | ICC_BAR_CLASSES | ICC_UPDOWN_CLASS | ICC_INTERNET_CLASSES;
  InitCommonControlsEx(&classes);
}

std::unique_ptr<Win32Dialog> Win32Windows::Make(const DialogTemplate& source, WindowHandle parent,
                                                DialogHandler& handler, bool modal) {
  const bool child = source.style == DialogStyle::child || source.style == DialogStyle::sheet;
  if ((parent != 0 || child) && !IsOfThisProcess(WindowOf(parent))) return nullptr;
  auto dialog = std::make_unique<Win32Dialog>(windowSet_, source, WindowOf(parent), handler, modal);
  if (!dialog->MakeWindow(source)) return nullptr;
  const win32::Delivery delivery(windowSet_);
  Attach(handler, dialog.get());
  if (!child) windowSet_->OnOpening(*dialog);
  if (dialog->IsAlive()) Start(handler, *dialog);
  return dialog->IsAlive() ? std::move(dialog) : nullptr;
}

std::unique_ptr<Dialog> Win32Windows::Create(const DialogTemplate& source, WindowHandle parent,
                                             DialogHandler& handler) {
  std::unique_ptr<Win32Dialog> dialog = Make(source, parent, handler, false);
  if (dialog != nullptr && dialog->IsChild()) dialog->SetVisible(true);
  return dialog != nullptr && dialog->IsAlive() ? std::move(dialog) : nullptr;
}

int Win32Windows::RunModal(const DialogTemplate& source, WindowHandle owner, DialogHandler& handler) {
  const HWND before = GetFocus();
  OwnerPause pause(WindowOf(owner));
  const std::unique_ptr<Win32Dialog> dialog = Make(source, owner, handler, true);
  if (dialog == nullptr) return dialog_result::cancel;
  dialog->focusBefore_ = before;
  if (!dialog->ended_) {
    dialog->Show();
    dialog->RunLoop();
  }
  pause.Resume();
  dialog->Destroy();
  return dialog->result_;
}

bool Win32Windows::IsWindow(WindowHandle window) const {
  return IsOfThisProcess(WindowOf(window));
}

MessageResult Win32Windows::Send(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  return IsWindow(window) ? SendMessageW(WindowOf(window), message, wParam, lParam) : 0;
}

void Win32Windows::Invalidate(WindowHandle window) {
  if (!IsWindow(window)) return;
  if (Win32Dialog* dialog = Win32Dialog::Of(WindowOf(window))) {
    dialog->Invalidate();
  } else {
    InvalidateRect(WindowOf(window), nullptr, TRUE);
  }
  windowSet_->OnRepaintAsked(WindowOf(window));
}

void Win32Windows::Enable(WindowHandle window, bool enabled) {
  if (IsWindow(window)) EnableWindow(WindowOf(window), enabled);
}

void Win32Windows::RaiseToFront(WindowHandle window) {
  if (!IsWindow(window)) return;
  for (const HWND place : {HWND_TOPMOST, HWND_NOTOPMOST})
    SetWindowPos(WindowOf(window), place, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void Win32Windows::ForgetInput() {
  windowSet_->forgottenUntil = GetTickCount64();
}

Size Win32Windows::FullScreen() const {
  return win32::FullScreenSize();
}

Rect Win32Windows::WorkAreaAt(const Rect& place) const {
  const RECT rect = win32::ToRECT(place);
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  const HMONITOR nearest = MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST);
  return GetMonitorInfoW(nearest, &screen) ? win32::FromRECT(screen.rcWork) : Rect{};
}

int Win32Windows::ScrollBarWidth() const {
  return GetSystemMetrics(SM_CXVSCROLL);
}

}  // namespace set32
