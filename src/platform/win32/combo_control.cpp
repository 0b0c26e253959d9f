#include "platform/win32/combo_control.h"

#include <algorithm>

#include "platform/win32/code_page.h"
#include "platform/win32/gdi_canvas.h"
#include "platform/win32/rects.h"
#include "platform/win32/win32_dialog.h"

namespace set32::win32 {

namespace {

constexpr WPARAM selectionField = static_cast<WPARAM>(-1);

}  // namespace

Rect RealCombo::Place() const {
  return PlaceInDialog();
}

// The height of a combo's window is that of the closed field; what Move is given may be its list's as well, and the
// list keeps the height that it has.
void RealCombo::Move(const Rect& place) {
  if (!Exists()) return;
  RECT dropped{};
  AskWith(CB_GETDROPPEDCONTROLRECT, 0, dropped);
  MoveWindow(Window(), place.left, place.top, place.Width(), dropped.bottom - dropped.top, TRUE);
}

int RealCombo::Insert(int index, std::string_view text) {
  if (!Exists() || index < 0 || index > Count()) return -1;
  const int before = Selected();
  const std::wstring wide = ModuleText().Wide(text);
  const int at = AskNumber(CB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(wide.c_str()));
  if (at < 0) return -1;
  // The selection stays with its entry whatever this version of the control does by itself.
  if (before >= at && Selected() != before + 1) SelectIndex(before + 1);
  return at;
}

void RealCombo::Remove(int index) {
  if (Holds(index)) Ask(CB_DELETESTRING, static_cast<WPARAM>(index));
}

std::string RealCombo::EntryText(int index) const {
  if (!Holds(index)) return {};
  const auto at = static_cast<WPARAM>(index);
  const int units = AskNumber(CB_GETLBTEXTLEN, at);
  if (units <= 0) return {};
  std::wstring text(static_cast<std::size_t>(units) + 1, L'\0');
  const int stored = AskNumber(CB_GETLBTEXT, at, reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(std::clamp(stored, 0, units)));
  return NarrowText(text);
}

void RealCombo::SetData(int index, std::uintptr_t data) {
  if (Holds(index)) Ask(CB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(data));
}

std::uintptr_t RealCombo::Data(int index) const {
  return Holds(index) ? static_cast<std::uintptr_t>(Ask(CB_GETITEMDATA, static_cast<WPARAM>(index))) : 0;
}

// Not every version of the control scrolls as little as needed, so the list is put where it belongs.
void RealCombo::SelectIndex(int index) {
  if (!Exists()) return;
  int top = TopIndex();
  Ask(CB_SETCURSEL, static_cast<WPARAM>(Holds(index) ? index : -1));
  if (!Holds(index)) return;
  top = std::clamp(top, index - VisibleEntries() + 1, index);
  if (top != TopIndex()) SetTopIndex(top);
}

// To the list itself: not every version of the control passes this on.
void RealCombo::SetTopIndex(int index) {
  if (Count() == 0) return;
  const int last = std::max(Count() - VisibleEntries(), 0);
  SendMessageW(ListWindow(), LB_SETTOPINDEX, static_cast<WPARAM>(std::clamp(index, 0, last)), 0);
}

int RealCombo::VisibleEntries() const {
  const HWND list = ListWindow();
  const auto height = static_cast<int>(SendMessageW(list, LB_GETITEMHEIGHT, 0, 0));
  return height <= 0 ? 1 : std::max(ClientSizeOf(list).height / height, 1);
}

void RealCombo::SetDroppedWidth(int pixels) {
  Ask(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(std::max(pixels, Place().Width())));
}

void RealCombo::SetPainter(ItemPainter* painter) {
  painter_ = Exists() ? painter : nullptr;
  if (painter_ == nullptr) return;
  const int height = painter_->ItemHeight();
  Ask(CB_SETITEMHEIGHT, 0, height);
  Ask(CB_SETITEMHEIGHT, selectionField, height);
}

void RealCombo::OnCommand(WORD code) {
  switch (code) {
    case CBN_SELCHANGE:
      Raise(EventKind::selectionChosen);
      break;
    case CBN_DROPDOWN:
      Raise(EventKind::dropDown);
      break;
    case CBN_CLOSEUP:
      Raise(EventKind::closeUp);
      break;
    case CBN_SETFOCUS:
      Raise(EventKind::focusGained);
      break;
    case CBN_KILLFOCUS:
      Raise(EventKind::focusLost);
      break;
    default:
      break;
  }
}

void RealCombo::OnDrawItem(const DRAWITEMSTRUCT& item) {
  const Rect place = FromRECT(item.rcItem);
  const int index = item.itemID == static_cast<UINT>(-1) ? -1 : static_cast<int>(item.itemID);
  const bool selected = (item.itemState & ODS_SELECTED) != 0;
  GdiCanvas canvas(item.hDC, {place.right, place.bottom});
  if (painter_ != nullptr) {
    painter_->DrawItem(canvas, ItemToDraw{.index = index,
                                          .place = place,
                                          .entire = (item.itemAction & ODA_DRAWENTIRE) != 0,
                                          .selectionChanged = (item.itemAction & ODA_SELECT) != 0,
                                          .focusChanged = (item.itemAction & ODA_FOCUS) != 0,
                                          .selected = selected,
                                          .disabled = !IsEnabled()});
    return;
  }
  canvas.Fill(place, canvas.ColourOf(selected ? SystemColour::highlight : SystemColour::window));
  canvas.Text(EntryText(index), place,
              canvas.ColourOf(selected ? SystemColour::highlightText : SystemColour::windowText));
}

HWND RealCombo::ListWindow() const {
  COMBOBOXINFO info{};
  info.cbSize = sizeof info;
  return Exists() && GetComboBoxInfo(Window(), &info) ? info.hwndList : nullptr;
}

}  // namespace set32::win32
