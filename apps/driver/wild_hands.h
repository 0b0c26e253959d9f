// Acts at any control of any dialog that stands, also a hidden or a disabled one, as another program may.
#pragma once

#include <optional>

#include "apps/driver/choices.h"
#include "apps/stage/input.h"
#include "apps/stage/window_watch.h"

namespace set32 {

class WildHands {
 public:
  WildHands(const WindowWatch& watch, Input& input, Choices& choices)
      : watch_(watch), input_(input), choices_(choices) {}

  // At a dialog that stands; nothing when there is none.
  void Act();
  // At this one: at one of its controls, with a key, or at the window.
  void ActAt(Dialog& dialog);

 private:
  void ActOn(const Dialog& dialog, Control& control);
  void TypeInto(WindowHandle dialog, int id);
  std::optional<int> AnyField();
  // Null once it is gone: also what only moves the focus may end a dialog.
  Edit* Find(WindowHandle dialog, int id) const;

  const WindowWatch& watch_;
  Input& input_;
  Choices& choices_;
};

}  // namespace set32
