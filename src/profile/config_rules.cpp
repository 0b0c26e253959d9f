#include "profile/config_rules.h"

#include <algorithm>
#include <cmath>

namespace set32 {

int CustomRow(std::span<const RowFlags> rows) {
  const int count = static_cast<int>(rows.size());
  int row = count < 2 ? 0 : count - 1;
  while (row > 0 && rows[static_cast<std::size_t>(row)].editable == 1) --row;
  return row + 1;
}

AutoSaveTarget FindAutoSaveTarget(std::span<const RowFlags> rows, int selectedRow) {
  if (selectedRow < 0 || selectedRow >= static_cast<int>(rows.size())) return {};
  const RowFlags& selected = rows[static_cast<std::size_t>(selectedRow)];
  if (!selected.hasItem) return {};
  if (selected.editable != 0) return {selectedRow, selected.editable, selected.deletable, false};
  const int custom = CustomRow(rows);
  if (custom >= static_cast<int>(rows.size())) return {};
  return {custom, 1, 0, true};
}

int RowAfterDeletion(int selectedRow, int rowsBefore, int rowsAfter) {
  return selectedRow == rowsBefore - 1 ? rowsAfter - 1 : std::min(selectedRow, rowsAfter - 1);
}

RowButtons ButtonsOf(const RowFlags& row) {
  if (!row.hasItem) return {true, false};
  return {row.editable == 1, row.deletable == 1};
}

int ModeIcon(std::uint32_t mode) {
  switch (mode) {
    case mode::blackWhite:
      return 0;
    case mode::gray:
      return 1;
    case mode::jpegColour:
      return 3;
    case mode::jpegGray:
      return 4;
    default:
      return 2;
  }
}

int ColumnWidthFor(const ColumnRoom& room, int row, int rowsPerPage, int textWidth) {
  constexpr int border = 5;
  constexpr int borderAndScrollBar = 19;
  if (textWidth > room.window + borderAndScrollBar) return textWidth;
  if (row + 1 <= rowsPerPage) return std::min(room.window - border, room.inside);
  return std::min(room.window - borderAndScrollBar, room.inside - room.scrollBar);
}

void CutLengths(ScanSettings& settings) {
  for (double* length : {&settings.height, &settings.width, &settings.customHeight, &settings.customWidth}) {
    *length = std::trunc(*length * 100.0) * 0.01;
  }
}

}  // namespace set32
