// Which row of the configuration list is meant: the store's rules as functions of the rows' flags, without windows.
#pragma once

#include <cstdint>
#include <span>

#include "set32/host_records.h"

namespace set32 {

// The flags as they are stored: 1 is set; of an edited file any other byte but 0 counts as set only where a change is
// taken up, not for the buttons nor for the run of editable rows.
struct RowFlags {
  std::uint8_t editable = 0;
  std::uint8_t deletable = 0;
  bool hasItem = true;  // false for the fallback row
};

// The first row of the run of editable rows that ends the list, where row 0 is never looked at; the number of rows
// when no editable row ends the list, and 1 with fewer than two rows.
int CustomRow(std::span<const RowFlags> rows);

struct AutoSaveTarget {
  int row = -1;  // -1: nothing is saved
  std::uint8_t editable = 0;
  std::uint8_t deletable = 0;
  bool countsFromEnd = false;  // the row is found again by its distance from the end of the new list
};

// Where a change goes that was made while `selectedRow` is selected: into the row itself, if it is editable, else
// into the custom row.
AutoSaveTarget FindAutoSaveTarget(std::span<const RowFlags> rows, int selectedRow);

// The row that is selected after a deletion; the last one where a file edited meanwhile lost more.
int RowAfterDeletion(int selectedRow, int rowsBefore, int rowsAfter);

// Whether the buttons Save and Delete are live on a row.
struct RowButtons {
  bool save = false;
  bool remove = false;
};
RowButtons ButtonsOf(const RowFlags& row);

// Place of a mode's icon in the list's image list.
int ModeIcon(std::uint32_t mode);

// What a list has for its one column: its window's width, what its border leaves of it, what a scroll bar would take
// of that. Pixels.
struct ColumnRoom {
  int window = 0;
  int inside = 0;
  int scrollBar = 0;
};

// Width of the list's one column for a row: as much as the list shows at once, with a vertical scroll bar once the
// rows don't fit, so that there is no horizontal one; or the text's width where that is much wider. Pixels.
int ColumnWidthFor(const ColumnRoom& room, int row, int rowsPerPage, int textWidth);

// Lengths of a record as a click takes them: cut to two decimals.
void CutLengths(ScanSettings& settings);

}  // namespace set32
