#include "apps/driver/page_drawing.h"

#include <algorithm>

#include "apps/driver/character_grid.h"
#include "apps/driver/possible.h"

namespace set32 {

namespace {

// Pixels that a cell stands for: a little less than a letter's width, and a line of text.
constexpr int cellWidth = 5;
constexpr int cellHeight = 13;
// Brings controls whose middles differ by a pixel or two into one row.
constexpr int lift = 3;

// The cells of a control on the page: first and last column, row of its middle, first and last row.
struct Cells {
  int left, right, middle, top, bottom;
  int Width() const { return right - left + 1; }
};

// A control ends before the cell that its right neighbour may begin in.
Cells CellsOf(const Rect& place) {
  const int left = place.left / cellWidth;
  return {left, std::max(left, place.right / cellWidth - 1),
          std::max(0, (place.top + place.bottom) / 2 - lift) / cellHeight, place.top / cellHeight,
          std::max(place.top, place.bottom - 1) / cellHeight};
}

std::string Padded(std::string text, int width) {
  const int missing = width - CellWidth(text);
  if (missing > 0) text.append(static_cast<std::size_t>(missing), ' ');
  return text;
}

class PageDrawer {
 public:
  explicit PageDrawer(CharacterGrid& grid) : grid_(grid) {}

  void Draw(const Control& control) {
    const Cells at = CellsOf(control.Place());
    switch (control.Kind()) {
      case ControlKind::group:
        return grid_.Frame(at.left, at.top, at.right + 1, at.bottom, WithoutAccelerator(control.Text()));
      case ControlKind::frame:
        return grid_.Frame(at.left, at.top, at.right, at.bottom, {});
      case ControlKind::label:
        return grid_.Put(at.left, at.middle, WithoutAccelerator(control.Text()), at.Width() + 1);
      case ControlKind::edit:
      case ControlKind::address:
        return Boxed(control, at, control.Text(), "]");
      case ControlKind::combo:
      case ControlKind::iconCombo:
        return Boxed(control, at, control.Text(), "▾]");
      case ControlKind::button:
      case ControlKind::defaultButton:
        return PushButton(control, at);
      case ControlKind::pictureButton:
      case ControlKind::picture:
        return grid_.Put(at.left, at.middle, "▣", 1);
      case ControlKind::check:
        return Mark(control, at, "[x] ", "[ ] ");
      case ControlKind::radio:
        return Mark(control, at, "(•) ", "( ) ");
      case ControlKind::list:
        return Rows(dynamic_cast<const List&>(control), at);
      case ControlKind::tab:
        return Tabs(dynamic_cast<const TabBar&>(control), at.left, at.middle, at.Width());
      case ControlKind::slider:
        return Track(at, dynamic_cast<const RangeControl&>(control), "├", "┤");
      case ControlKind::scroll:
        return Track(at, dynamic_cast<const RangeControl&>(control), "◂", "▸");
      case ControlKind::spin:
        return grid_.Put(at.left, at.middle, "↕", 1);
    }
  }

  // The current tab stands in brackets.
  void Tabs(const TabBar& tabs, int column, int row, int width) {
    std::string line;
    for (int i = 0; i < tabs.Count(); ++i) {
      const std::string text = tabs.TabImage(i) >= 0 ? std::to_string(tabs.TabImage(i)) : tabs.TabText(i);
      line += i == tabs.Current() ? '[' + text + ']' : ' ' + text + ' ';
    }
    grid_.Put(column, row, line, width);
  }

 private:
  // What can't be used stands between dots.
  void Boxed(const Control& control, const Cells& at, std::string_view text, std::string_view end) {
    const std::string_view open = control.IsEnabled() ? "[" : "·";
    const std::string close = control.IsEnabled() ? std::string(end) : "·";
    const int inside = at.Width() - 1 - CellWidth(close);
    grid_.Put(at.left, at.middle, open, 1);
    grid_.Put(at.left + 1, at.middle, Padded(std::string(text), inside), inside);
    grid_.Put(at.left + 1 + inside, at.middle, close, CellWidth(close));
  }

  void PushButton(const Control& control, const Cells& at) {
    const std::string text = WithoutAccelerator(control.Text());
    const int spare = std::max(0, at.Width() - 2 - CellWidth(text));
    const std::string inside = std::string(static_cast<std::size_t>(spare / 2), ' ') + text;
    grid_.Put(at.left, at.middle, control.IsEnabled() ? "<" : "·", 1);
    grid_.Put(at.left + 1, at.middle, Padded(inside, at.Width() - 2), at.Width() - 2);
    grid_.Put(at.right, at.middle, control.IsEnabled() ? ">" : "·", 1);
  }

  void Mark(const Control& control, const Cells& at, std::string_view on, std::string_view off) {
    const auto& button = dynamic_cast<const CheckButton&>(control);
    const std::string mark(button.IsChecked() ? on : off);
    grid_.Put(at.left, at.middle, mark + WithoutAccelerator(control.Text()), at.Width() + 1);
  }

  void Rows(const List& list, const Cells& at) {
    grid_.Frame(at.left, at.top, at.right, at.bottom, {});
    int row = at.top + 1;
    for (int i = list.TopRow(); i < list.Count() && row < at.bottom; ++i, ++row) {
      const std::string text = (list.StateOf(i).selected ? "▸ " : "  ") + list.RowText(i);
      grid_.Put(at.left + 1, row, text, at.Width() - 2);
    }
  }

  void Track(const Cells& at, const RangeControl& range, std::string_view start, std::string_view end) {
    const int inside = at.Width() - 2;
    if (inside < 1) return;
    for (int i = 0; i < inside; ++i) grid_.Put(at.left + 1 + i, at.middle, "─", 1);
    const double low = range.Low();
    const double share = range.High() > low ? (range.Position() - low) / (range.High() - low) : 0;
    const int thumb = static_cast<int>(std::clamp(share, 0.0, 1.0) * (inside - 1));
    grid_.Put(at.left, at.middle, start, 1);
    grid_.Put(at.right, at.middle, end, 1);
    grid_.Put(at.left + 1 + thumb, at.middle, "■", 1);
  }

  CharacterGrid& grid_;
};

}  // namespace

std::vector<std::string> DrawInCharacters(const Dialog& dialog, const TabBar* tabs) {
  constexpr int widest = 200;
  constexpr int highest = 120;
  const Size client = dialog.ClientSize();
  const int columns = std::clamp(client.width / cellWidth + 1, 1, widest);
  const int rows = std::clamp(client.height / cellHeight + 1, 1, highest);

  // Frames lie at the bottom, and of the others a later one lies under an earlier one, as windows do.
  CharacterGrid grid(columns, rows);
  PageDrawer drawer(grid);
  const auto isFrame = [](const Control& control) { return control.Kind() == ControlKind::group; };
  const auto& controls = dialog.Controls();
  for (const auto& control : controls) {
    if (control->IsVisible() && isFrame(*control)) drawer.Draw(*control);
  }
  for (auto control = controls.rbegin(); control != controls.rend(); ++control) {
    if ((*control)->IsVisible() && !isFrame(**control)) drawer.Draw(**control);
  }

  std::vector<std::string> lines = grid.Lines();
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  if (tabs != nullptr) {
    CharacterGrid strip(columns, 1);
    PageDrawer(strip).Tabs(*tabs, 0, 0, columns);
    lines.insert(lines.begin(), strip.Lines().front());
  } else if (!dialog.Title().empty()) {
    lines.insert(lines.begin(), "== " + dialog.Title() + " ==");
  }
  return lines;
}

}  // namespace set32
