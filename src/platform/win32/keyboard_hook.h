// Keys in a loop that knows nothing of dialogs.
//
// The host's message loop only translates and dispatches. While a dialog stands, a hook on its thread offers every
// key message that the loop takes to the dialog in which it would land; what the dialog uses the loop never sees.
// Enter and Escape stay in the innermost dialog, all other keys move in the outermost, so that Tab runs through a
// sheet.
#pragma once

#include "platform/win32/handle.h"

namespace set32::win32 {

class KeyboardHook {
 public:
  // On the calling thread.
  KeyboardHook();

 private:
  OwnedHook hook_;
};

}  // namespace set32::win32
