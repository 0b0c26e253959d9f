// The model's windows with all that goes with them, put together: what a script or a test needs in one object.
#pragma once

#include "apps/stage/model/headless_boxes.h"
#include "apps/stage/model/headless_clipboard.h"
#include "apps/stage/model/headless_input.h"
#include "apps/stage/model/headless_windows.h"

namespace set32 {

struct ModelWindows {
  HeadlessWindows windows;
  HeadlessBoxes boxes;
  HeadlessClipboard clipboard;
  HeadlessInput input{windows, clipboard};
};

}  // namespace set32
