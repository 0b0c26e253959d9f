#include "platform/win32/tab_control.h"

#include <array>

#include "platform/win32/code_page.h"
#include "platform/win32/rects.h"
#include "platform/win32/win32_dialog.h"

namespace set32::win32 {

void RealTabBar::SetImages(const Picture& strip, int width, Colour transparent) {
  if (!Exists()) return;
  OwnedImageList list = MakeImageList(strip, width, transparent);
  Ask(TCM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(list.Get()));
  images_ = std::move(list);
}

void RealTabBar::Add(std::string_view text, int image) {
  if (!Exists()) return;
  std::wstring wide = ModuleText().Wide(text);
  TCITEMW item{};
  item.mask = TCIF_TEXT | TCIF_IMAGE;
  item.pszText = wide.data();
  item.iImage = image;
  AskWith(TCM_INSERTITEMW, static_cast<WPARAM>(Count()), item);
}

void RealTabBar::Remove(int index) {
  if (Holds(index)) Ask(TCM_DELETEITEM, static_cast<WPARAM>(index));
}

void RealTabBar::SetCurrent(int index) {
  if (index == -1 || Holds(index)) Ask(TCM_SETCURSEL, static_cast<WPARAM>(index));
}

std::string RealTabBar::TabText(int index) const {
  if (!Holds(index)) return {};
  std::array<wchar_t, 256> text{};
  TCITEMW item{};
  item.mask = TCIF_TEXT;
  item.pszText = text.data();
  item.cchTextMax = static_cast<int>(text.size());
  AskWith(TCM_GETITEMW, static_cast<WPARAM>(index), item);
  // The control may answer with a text of its own instead of filling the buffer.
  return item.pszText == nullptr ? std::string() : NarrowText(item.pszText);
}

int RealTabBar::TabImage(int index) const {
  TCITEMW item{};
  item.mask = TCIF_IMAGE;
  if (!Holds(index) || AskWith(TCM_GETITEMW, static_cast<WPARAM>(index), item) == FALSE) return -1;
  return item.iImage;
}

Rect RealTabBar::DisplayArea() const {
  if (!Exists()) return {};
  RECT area{};
  GetClientRect(Window(), &area);
  AskWith(TCM_ADJUSTRECT, FALSE, area);
  return FromRECT(area);
}

LRESULT RealTabBar::OnNotify(const NMHDR& header) {
  if (header.code == TCN_SELCHANGING) Raise(EventKind::tabChanging);
  if (header.code == TCN_SELCHANGE) Raise(EventKind::tabChanged);
  return FALSE;  // a change is never refused
}

Rect RealTabBar::TabPlace(int index) const {
  RECT place{};
  if (!Holds(index) || AskWith(TCM_GETITEMRECT, static_cast<WPARAM>(index), place) == FALSE) return {};
  return FromRECT(place);
}

}  // namespace set32::win32
