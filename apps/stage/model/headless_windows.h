// The model of windows in memory: one screen, one focus, the windows of a host and the panel's dialogs.
//
// Everything happens at once and nested, as events of a window system do. A handler may end any window, or release
// any dialog object, inside any event.
#pragma once

#include <map>
#include <memory>
#include <set>
#include <vector>

#include "apps/stage/input.h"
#include "apps/stage/model/headless_dialog.h"
#include "apps/stage/window_watch.h"
#include "platform/windows.h"

namespace set32 {

// What can't be made, for tests.
struct WindowFailures {
  std::set<int> dialogs;   // by the template's id
  std::set<int> controls;  // by the control's id
  bool tips = false;
};

// Where the focus is: on a control, on a window itself (control 0), or nowhere (window 0).
struct FocusPlace {
  WindowHandle window = 0;
  int control = 0;
  bool operator==(const FocusPlace&) const = default;
};

class HeadlessWindows : public Windows, public WindowWatch {
 public:
  HeadlessWindows();
  ~HeadlessWindows() override;
  HeadlessWindows(const HeadlessWindows&) = delete;
  HeadlessWindows& operator=(const HeadlessWindows&) = delete;

  std::unique_ptr<Dialog> Create(const DialogTemplate& source, WindowHandle parent, DialogHandler& handler) override;
  int RunModal(const DialogTemplate& source, WindowHandle owner, DialogHandler& handler) override;
  bool IsWindow(WindowHandle window) const override { return nodes_.count(window) != 0; }
  MessageResult Send(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;
  void Invalidate(WindowHandle window) override;
  void Enable(WindowHandle window, bool enabled) override;
  void RaiseToFront(WindowHandle window) override;
  void ForgetInput() override {}  // an act is over before another one is done
  Size FullScreen() const override;
  Rect WorkAreaAt(const Rect& place) const override;
  int ScrollBarWidth() const override;
  std::vector<Dialog*> Standing() const override;

  WindowFailures failures;

  WindowHandle MakeHost(Size client, HostWindowHandler& handler);
  void Destroy(WindowHandle window);
  // Repaints what waits for it.
  void Dispatch();

  FocusPlace Focus() const { return focus_; }
  // Nowhere when the place can't take it. Tells the edits and combos between which the focus moves.
  void MoveFocus(FocusPlace to);
  void FocusHost();
  // By a key: the next tab stop of the outermost dialog around this one, going round. A page in front comes before
  // the tab bar of the sheet around it.
  enum class Way { forwards, backwards };
  void FocusNext(const HeadlessDialog& dialog, Way way);
  // The dialog with this handle, null for none.
  HeadlessDialog* DialogOf(WindowHandle window) const;
  // On the screen; in its middle until it is moved.
  Point Pointer() const { return pointer_; }
  void MovePointer(HeadlessDialog& dialog, Point at);
  // Which window came last to the front by RaiseToFront, 0 for none.
  WindowHandle RaisedLast() const { return raised_; }

  // Calls a handler; it isn't called once its window is gone.
  template <typename Act>
  void Tell(WindowHandle window, Act act) {
    const HeadlessDialog* dialog = DialogOf(window);
    if (dialog == nullptr) return;
    const Delivery delivery(*graveyard_);
    Guarded([&] { act(*dialog->handler_); });
  }

 private:
  friend class HeadlessDialog;
  struct Node {
    WindowHandle parent = 0;  // or owner
    bool child = false;
    bool dying = false;
    HeadlessDialog* dialog = nullptr;   // of a dialog
    HostWindowHandler* host = nullptr;  // of a host's window
    Size client = {};                   // of a host's window
    bool enabled = true;                // of a host's window
  };
  class Delivery {
   public:
    explicit Delivery(Graveyard& graveyard);
    ~Delivery();
    Delivery(const Delivery&) = delete;
    Delivery& operator=(const Delivery&) = delete;

   private:
    Graveyard& graveyard_;
  };
  class OwnerPause;

  const Node* Find(WindowHandle window) const;
  Node* Find(WindowHandle window);
  WindowHandle TopLevelOf(WindowHandle window) const;
  bool IsInside(WindowHandle window, WindowHandle outer) const;
  // The windows inside one, itself counted in: the first one behind another, and the last. A child is always behind
  // its parent. 0 for none. Asked one by one, since ending a window may not need memory.
  WindowHandle NextInside(WindowHandle window, WindowHandle after) const;
  WindowHandle LastInside(WindowHandle window) const;
  // The first pop-up behind `after` that is owned by a window or by one inside it.
  WindowHandle NextOwned(WindowHandle window, WindowHandle after) const;
  Rect OnScreen(WindowHandle window) const;

  std::unique_ptr<HeadlessDialog> Make(const DialogTemplate& source, WindowHandle parent, DialogHandler& handler,
                                       bool modal);
  void Show(WindowHandle window, bool visible);
  void TellOpened(WindowHandle window);
  void EnableDialog(HeadlessDialog& dialog, bool enabled);
  void Update(WindowHandle window);
  void EndModal(HeadlessDialog& dialog, int result);

  void DestroyOwned(WindowHandle window);
  void Appear(WindowHandle window);
  void LeaveScreen(WindowHandle window);
  void Bury(WindowHandle window);
  void Release(HeadlessDialog& dialog);
  void Drop(WindowHandle window);

  bool CanTakeFocus(FocusPlace place) const;
  bool IsShown(WindowHandle window) const;
  bool FocusIsInside(WindowHandle window) const { return focus_.window != 0 && IsInside(focus_.window, window); }
  void TellFocus(FocusPlace place, EventKind kind);
  void FocusFirst(WindowHandle window);
  void AddInTabbingOrder(WindowHandle window, std::vector<Control*>& controls) const;
  void ReturnFocus(WindowHandle window, FocusPlace before);

  std::map<WindowHandle, Node> nodes_;  // in order of creation
  WindowHandle lastHandle_ = 0;
  WindowHandle raised_ = 0;
  FocusPlace focus_;
  Point pointer_;
  std::shared_ptr<Graveyard> graveyard_;
};

}  // namespace set32
