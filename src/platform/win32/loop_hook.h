// Keys and the mouse wheel in a loop that knows nothing of dialogs.
//
// The host's message loop only translates and dispatches. While a dialog stands, a hook on its thread offers the key
// messages that the loop takes to the dialog in which they would land; what the dialog uses the loop never sees, and
// what it has no use for, such as the keys of the host's own commands, goes the loop's way. Enter and Escape stay in
// the innermost dialog, all other keys move in the outermost, so that Tab runs through a sheet, and through a dialog
// of the host's around it.
//
// The wheel goes to the slider under the pointer, if there is one, and not to the control that has the focus.
//
// Clicks and keys that windows of ours were to forget are dropped here, as a loop takes them.
#pragma once

#include "platform/win32/handle.h"
#include "platform/win32/module_hold.h"

namespace set32::win32 {

class LoopHook {
 public:
  // On the calling thread.
  LoopHook();

 private:
  ModuleUse use_;  // the system's way to the hook leads here, as those to the dialogs do
  OwnedHook hook_;
};

}  // namespace set32::win32
