#include "apps/stage/model/list_model.h"

#include <algorithm>

namespace set32 {

namespace {

constexpr int rowHeight = 17;

// The mark that stood on a row once this row is gone.
int WithoutRow(int mark, int row) {
  if (mark == row) return -1;
  return mark > row ? mark - 1 : mark;
}

}  // namespace

int ListModel::Add(std::string_view text, int icon, std::uintptr_t data) {
  if (!Alive()) return -1;
  rows_.push_back({std::string(text), icon, data});
  return Count() - 1;
}

// The focus of a row that goes passes to the row behind it, without a word.
void ListModel::Remove(int row) {
  if (!Holds(row)) return;
  const bool focused = focused_ == row;
  SetState(row, {});
  if (!Holds(row)) return;
  rows_.erase(rows_.begin() + row);
  selected_ = WithoutRow(selected_, row);
  focused_ = focused && focused_ == -1 ? std::min(row, Count() - 1) : WithoutRow(focused_, row);
  ScrollTo(top_);
}

void ListModel::Clear() {
  rows_.clear();
  selected_ = focused_ = -1;
  top_ = 0;
}

std::string ListModel::RowText(int row) const {
  const Row* at = At(row);
  return at == nullptr ? std::string() : at->text;
}

int ListModel::RowIcon(int row) const {
  const Row* at = At(row);
  return at == nullptr ? -1 : at->icon;
}

std::uintptr_t ListModel::RowData(int row) const {
  const Row* at = At(row);
  return at == nullptr ? 0 : at->data;
}

RowState ListModel::StateOf(int row) const {
  if (!Holds(row)) return {};
  return {row == selected_, row == focused_};
}

void ListModel::EnsureVisible(int row) {
  if (!Holds(row)) return;
  if (row < top_) {
    ScrollTo(row);
  } else if (row >= top_ + RowsPerPage()) {
    ScrollTo(row - RowsPerPage() + 1);
  }
}

void ListModel::ScrollBy(int pixels) {
  const std::int64_t nearest = (std::int64_t{pixels} + (pixels < 0 ? -rowHeight / 2 : rowHeight / 2)) / rowHeight;
  ScrollTo(static_cast<int>(std::clamp<std::int64_t>(top_ + nearest, 0, Count())));
}

int ListModel::RowsPerPage() const {
  return Alive() ? Inside().height / rowHeight : 0;
}

void ListModel::SetColumnWidth(int pixels) {
  if (Alive()) columnWidth_ = std::max(pixels, 0);
}

void ListModel::Perish() {
  Modelled::Perish();
  Clear();
  columnWidth_ = 0;
}

void ListModel::Click(int row) {
  if (!Alive()) return;
  if (Holds(row)) {
    MoveTo(row);
  } else if (Holds(selected_)) {
    SetState(selected_, {false, selected_ == focused_});
  }
  Raise(Event{.kind = EventKind::rowClicked, .row = row});
}

void ListModel::ArrowTo(int row) {
  MoveTo(row);
  EnsureVisible(row);
}

// The row that is left tells its lost selection first, then its lost focus.
void ListModel::MoveTo(int row) {
  if (!Holds(row) || StateOf(row) == RowState{true, true}) return;
  if (selected_ != row && Holds(selected_)) SetState(selected_, {false, selected_ == focused_});
  if (focused_ != row && Holds(focused_)) SetState(focused_, {focused_ == selected_, false});
  if (Holds(row)) SetState(row, {true, true});
}

// The new state stands before its report goes out, so that whoever hears it reads the truth.
void ListModel::SetState(int row, RowState after) {
  const RowState before = StateOf(row);
  if (before == after) return;
  if (before.selected != after.selected) selected_ = after.selected ? row : -1;
  if (before.focused != after.focused) focused_ = after.focused ? row : -1;
  Raise(Event{.kind = EventKind::rowChanged, .row = row, .before = before, .after = after});
}

void ListModel::ScrollTo(int top) {
  top_ = std::clamp(top, 0, std::max(Count() - RowsPerPage(), 0));
}

}  // namespace set32
