// What the windows of a thread share: the dialogs that stand, how their parts are made, and what has to live until an
// event is over.
#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <vector>

#include "platform/win32/loop_hook.h"
#include "platform/win32/windows_api.h"
#include "platform/windows.h"

namespace set32 {

class Win32Dialog;

namespace win32 {

class RealTooltip;

using DialogControls = std::list<std::vector<std::unique_ptr<Control>>>;

struct WindowSet {
  WindowSet() = default;
  virtual ~WindowSet() = default;
  WindowSet(const WindowSet&) = delete;
  WindowSet& operator=(const WindowSet&) = delete;

  // For whoever looks on: a pop-up before its OnInit; one that is shown, its focus placed, a modal one inside its
  // run; and one that leaves the screen, before it hears of its destruction. A window whose repaint was asked for.
  virtual void OnOpening(Dialog&) {}
  virtual void OnOpened(Dialog&) {}
  virtual void OnClosed(Dialog&, int /*result*/) {}
  virtual void OnRepaintAsked(HWND) {}

  // The typed control over a window that a dialog's template made, and a dialog's tips.
  virtual std::unique_ptr<Control> MakeControl(Win32Dialog& dialog, HWND window, const ControlTemplate& source);
  virtual std::unique_ptr<RealTooltip> MakeTips(HWND dialog);

  std::vector<Win32Dialog*> standing;  // in order of creation
  std::uint32_t lastNumber = 0;        // of the dialog that was made last

  // While they aren't 0, no control says that it gained, or lost, the focus.
  int quietGains = 0;
  int quietLosses = 0;

  // Controls of released dialogs, kept until no event is under way: one of them may be what raised it. Each dialog
  // brings its place along, since releasing one may not need memory.
  int deliveries = 0;
  DialogControls graveyard;

  // Clicks and keys that were made before are dropped; in milliseconds since the system's start.
  ULONGLONG forgottenUntil = 0;

  // Stands while a dialog does.
  std::unique_ptr<LoopHook> loopHook;
};

class Delivery {
 public:
  explicit Delivery(std::shared_ptr<WindowSet> state) : state_(std::move(state)) { ++state_->deliveries; }
  ~Delivery() {
    if (--state_->deliveries == 0) state_->graveyard.clear();
  }
  Delivery(const Delivery&) = delete;
  Delivery& operator=(const Delivery&) = delete;

 private:
  std::shared_ptr<WindowSet> state_;
};

class Quiet {
 public:
  enum class What { gains, both };
  Quiet(std::shared_ptr<WindowSet> state, What what) : state_(std::move(state)), losses_(what == What::both ? 1 : 0) {
    ++state_->quietGains;
    state_->quietLosses += losses_;
  }
  ~Quiet() {
    --state_->quietGains;
    state_->quietLosses -= losses_;
  }
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;

 private:
  std::shared_ptr<WindowSet> state_;
  int losses_;
};

}  // namespace win32
}  // namespace set32
