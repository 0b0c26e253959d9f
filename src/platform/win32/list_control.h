// A report list of one column on a real window.
#pragma once

#include "platform/win32/image_list.h"
#include "platform/win32/real_control.h"

namespace set32::win32 {

class RealList : public Real<List> {
 public:
  RealList(Win32Dialog& dialog, HWND window, const ControlTemplate& source);
  void SetIcons(const std::vector<Picture>& icons) override;
  int Count() const override { return AskNumber(LVM_GETITEMCOUNT); }
  int Add(std::string_view text, int icon, std::uintptr_t data) override;
  void Remove(int row) override;
  void Clear() override { Ask(LVM_DELETEALLITEMS); }
  std::string RowText(int row) const override;
  int RowIcon(int row) const override;
  std::uintptr_t RowData(int row) const override;
  RowState StateOf(int row) const override;
  void SelectAndFocus(int row) override;
  void EnsureVisible(int row) override;
  void ScrollBy(int pixels) override { Ask(LVM_SCROLL, 0, pixels); }
  int TopRow() const override { return AskNumber(LVM_GETTOPINDEX); }
  int RowsPerPage() const override { return AskNumber(LVM_GETCOUNTPERPAGE); }
  int InnerWidth() const override;
  void SetColumnWidth(int pixels) override;
  int ColumnWidth() const override { return AskNumber(LVM_GETCOLUMNWIDTH); }

  LRESULT OnNotify(const NMHDR& header) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  // As a click on a row does, or beside the rows with -1.
  void TellClicked(int row) const;
  // Client coordinates of a row, empty for none.
  Rect RowPlace(int row) const;
  // The row that a click there meets, -1 beside the rows.
  int RowAt(Point at) const;
  void SelectNone();

 private:
  bool Holds(int row) const { return row >= 0 && row < Count(); }
  std::optional<LVITEMW> Item(int row, UINT mask) const;

  OwnedImageList icons_;
  std::optional<int> pressed_;  // the row that the mouse button went down on
};

}  // namespace set32::win32
