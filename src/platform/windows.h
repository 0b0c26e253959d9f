// Windows and dialogs.
//
// Everything here runs on the host's thread, in the host's message loop, and an event comes in while an operation
// is under way as window systems do it: synchronously, nested. A dialog's window can die under its object (its
// parent was destroyed); the object then answers IsAlive() with false and all its controls do nothing.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/control.h"
#include "platform/dialog_template.h"
#include "platform/events.h"
#include "platform/geometry.h"
#include "platform/guarded.h"
#include "platform/tooltip.h"
#include "set32/window_handle.h"

namespace set32 {

class Dialog;

enum class ResizeKind { restored, minimised, maximised };

// Result of a modal dialog.
namespace dialog_result {
inline constexpr int ok = 1;
inline constexpr int cancel = 2;
}  // namespace dialog_result

// What a dialog's window tells its owner. Every operation has the default handling as its default.
//
// What an operation throws ends where it was told, and the windows go on: the rest of that operation is dropped. What
// OnInit throws means that there is no dialog.
class DialogHandler {
 public:
  virtual ~DialogHandler() = default;

  // The window and its controls stand, nothing is shown yet. `dialog` is the object that creation will return.
  virtual void OnInit(Dialog&) {}
  virtual void OnEvent(const Event&) {}
  // A message from 0x400 on.
  virtual MessageResult OnMessage(std::uint32_t /*message*/, WParam /*wParam*/, LParam /*lParam*/) { return 0; }
  // A change of the client size. Creation raises none: the first one comes with the first Move to another size.
  virtual void OnResize(ResizeKind /*kind*/, Size /*client*/) {}
  // Enter, or a click on button 1; Escape, a click on button 2, or the close box. These two buttons raise no event of
  // their own. Enter clicks the push button that has the focus, else the default button; a disabled one does nothing.
  // By default a modal dialog ends with 1 or 2, a modeless one is hidden, a page does nothing.
  virtual void OnOk();
  virtual void OnCancel();
  // A close message; the default is OnCancel.
  virtual void OnClose() { OnCancel(); }
  // Shown or hidden; a window that ends is not told that it is hidden.
  virtual void OnShown(bool) {}
  virtual void OnEnabled(bool) {}
  virtual void OnPointerMoved(Point) {}
  // The window's parent is about to be destroyed, or the window itself: everything still stands. Parents hear it
  // before their children, and pop-ups that a dying window owns are wholly gone before.
  virtual void OnDestroying() {}
  // The window and its controls are gone; the last call, of children before their parents.
  virtual void OnDestroyed() {}

 protected:
  // Set by the windows before OnInit.
  friend class Windows;
  Dialog* handled_ = nullptr;
};

// A dialog's window. The object is its owner's. Releasing it destroys the window, if that still stands, with all
// windows inside it and without a word to any handler (they may be gone already): Destroy tells them. An object may
// be released at any time, also inside an event of its own; its handler then leaves the default handling undone.
class Dialog {
 public:
  virtual ~Dialog() = default;

  virtual int TemplateId() const = 0;
  virtual WindowHandle Handle() const = 0;  // 0 once the window is gone
  virtual bool IsAlive() const = 0;

  // The control with this id as its type, never null: an id that isn't there, or a control of another type, gives an
  // object that does nothing.
  template <typename T>
  T& Get(int id) const;
  // The same of a dialog that may be gone: null has no control at all.
  template <typename T>
  static T& ControlOf(const Dialog* dialog, int id) {
    return dialog != nullptr ? dialog->Get<T>(id) : Absent<T>();
  }
  // Null when there is none.
  virtual Control* Find(int id) const = 0;
  virtual const std::vector<std::unique_ptr<Control>>& Controls() const = 0;

  // The window rectangle in the parent's client coordinates (on the screen where there is no parent).
  virtual Rect Place() const = 0;
  virtual void Move(const Rect& place) = 0;
  virtual Size ClientSize() const = 0;

  // The window's own flags, whatever its parent's.
  virtual void SetVisible(bool visible) = 0;
  virtual bool IsVisible() const = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual bool IsEnabled() const = 0;
  virtual void SetTitle(std::string_view title) = 0;
  virtual std::string Title() const = 0;
  virtual void SetIcon(const Picture& icon) = 0;
  // Takes the title bar away.
  virtual void RemoveCaption() = 0;

  // Moves the focus from wherever it is to the window itself.
  virtual void TakeFocus() = 0;
  // The control with the focus, null when none of this dialog has it.
  virtual Control* Focused() const = 0;

  // A repaint (EventKind::paint) is due when the loop comes round, and with Update at once. A window that shows, or
  // whose client size changes, is due as well; one that isn't to be seen is not repainted.
  virtual void Invalidate() = 0;
  virtual void Update() = 0;

  // Centre over the parent, or on the screen's full-screen area.
  virtual void CentreOverParent() = 0;
  virtual void CentreOnScreen() = 0;
  // Centre under the pointer, moved as little as needed to lie wholly on the screen.
  virtual void CentreOnPointer() = 0;

  // The dialog's tips, made at the first call; a Tooltip that does nothing when they can't be.
  virtual Tooltip& Tips() = 0;

  // The dialog leaves the screen and its controls lose the focus; the run ends with this result once control comes
  // back to it.
  virtual void EndModal(int result) = 0;
  virtual bool IsModal() const = 0;
  // A page or a sheet: stands inside its parent.
  virtual bool IsChild() const = 0;
  // Destroys the window; the object stays.
  virtual void Destroy() = 0;

 protected:
  template <typename T>
  static T& Absent();
};

class Windows {
 public:
  virtual ~Windows() = default;

  // Creates a dialog as a child of `parent`, or owned by it for the pop-up styles; OnInit runs inside. Null when the
  // window can't be created or died inside OnInit; what OnInit throws comes out here and from a modal run, the window
  // having gone without a word. A control that can't be created is left out. Children are shown
  // once OnInit is over (OnShown) and take no focus; pop-ups and bare dialogs are hidden until shown, and then the
  // focus is on their first control that can take it (TakesFocus), or on themselves; notes leave it where it is. A
  // window dies with its parent or owner, whatever kind of window that is.
  virtual std::unique_ptr<Dialog> Create(const DialogTemplate& source, WindowHandle parent,
                                         DialogHandler& handler) = 0;

  // Runs a dialog modally over `owner` (0: none). Result: what EndModal was given; cancel when the dialog can't be
  // created or its owner dies. The owner's top-level window is disabled meanwhile. A dialog that is ended inside
  // OnInit is never shown.
  virtual int RunModal(const DialogTemplate& source, WindowHandle owner, DialogHandler& handler) = 0;

  // Any window by handle. Everything is a no-op, or 0, on a handle that names no window.
  virtual bool IsWindow(WindowHandle window) const = 0;
  virtual MessageResult Send(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) = 0;
  // The whole client area is to be erased and painted.
  virtual void Invalidate(WindowHandle window) = 0;
  virtual void Enable(WindowHandle window, bool enabled) = 0;
  // Topmost, and at once not topmost; neither moved nor activated.
  virtual void RaiseToFront(WindowHandle window) = 0;

  // What a person has done to these windows and no loop has taken yet, clicks and keys, is dropped: it was done to a
  // panel that was busy and showed nothing of it.
  virtual void ForgetInput() = 0;

  // The screen without the task bar.
  virtual Size FullScreen() const = 0;
  // What task bars leave of the screen that a place lies on or nearest to; empty when it isn't known.
  virtual Rect WorkAreaAt(const Rect& place) const = 0;
  virtual int ScrollBarWidth() const = 0;

 protected:
  static void Attach(DialogHandler& handler, Dialog* dialog) { handler.handled_ = dialog; }
  // Runs OnInit. A handler whose start fails has no dialog, or the one that it got meanwhile.
  static void Start(DialogHandler& handler, Dialog& dialog) {
    const OnFailure detach([&] {
      if (handler.handled_ == &dialog) handler.handled_ = nullptr;
    });
    handler.OnInit(dialog);
  }
};

template <typename T>
T& Dialog::Absent() {
  static_assert(std::is_base_of_v<Control, T>);
  static T absent(0, ControlKind::label);
  return absent;
}

template <typename T>
T& Dialog::Get(int id) const {
  if (auto* control = dynamic_cast<T*>(Find(id))) return *control;
  return Absent<T>();
}

inline void DialogHandler::OnOk() {
  if (handled_ == nullptr) return;
  if (handled_->IsModal()) {
    handled_->EndModal(dialog_result::ok);
  } else if (!handled_->IsChild()) {
    handled_->SetVisible(false);
  }
}

inline void DialogHandler::OnCancel() {
  if (handled_ == nullptr) return;
  if (handled_->IsModal()) {
    handled_->EndModal(dialog_result::cancel);
  } else if (!handled_->IsChild()) {
    handled_->SetVisible(false);
  }
}

}  // namespace set32
