// What the windows of a thread share: the dialogs that stand, the hooks of scripts and tests, and what has to live
// until an event is over.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/windows.h"
#include "platform/win32/keyboard_hook.h"
#include "platform/win32/windows_api.h"

namespace set32 {

class Win32Dialog;

namespace win32 {

struct DeskState {
  std::vector<Win32Dialog*> standing;  // in order of creation
  std::function<void(Dialog&)> opening, opened;
  std::function<void(Dialog&, int result)> closed;
  std::function<void(WindowHandle)> repaintAsked;

  // While it isn't 0, no control says that it gained or lost the focus.
  int quietFocus = 0;

  // Controls of released dialogs, kept until no event is under way: one of them may be what raised it.
  int deliveries = 0;
  std::vector<std::vector<std::unique_ptr<Control>>> graveyard;

  // Stands while a dialog does.
  std::unique_ptr<KeyboardHook> keyboard;
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

class QuietFocus {
 public:
  explicit QuietFocus(std::shared_ptr<DeskState> state) : state_(std::move(state)) { ++state_->quietFocus; }
  ~QuietFocus() { --state_->quietFocus; }
  QuietFocus(const QuietFocus&) = delete;
  QuietFocus& operator=(const QuietFocus&) = delete;

 private:
  std::shared_ptr<DeskState> state_;
};

}  // namespace win32
}  // namespace set32
