// A sheet of character cells; wide characters take two.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace set32 {

// Cells that a text takes on a terminal.
int CellWidth(std::string_view text);

class CharacterGrid {
 public:
  CharacterGrid(int columns, int rows);

  int Rows() const { return rows_; }

  // Writes into a row from a column on, at most `width` cells; what lies outside is cut.
  void Put(int column, int row, std::string_view text, int width);
  // A frame with a text in its upper edge; the corners lie on the cells told.
  void Frame(int left, int top, int right, int bottom, std::string_view title);

  std::vector<std::string> Lines() const;

 private:
  std::string& Cell(int column, int row);

  int columns_, rows_;
  // UTF-8 of each cell; empty for the second half of a wide character.
  std::vector<std::string> cells_;
};

}  // namespace set32
