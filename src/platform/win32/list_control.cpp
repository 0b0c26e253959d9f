#include "platform/win32/list_control.h"

#include <utility>

#include "platform/win32/code_page.h"
#include "platform/win32/rects.h"
#include "platform/win32/win32_dialog.h"

#include <windowsx.h>

namespace set32::win32 {

namespace {

constexpr Size iconSize{16, 16};
constexpr UINT selectedAndFocused = LVIS_SELECTED | LVIS_FOCUSED;

RowState StateFrom(UINT bits) {
  return {(bits & LVIS_SELECTED) != 0, (bits & LVIS_FOCUSED) != 0};
}

}  // namespace

RealList::RealList(Win32Dialog& dialog, HWND window, const ControlTemplate& source) : Real(dialog, window, source) {
  Ask(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
  LVCOLUMNW column{};
  column.mask = LVCF_WIDTH;
  column.cx = ClientSize().width;
  AskWith(LVM_INSERTCOLUMNW, 0, column);
}

void RealList::SetIcons(const std::vector<Picture>& icons) {
  if (!Exists()) return;
  OwnedImageList list = MakeImageList(icons, iconSize);
  Ask(LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(list.Get()));
  icons_ = std::move(list);
}

int RealList::Add(std::string_view text, int icon, std::uintptr_t data) {
  if (!Exists()) return -1;
  std::wstring wide = ModuleText().Wide(text);
  LVITEMW item{};
  item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
  item.iItem = Count();
  item.pszText = wide.data();
  item.iImage = icon;
  item.lParam = static_cast<LPARAM>(data);
  return static_cast<int>(AskWith(LVM_INSERTITEMW, 0, item));
}

void RealList::Remove(int row) {
  if (Holds(row)) Ask(LVM_DELETEITEM, static_cast<WPARAM>(row));
}

std::string RealList::RowText(int row) const {
  if (!Holds(row)) return {};
  std::wstring text(256, L'\0');
  for (;;) {
    LVITEMW item{};
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    const auto units = static_cast<std::size_t>(AskWith(LVM_GETITEMTEXTW, static_cast<WPARAM>(row), item));
    if (units + 1 < text.size() || text.size() >= 0x10000) {
      text.resize(units);
      return NarrowText(text);
    }
    text.resize(text.size() * 2);
  }
}

std::optional<LVITEMW> RealList::Item(int row, UINT mask) const {
  if (!Holds(row)) return {};
  LVITEMW item{};
  item.mask = mask;
  item.iItem = row;
  if (AskWith(LVM_GETITEMW, 0, item) == FALSE) return {};
  return item;
}

int RealList::RowIcon(int row) const {
  const auto item = Item(row, LVIF_IMAGE);
  return item ? item->iImage : -1;
}

std::uintptr_t RealList::RowData(int row) const {
  const auto item = Item(row, LVIF_PARAM);
  return item ? static_cast<std::uintptr_t>(item->lParam) : 0;
}

RowState RealList::StateOf(int row) const {
  if (!Holds(row)) return {};
  return StateFrom(static_cast<UINT>(Ask(LVM_GETITEMSTATE, static_cast<WPARAM>(row), selectedAndFocused)));
}

void RealList::SelectAndFocus(int row) {
  if (!Holds(row)) return;
  LVITEMW item{};
  item.state = item.stateMask = selectedAndFocused;
  AskWith(LVM_SETITEMSTATE, static_cast<WPARAM>(row), item);
}

void RealList::EnsureVisible(int row) {
  if (Holds(row)) Ask(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

int RealList::InnerWidth() const {
  return ClientSize().width + (HasStyle(WS_VSCROLL) ? GetSystemMetrics(SM_CXVSCROLL) : 0);
}

void RealList::SetColumnWidth(int pixels) {
  Ask(LVM_SETCOLUMNWIDTH, 0, pixels < 0 ? 0 : pixels);
}

LRESULT RealList::OnNotify(const NMHDR& header) {
  switch (header.code) {
    case LVN_ITEMCHANGED: {
      const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
      const RowState before = StateFrom(change.uOldState);
      const RowState after = StateFrom(change.uNewState);
      if ((change.uChanged & LVIF_STATE) != 0 && before != after && Holds(change.iItem))
        Raise(Event{.kind = EventKind::rowChanged, .row = change.iItem, .before = before, .after = after});
      break;
    }
    case NM_CLICK:
      TellClicked(std::exchange(pressed_, {}).value_or(reinterpret_cast<const NMITEMACTIVATE&>(header).iItem));
      break;
    default:
      break;
  }
  return 0;
}

// The press selects a row, and what its report does can move the rows away under the pointer before the button is up.
std::optional<LRESULT> RealList::OnMessage(UINT message, WPARAM, LPARAM lParam) {
  if (message == WM_LBUTTONDOWN) pressed_ = RowAt({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
  return {};
}

void RealList::TellClicked(int row) const {
  Raise(Event{.kind = EventKind::rowClicked, .row = row});
}

int RealList::RowAt(Point at) const {
  LVHITTESTINFO place{};
  place.pt = {at.x, at.y};
  return static_cast<int>(AskWith(LVM_HITTEST, 0, place));
}

void RealList::SelectNone() {
  LVITEMW item{};
  item.stateMask = LVIS_SELECTED;
  AskWith(LVM_SETITEMSTATE, static_cast<WPARAM>(-1), item);
}

Rect RealList::RowPlace(int row) const {
  RECT place{};
  place.left = LVIR_BOUNDS;
  if (!Holds(row) || AskWith(LVM_GETITEMRECT, static_cast<WPARAM>(row), place) == FALSE) return {};
  return FromRECT(place);
}

}  // namespace set32::win32
