// What the windows of a thread share: the dialogs that stand, the hooks of scripts and tests, and what has to live
// until an event is over.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/win32/loop_hook.h"
#include "platform/win32/windows_api.h"
#include "platform/windows.h"

namespace set32 {

class Win32Dialog;

namespace win32 {

struct DeskState {
  std::vector<Win32Dialog*> standing;  // in order of creation
  std::function<void(Dialog&)> opening, opened;
  std::function<void(Dialog&, int result)> closed;
  std::function<void(WindowHandle)> repaintAsked;

  // While they aren't 0, no control says that it gained, or lost, the focus.
  int quietGains = 0;
  int quietLosses = 0;

  // Controls of released dialogs, kept until no event is under way: one of them may be what raised it.
  int deliveries = 0;
  std::vector<std::vector<std::unique_ptr<Control>>> graveyard;

  // Stands while a dialog does.
  std::unique_ptr<LoopHook> loopHook;
};

class Delivery {
 public:
  explicit Delivery(std::shared_ptr<DeskState> state) : state_(std::move(state)) { ++state_->deliveries; }
  ~Delivery() {
    if (--state_->deliveries == 0) state_->graveyard.clear();
  }
  Delivery(const Delivery&) = delete;
  Delivery& operator=(const Delivery&) = delete;

 private:
  std::shared_ptr<DeskState> state_;
};

class Quiet {
 public:
  enum class What { gains, both };
  Quiet(std::shared_ptr<DeskState> state, What what) : state_(std::move(state)), losses_(what == What::both ? 1 : 0) {
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
  std::shared_ptr<DeskState> state_;
  int losses_;
};

}  // namespace win32
}  // namespace set32
