// The model's windows with all that goes with them, put together: what a script or a test needs in one object.
#pragma once

#include "platform/headless/headless_boxes.h"
#include "platform/headless/headless_clipboard.h"
#include "platform/headless/headless_input.h"
#include "platform/headless/headless_windows.h"

namespace set32 {

struct HeadlessDesk {
  HeadlessWindows windows;
  HeadlessBoxes boxes;
  HeadlessClipboard clipboard;
  HeadlessInput input{windows, clipboard};
};

}  // namespace set32
