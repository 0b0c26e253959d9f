// How dialogs of the model appear, run, and end.
#include <utility>

#include "apps/stage/model/headless_windows.h"

namespace set32 {

// A modal run keeps the top-level window of its owner disabled.
class HeadlessWindows::OwnerPause {
 public:
  OwnerPause(HeadlessWindows& windows, WindowHandle owner) : windows_(windows) {
    const WindowHandle top = windows.TopLevelOf(owner);
    const Node* node = windows.Find(top);
    if (node == nullptr || !(node->dialog != nullptr ? node->dialog->IsEnabled() : node->enabled)) return;
    paused_ = top;
    windows.Enable(top, false);
  }
  ~OwnerPause() { Resume(); }
  OwnerPause(const OwnerPause&) = delete;
  OwnerPause& operator=(const OwnerPause&) = delete;

  void Resume() { windows_.Enable(std::exchange(paused_, 0), true); }

 private:
  HeadlessWindows& windows_;
  WindowHandle paused_ = 0;
};

int HeadlessWindows::RunModal(const DialogTemplate& source, WindowHandle owner, DialogHandler& handler) {
  const FocusPlace before = focus_;
  OwnerPause pause(*this, owner);
  const std::unique_ptr<HeadlessDialog> dialog = Make(source, owner, handler, true);
  if (dialog == nullptr) return dialog_result::cancel;
  dialog->focusBefore_ = {before.window, before.control};
  if (!dialog->ended_) Show(dialog->Handle(), true);  // the opened hook acts inside
  if (!dialog->ended_) dialog->EndModal(dialog_result::cancel);
  pause.Resume();
  dialog->Destroy();
  return dialog->result_;
}

// The dialog stands until its run comes to an end, but isn't to be seen any more, and the focus leaves its controls.
void HeadlessWindows::EndModal(HeadlessDialog& dialog, int result) {
  dialog.result_ = result;
  dialog.ended_ = true;
  dialog.visible_ = false;
  const WindowHandle window = dialog.Handle();
  if (FocusIsInside(window)) MoveFocus({window, 0});
}

void HeadlessWindows::Show(WindowHandle window, bool visible) {
  HeadlessDialog* dialog = DialogOf(window);
  if (dialog == nullptr) return;
  if (dialog->visible_ == visible) {
    if (dialog->open_) TellOpened(window);  // shown once more
    return;
  }
  if (visible && !dialog->IsChild() && !FocusIsInside(window)) dialog->focusBefore_ = {focus_.window, focus_.control};
  dialog->visible_ = visible;
  dialog->dirty_ = visible;
  Tell(window, [visible](DialogHandler& handler) { handler.OnShown(visible); });
  dialog = DialogOf(window);
  if (dialog == nullptr || dialog->visible_ != visible) return;
  if (dialog->IsChild()) {
    if (!visible && FocusIsInside(window)) MoveFocus({Find(window)->parent, 0});
  } else if (visible) {
    Appear(window);
  } else {
    LeaveScreen(window);
  }
}

void HeadlessWindows::Appear(WindowHandle window) {
  HeadlessDialog* dialog = DialogOf(window);
  if (dialog->takesFocus_) FocusFirst(window);
  dialog = DialogOf(window);
  if (dialog == nullptr || !dialog->visible_) return;
  dialog->open_ = true;
  TellOpened(window);
}

void HeadlessWindows::TellOpened(WindowHandle window) {
  const Delivery delivery(*graveyard_);
  if (opened_) opened_(*DialogOf(window));
}

// A pop-up that was opened is hidden or about to die.
void HeadlessWindows::LeaveScreen(WindowHandle window) {
  HeadlessDialog* dialog = DialogOf(window);
  if (dialog == nullptr || !dialog->open_) return;
  dialog->open_ = dialog->visible_ = false;
  if (FocusIsInside(window)) MoveFocus({window, 0});
  dialog = DialogOf(window);
  if (dialog == nullptr) return;
  ReturnFocus(window, {dialog->focusBefore_.window, dialog->focusBefore_.control});
  if (closed_) closed_(*dialog, dialog->result_);
}

// Pop-ups of the window and of what is inside it go first and wholly, then everything hears what is coming, parents
// before children, and last the windows go, children before parents.
void HeadlessWindows::Destroy(WindowHandle window) {
  Node* node = Find(window);
  if (node == nullptr || node->dying) return;
  node->dying = true;
  const bool topLevel = !node->child;
  DestroyOwned(window);
  if (topLevel) {
    LeaveScreen(window);
    if (FocusIsInside(window)) MoveFocus({});
  }
  const WindowHandle youngest = lastHandle_;
  for (WindowHandle at = window; at != 0 && at <= youngest; at = NextInside(window, at)) {
    if (Node* dying = Find(at)) dying->dying = true;
    Tell(at, [](DialogHandler& handler) { handler.OnDestroying(); });
  }
  while (const WindowHandle last = LastInside(window)) Bury(last);
}

void HeadlessWindows::DestroyOwned(WindowHandle window) {
  const WindowHandle youngest = lastHandle_;
  for (WindowHandle at = NextOwned(window, 0); at != 0 && at <= youngest; at = NextOwned(window, at)) Destroy(at);
}

void HeadlessWindows::Bury(WindowHandle window) {
  if (!IsWindow(window)) return;
  HeadlessDialog* dialog = DialogOf(window);
  DialogHandler* handler = dialog == nullptr ? nullptr : dialog->handler_;
  if (dialog != nullptr) dialog->Perish();
  nodes_.erase(window);
  if (focus_.window == window) focus_ = {};
  if (handler == nullptr) return;
  Attach(*handler, nullptr);
  const Delivery delivery(*graveyard_);
  Guarded([handler] { handler->OnDestroyed(); });
}

// Whoever releases a dialog object drops its window and all inside it without a word to any handler, since the
// handlers may be gone already.
void HeadlessWindows::Release(HeadlessDialog& dialog) {
  const WindowHandle window = dialog.Handle();
  if (std::exchange(dialog.open_, false) && closed_) closed_(dialog, dialog.result_);
  if (!dialog.IsChild()) ReturnFocus(window, {dialog.focusBefore_.window, dialog.focusBefore_.control});
  for (WindowHandle at = NextOwned(window, 0); at != 0; at = NextOwned(window, at)) Drop(at);
  while (const WindowHandle last = LastInside(window)) Drop(last);
}

void HeadlessWindows::Drop(WindowHandle window) {
  HeadlessDialog* dialog = DialogOf(window);
  if (dialog != nullptr && std::exchange(dialog->open_, false) && closed_) closed_(*dialog, dialog->result_);
  dialog = DialogOf(window);  // whoever heard of it may have released it
  if (dialog != nullptr) dialog->Perish();
  nodes_.erase(window);
  if (focus_.window == window) focus_ = {};
}

}  // namespace set32
