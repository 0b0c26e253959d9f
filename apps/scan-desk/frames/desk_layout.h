// How the desk's window is shared: free of any window.
#pragma once

#include "platform/geometry.h"

namespace scan_desk {

struct DeskLayout {
  set32::Rect picture, panel, log;  // the log's is empty while it is hidden
};

// The panel keeps its width on the right, the picture takes what is left of it, and the log lies below both; in a low
// window it makes way until the panel has its least height.
DeskLayout LayDesk(set32::Size client, set32::Size panel, bool showsLog);

}  // namespace scan_desk
