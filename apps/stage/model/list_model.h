// The report list of the model: one column of rows, each with an icon, one selected and one focused.
#pragma once

#include <vector>

#include "apps/stage/model/control_model.h"

namespace set32 {

class ListModel : public Modelled<List> {
 public:
  using Modelled::Modelled;

  void SetIcons(const std::vector<Picture>& icons) override { icons_ = icons; }
  int Count() const override { return static_cast<int>(rows_.size()); }
  int Add(std::string_view text, int icon, std::uintptr_t data) override;
  void Remove(int row) override;
  void Clear() override;
  std::string RowText(int row) const override;
  int RowIcon(int row) const override;
  std::uintptr_t RowData(int row) const override;
  RowState StateOf(int row) const override;
  void SelectAndFocus(int row) override { MoveTo(row); }
  void EnsureVisible(int row) override;
  void ScrollBy(int pixels) override;
  int TopRow() const override { return top_; }
  int RowsPerPage() const override;
  int InnerWidth() const override { return Alive() ? Inside().width : 0; }
  void SetColumnWidth(int pixels) override;
  int ColumnWidth() const override { return columnWidth_; }
  void Perish() override;

  // A person's acts; -1 is a click beside the rows.
  void Click(int row);
  void ArrowTo(int row);

 private:
  struct Row {
    std::string text;
    int icon = -1;
    std::uintptr_t data = 0;
  };
  bool Holds(int row) const { return row >= 0 && row < Count(); }
  const Row* At(int row) const { return Holds(row) ? &rows_[static_cast<std::size_t>(row)] : nullptr; }
  void MoveTo(int row);
  void SetState(int row, RowState after);
  void ScrollTo(int top);

  std::vector<Picture> icons_;
  std::vector<Row> rows_;
  int selected_ = -1;
  int focused_ = -1;
  int top_ = 0;
  int columnWidth_ = 0;
};

}  // namespace set32
