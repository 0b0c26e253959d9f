#include "apps/stage/model/tab_model.h"

#include <algorithm>

namespace set32 {

namespace {

constexpr int stripHeight = 21;  // of the row of tabs
constexpr int edge = 4;          // around a page

}  // namespace

void TabModel::SetImages(const Picture& strip, int width, Colour) {
  if (!Alive()) return;
  strip_ = strip;
  imageWidth_ = width;
}

void TabModel::Add(std::string_view text, int image) {
  if (!Alive()) return;
  tabs_.push_back({std::string(text), image});
  if (Count() == 1) current_ = 0;
}

void TabModel::Remove(int index) {
  if (!Holds(index)) return;
  tabs_.erase(tabs_.begin() + index);
  if (current_ == index) {
    current_ = -1;
  } else if (current_ > index) {
    --current_;
  }
}

void TabModel::Clear() {
  tabs_.clear();
  current_ = -1;
}

void TabModel::SetCurrent(int index) {
  if (index == -1 || Holds(index)) current_ = index;
}

std::string TabModel::TabText(int index) const {
  return Holds(index) ? tabs_[static_cast<std::size_t>(index)].text : std::string();
}

int TabModel::TabImage(int index) const {
  return Holds(index) ? tabs_[static_cast<std::size_t>(index)].image : -1;
}

Rect TabModel::DisplayArea() const {
  if (!Alive()) return {};
  const Size size = Inside();
  return {edge, stripHeight + edge, std::max(size.width - edge, edge),
          std::max(size.height - edge, stripHeight + edge)};
}

void TabModel::Perish() {
  Modelled::Perish();
  Clear();
}

void TabModel::Choose(int index) {
  if (!Alive() || !Holds(index) || index == current_) return;
  Raise(EventKind::tabChanging);
  if (!Holds(index)) return;
  current_ = index;
  Raise(EventKind::tabChanged);
}

}  // namespace set32
