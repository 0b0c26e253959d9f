#include "apps/scan-desk/window/desk_menu.h"

#include <initializer_list>
#include <iterator>

namespace scan_desk {

namespace {

struct Item {
  WORD id;  // 0 for a line
  const wchar_t* text;
};

void AddMenu(HMENU bar, const wchar_t* title, std::initializer_list<Item> items) {
  set32::win32::OwnedMenu menu(CreatePopupMenu());
  for (const Item& item : items) AppendMenuW(menu.Get(), item.id != 0 ? MF_STRING : MF_SEPARATOR, item.id, item.text);
  if (AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu.Get()), title)) menu.Release();
}

WORD OutputCommand(int bits) {
  return bits == 36 ? command::outputOf36 : bits == 42 ? command::outputOf42 : command::outputOf48;
}

}  // namespace

set32::win32::OwnedMenu MakeDeskMenu() {
  set32::win32::OwnedMenu bar(CreateMenu());
  AddMenu(bar.Get(), L"&File",
          {{command::openPicture, L"&Open preview...\tCtrl+O"}, {0, nullptr}, {command::quit, L"E&xit\tAlt+F4"}});
  AddMenu(bar.Get(), L"&View",
          {{command::switchLog, L"&Log of messages\tCtrl+L"},
           {0, nullptr},
           {command::nextPane, L"&Next pane\tF6"},
           {command::previousPane, L"&Previous pane\tShift+F6"}});
  AddMenu(bar.Get(), L"&Panel",
          {{command::switchPanel, L"&Open\tCtrl+P"},
           {0, nullptr},
           {command::showSheet, L"&Tabbed sheet"},
           {command::showInlinePage, L"Inline &page with a dialog"},
           {0, nullptr},
           {command::switchJpegModes, L"&JPEG modes"},
           {command::outputOf36, L"Output of &36 bits"},
           {command::outputOf42, L"Output of 4&2 bits"},
           {command::outputOf48, L"Output of 4&8 bits"},
           {command::refuseSources, L"&Refuse another paper source"},
           {0, nullptr},
           {command::autoCrop, L"&Crop to what lies there\tCtrl+R"},
           {command::askAddress, L"Ask for a &scanner's address...\tCtrl+I"}});
  AddMenu(bar.Get(), L"&Help", {{command::showKeys, L"&Keys\tF1"}});
  return bar;
}

// The panel takes its own Tab before a loop sees it, so here it leads on from picture and log.
set32::win32::OwnedAccelerators MakeDeskKeys() {
  ACCEL keys[] = {{FVIRTKEY | FCONTROL, 'O', command::openPicture},
                  {FVIRTKEY | FCONTROL, 'L', command::switchLog},
                  {FVIRTKEY | FCONTROL, 'P', command::switchPanel},
                  {FVIRTKEY | FCONTROL, 'R', command::autoCrop},
                  {FVIRTKEY | FCONTROL, 'I', command::askAddress},
                  {FVIRTKEY, VK_F1, command::showKeys},
                  {FVIRTKEY, VK_F6, command::nextPane},
                  {FVIRTKEY | FSHIFT, VK_F6, command::previousPane},
                  {FVIRTKEY, VK_TAB, command::nextPane},
                  {FVIRTKEY | FSHIFT, VK_TAB, command::previousPane}};
  return set32::win32::OwnedAccelerators(CreateAcceleratorTableW(keys, static_cast<int>(std::size(keys))));
}

void ShowDeskState(HMENU menu, const DeskState& state) {
  const auto check = [menu](WORD id, bool isSo) { CheckMenuItem(menu, id, isSo ? MF_CHECKED : MF_UNCHECKED); };
  const auto enable = [menu](WORD id, bool isSo) { EnableMenuItem(menu, id, isSo ? MF_ENABLED : MF_GRAYED); };
  const bool isInline = state.choices.face == Face::inlinePage;
  check(command::switchLog, state.logShows);
  check(command::switchPanel, state.panelStands);
  check(command::switchJpegModes, state.choices.jpegModes);
  check(command::refuseSources, state.refusesSources);
  CheckMenuRadioItem(menu, command::showSheet, command::showInlinePage,
                     isInline ? command::showInlinePage : command::showSheet, MF_BYCOMMAND);
  CheckMenuRadioItem(menu, command::outputOf36, command::outputOf48, OutputCommand(state.choices.outputBits),
                     MF_BYCOMMAND);
  // What the sheet neither takes nor asks.
  for (const WORD id : {command::switchJpegModes, command::outputOf36, command::outputOf42, command::outputOf48,
                        command::refuseSources})
    enable(id, isInline);
  enable(command::autoCrop, state.panelStands);
  enable(command::askAddress, state.panelStands && !isInline);
}

const wchar_t keyLegend[] =
    L"On the picture\n"
    L"Drag: draw a frame, move it, or size it by its edges, also past the opposite one\n"
    L"Ctrl+drag: draw a frame, inside another too\n"
    L"Esc: give up the drag\n"
    L"Insert: lay a new frame in the middle\n"
    L"Delete: delete the current frame\n"
    L"Page Up, Page Down: select another frame\n"
    L"Arrows: move the frame by 10 pixels of the picture\n"
    L"Shift+arrows: size it at its right and lower edge\n"
    L"Ctrl with any of these: by a single pixel\n"
    L"\n"
    L"Everywhere\n"
    L"F6, Shift+F6: picture, panel and log in turn\n"
    L"Tab: the same, but the panel's controls within the panel\n"
    L"Ctrl+O: open a picture as the preview\n"
    L"Ctrl+L: show or hide the log\n"
    L"Ctrl+P: close the panel, or open it again\n"
    L"Ctrl+R: crop the frame to what lies on the picture\n"
    L"Ctrl+I: ask for a scanner's address\n"
    L"F1: these keys\n"
    L"Alt+F4: leave";

}  // namespace scan_desk
