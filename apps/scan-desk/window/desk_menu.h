// What a person can ask of the desk: its menu, the keys for it, and the legend of all keys.
#pragma once

#include <windows.h>

#include "platform/win32/handle.h"

namespace scan_desk {

namespace command {
enum : WORD {
  openPicture = 100,
  quit,
  switchLog,
  nextPane,
  previousPane,
  switchPanel,
  autoCrop,
  askAddress,
  showKeys
};
}

set32::win32::OwnedMenu MakeDeskMenu();
set32::win32::OwnedAccelerators MakeDeskKeys();

// Checks and greys what depends on the panel and the log.
void ShowDeskState(HMENU menu, bool panelStands, bool logShows);

extern const wchar_t keyLegend[];

}  // namespace scan_desk
