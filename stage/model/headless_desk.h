// The model's windows with all that goes with them, put together: what a script or a test needs in one object.
#pragma once

#include "stage/model/headless_boxes.h"
#include "stage/model/headless_clipboard.h"
#include "stage/model/headless_input.h"
#include "stage/model/headless_windows.h"

namespace set32 {

struct HeadlessDesk {
  HeadlessWindows windows;
  HeadlessBoxes boxes;
  HeadlessClipboard clipboard;
  HeadlessInput input{windows, clipboard};
};

}  // namespace set32
