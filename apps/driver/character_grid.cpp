#include "apps/driver/character_grid.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "platform/utf8.h"

namespace set32 {

namespace {

// Where East Asian writing stands.
constexpr std::array<std::pair<std::uint32_t, std::uint32_t>, 9> wideRanges = {{
    {0x1100, 0x115F},
    {0x2E80, 0xA4CF},
    {0xAC00, 0xD7A3},
    {0xF900, 0xFAFF},
    {0xFE30, 0xFE6F},
    {0xFF01, 0xFF60},
    {0xFFE0, 0xFFE6},
    {0x1F300, 0x1F9FF},
    {0x20000, 0x3FFFD},
}};

std::uint32_t CodeOf(std::string_view character) {
  const auto first = static_cast<unsigned char>(character[0]);
  if (character.size() == 1) return first;
  std::uint32_t code = first & (0xFFU >> (character.size() + 1));
  for (const char byte : character.substr(1)) code = code << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
  return code;
}

int WidthOf(std::string_view character) {
  const std::uint32_t code = CodeOf(character);
  return std::any_of(wideRanges.begin(), wideRanges.end(),
                     [code](const auto& range) { return code >= range.first && code <= range.second; })
             ? 2
             : 1;
}

// Calls with each character that can be shown; a control character becomes a blank.
template <typename Visit>
void ForEachCharacter(std::string_view text, Visit visit) {
  while (!text.empty()) {
    const std::string_view character = text.substr(0, utf8::CharacterLength(text));
    text.remove_prefix(character.size());
    const bool control = character.size() == 1 && static_cast<unsigned char>(character[0]) < ' ';
    visit(control ? std::string_view(" ") : utf8::IsCharacter(character) ? character : std::string_view("?"));
  }
}

}  // namespace

int CellWidth(std::string_view text) {
  int width = 0;
  ForEachCharacter(text, [&](std::string_view character) { width += WidthOf(character); });
  return width;
}

CharacterGrid::CharacterGrid(int columns, int rows)
    : columns_(columns),
      rows_(rows),
      cells_(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows), " ") {}

std::string& CharacterGrid::Cell(int column, int row) {
  return cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
                static_cast<std::size_t>(column)];
}

void CharacterGrid::Put(int column, int row, std::string_view text, int width) {
  if (row < 0 || row >= rows_) return;
  const int end = std::min(column + width, columns_);
  ForEachCharacter(text, [&](std::string_view character) {
    const int cells = WidthOf(character);
    if (column >= 0 && column + cells <= end) {
      // Half of a wide character that was there before can't stay.
      if (Cell(column, row).empty()) Cell(column - 1, row).assign(1, ' ');
      if (column + cells < columns_ && Cell(column + cells, row).empty()) Cell(column + cells, row).assign(1, ' ');
      Cell(column, row) = character;
      if (cells == 2) Cell(column + 1, row).clear();
    }
    column += cells;
  });
}

void CharacterGrid::Frame(int left, int top, int right, int bottom, std::string_view title) {
  for (int column = left + 1; column < right; ++column) {
    Put(column, top, "─", 1);
    Put(column, bottom, "─", 1);
  }
  for (int row = top + 1; row < bottom; ++row) {
    Put(left, row, "│", 1);
    Put(right, row, "│", 1);
  }
  Put(left, top, "┌", 1);
  Put(right, top, "┐", 1);
  Put(left, bottom, "└", 1);
  Put(right, bottom, "┘", 1);
  if (title.empty()) return;
  const int width = std::min(CellWidth(title), right - left - 5);
  Put(left + 2, top, " ", 1);
  Put(left + 3, top, title, width);
  Put(left + 3 + width, top, " ", 1);
}

std::vector<std::string> CharacterGrid::Lines() const {
  std::vector<std::string> lines;
  for (int row = 0; row < rows_; ++row) {
    std::string line;
    for (int column = 0; column < columns_; ++column) {
      line += cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
                     static_cast<std::size_t>(column)];
    }
    line.erase(line.find_last_not_of(' ') + 1);
    lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace set32
