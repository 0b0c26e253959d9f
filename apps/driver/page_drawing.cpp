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
  bool Meets(int row, int first, int last) const { return middle == row && left <= last && right >= first; }
};

// A control ends before the cell that its right neighbour may begin in.
Cells CellsOf(const Rect& place) {
  const int left = place.left / cellWidth;
  return {left, std::max(left, place.right / cellWidth - 1),
          std::max(0, (place.top + place.bottom) / 2 - lift) / cellHeight, place.top / cellHeight,
          std::max(place.top, place.bottom - 1) / cellHeight};
}

bool IsEdge(ControlKind kind) {
  return kind == ControlKind::group || kind == ControlKind::frame || kind == ControlKind::list;
}

// Whether all that is drawn is a text, which a window system would cut at the control's end.
bool IsTextAlone(ControlKind kind) {
  return kind == ControlKind::label || kind == ControlKind::check || kind == ControlKind::radio;
}

std::string Padded(std::string text, int width) {
  const int missing = width - CellWidth(text);
  if (missing > 0) text.append(static_cast<std::size_t>(missing), ' ');
  return text;
}

// Draws each control where none of those that were drawn before it is covered.
class PageDrawer {
 public:
  explicit PageDrawer(CharacterGrid& grid) : grid_(grid) {}

  void DrawEdge(const Control& control) {
    Cells at = CellsOf(control.Place());
    if (control.Kind() == ControlKind::group) {
      grid_.Frame(at.left, at.top, ++at.right, at.bottom, WithoutAccelerator(control.Text()));
    } else if (const auto* list = dynamic_cast<const List*>(&control)) {
      Rows(*list, at);
    } else {
      grid_.Frame(at.left, at.top, at.right, at.bottom, {});
    }
    edges_.push_back(at);
  }

  void Draw(const Control& control) {
    Cells at = BesideEdges(CellsOf(control.Place()));
    if (control.Kind() == ControlKind::spin) {
      at = BehindOthers(at);
    } else {
      const int whole = IsTextAlone(control.Kind()) ? CellWidth(TextOf(control)) : 0;
      at = Free(at, std::max(at.Width(), whole));
    }
    drawn_.push_back(at);
    switch (control.Kind()) {
      case ControlKind::label:
      case ControlKind::check:
      case ControlKind::radio:
        return grid_.Put(at.left, at.middle, TextOf(control), at.Width());
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
      case ControlKind::tab:
        return Tabs(dynamic_cast<const TabBar&>(control), at.left, at.middle, at.Width());
      case ControlKind::slider:
        return Track(at, dynamic_cast<const RangeControl&>(control), "├", "┤");
      case ControlKind::scroll:
        return Track(at, dynamic_cast<const RangeControl&>(control), "◂", "▸");
      case ControlKind::spin:
        return grid_.Put(at.left, at.middle, "↕", 1);
      case ControlKind::group:
      case ControlKind::frame:
      case ControlKind::list:
        return;
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
  // Inside the edges that it would lie on.
  Cells BesideEdges(Cells at) const {
    constexpr int narrow = 3;
    for (const Cells& edge : edges_) {
      if (at.middle <= edge.top || at.middle >= edge.bottom || at.Width() <= narrow) continue;
      if (at.left == edge.left) ++at.left;
      if (at.right == edge.right) --at.right;
    }
    return at;
  }

  bool IsFree(int row, int first, int last) const {
    const auto isCovered = [&](const Cells& other) { return other.Meets(row, first, last); };
    const auto isOnEdge = [&](const Cells& edge) {
      const bool isAcross = row >= edge.top && row <= edge.bottom;
      const bool isAlong = (row == edge.top || row == edge.bottom) && first <= edge.right && last >= edge.left;
      return isAlong ||
             (isAcross && ((first <= edge.left && last >= edge.left) || (first <= edge.right && last >= edge.right)));
    };
    return std::ranges::none_of(drawn_, isCovered) && std::ranges::none_of(edges_, isOnEdge);
  }

  // The row of its middle, or the nearest one where it covers nothing; with the width that is wanted where it fits.
  Cells Free(const Cells& at, int wanted) const {
    for (const int away : {0, 1, -1, 2, -2}) {
      for (const int width : {wanted, at.Width()}) {
        Cells place = at;
        place.middle += away;
        place.right = place.left + width - 1;
        if (place.middle >= 0 && place.middle < grid_.Rows() && IsFree(place.middle, place.left, place.right))
          return place;
      }
    }
    return at;
  }

  // A spin may lie within its edit.
  Cells BehindOthers(Cells at) const {
    while (!IsFree(at.middle, at.left, at.left)) ++at.left;
    at.right = at.left;
    return at;
  }

  static std::string TextOf(const Control& control) {
    const auto marked = [&control](const char* on, const char* off) {
      return dynamic_cast<const CheckButton&>(control).IsChecked() ? on : off;
    };
    std::string mark;
    if (control.Kind() == ControlKind::check) mark = marked("[x] ", "[ ] ");
    if (control.Kind() == ControlKind::radio) mark = marked("(•) ", "( ) ");
    return mark + WithoutAccelerator(control.Text());
  }

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
  std::vector<Cells> edges_;  // of frames, groups and lists
  std::vector<Cells> drawn_;  // of all others
};

}  // namespace

std::vector<std::string> DrawInCharacters(const Dialog& dialog, const TabBar* tabs) {
  constexpr int widest = 200;
  constexpr int highest = 120;
  const Size client = dialog.ClientSize();
  const int columns = std::clamp(client.width / cellWidth + 1, 1, widest);
  const int rows = std::clamp(client.height / cellHeight + 1, 1, highest);

  // Edges lie at the bottom. Then come those that fill their place, and texts last, which can move aside.
  CharacterGrid grid(columns, rows);
  PageDrawer drawer(grid);
  const auto drawAll = [&dialog](auto isWanted, auto draw) {
    for (const auto& control : dialog.Controls())
      if (control->IsVisible() && isWanted(control->Kind())) draw(*control);
  };
  drawAll(IsEdge, [&](const Control& control) { drawer.DrawEdge(control); });
  drawAll([](ControlKind kind) { return !IsEdge(kind) && !IsTextAlone(kind); },
          [&](const Control& control) { drawer.Draw(control); });
  drawAll(IsTextAlone, [&](const Control& control) { drawer.Draw(control); });

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
