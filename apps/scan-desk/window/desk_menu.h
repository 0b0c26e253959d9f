// What a person can ask of the desk: its menu, the keys for it, and the legend of all keys.
#pragma once

#include <windows.h>

#include "apps/scan-desk/window/panel_choices.h"
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
  showSheet,
  showInlinePage,
  switchJpegModes,
  outputOf36,
  outputOf42,
  outputOf48,
  refuseSources,
  autoCrop,
  askAddress,
  showKeys
};
}

set32::win32::OwnedMenu MakeDeskMenu();
set32::win32::OwnedAccelerators MakeDeskKeys();

struct DeskState {
  bool panelStands, logShows, refusesSources;
  PanelChoices choices;
};

// Checks and greys what depends on it.
void ShowDeskState(HMENU menu, const DeskState& state);

extern const wchar_t keyLegend[];

}  // namespace scan_desk
