#include "apps/stage/model/combo_model.h"

#include <algorithm>

namespace set32 {

namespace {

constexpr int entryHeight = 13;

}  // namespace

ComboModel::ComboModel(HeadlessDialog& dialog, const ControlTemplate& source, const Rect& place)
    : Modelled(dialog, source, place),
      visibleEntries_(std::max((place.Height() - place_.Height()) / entryHeight, 1)) {}

int ComboModel::Insert(int index, std::string_view text) {
  if (!Alive() || index < 0 || index > Count()) return -1;
  entries_.insert(entries_.begin() + index, Entry{std::string(text)});
  if (selected_ >= index) ++selected_;
  return index;
}

void ComboModel::Remove(int index) {
  if (!Holds(index)) return;
  entries_.erase(entries_.begin() + index);
  if (selected_ == index) {
    selected_ = -1;
  } else if (selected_ > index) {
    --selected_;
  }
  SetTopIndex(top_);
}

void ComboModel::Clear() {
  entries_.clear();
  selected_ = -1;
  top_ = 0;
}

std::string ComboModel::EntryText(int index) const {
  return Holds(index) ? entries_[static_cast<std::size_t>(index)].text : std::string();
}

void ComboModel::SetData(int index, std::uintptr_t data) {
  if (Holds(index)) entries_[static_cast<std::size_t>(index)].data = data;
}

std::uintptr_t ComboModel::Data(int index) const {
  return Holds(index) ? entries_[static_cast<std::size_t>(index)].data : 0;
}

void ComboModel::SelectIndex(int index) {
  if (!Alive()) return;
  selected_ = Holds(index) ? index : -1;
  if (selected_ < 0) return;
  if (selected_ < top_) top_ = selected_;
  if (selected_ >= top_ + visibleEntries_) top_ = selected_ - visibleEntries_ + 1;
}

void ComboModel::SetTopIndex(int index) {
  if (Alive()) top_ = std::clamp(index, 0, std::max(Count() - visibleEntries_, 0));
}

int ComboModel::DroppedWidth() const {
  return Alive() ? std::max(droppedWidth_, place_.Width()) : 0;
}

void ComboModel::Perish() {
  Modelled::Perish();
  Clear();
  wasDropped_ = false;
}

void ComboModel::Pick(int index) {
  if (!Alive() || !Holds(index)) return;
  SelectIndex(index);
  Raise(EventKind::selectionChosen);
}

void ComboModel::Drop() {
  if (!Alive()) return;
  wasDropped_ = true;
  Raise(EventKind::dropDown);
  Raise(EventKind::closeUp);
}

}  // namespace set32
