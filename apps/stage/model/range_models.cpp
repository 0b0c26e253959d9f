#include "apps/stage/model/range_models.h"

#include <charconv>
#include <string>

#include "apps/stage/model/headless_dialog.h"

namespace set32 {

namespace {

std::optional<int> WholeNumber(const std::string& text) {
  int number = 0;
  const char* end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stopped != end) return {};
  return number;
}

}  // namespace

void SliderModel::Press(Key key) {
  const std::int64_t before = Position();
  const std::int64_t page = std::max<std::int64_t>((std::int64_t{High()} - Low()) / 5, 1);
  switch (key) {
    case Key::left:
    case Key::up:
      return MoveTo(before - lineSize_, scroll_code::lineLeft);
    case Key::right:
    case Key::down:
      return MoveTo(before + lineSize_, scroll_code::lineRight);
    case Key::pageUp:
      return MoveTo(before - page, scroll_code::pageLeft);
    case Key::pageDown:
      return MoveTo(before + page, scroll_code::pageRight);
    case Key::home:
      return MoveTo(Low(), scroll_code::leftEnd);
    case Key::end:
      return MoveTo(High(), scroll_code::rightEnd);
    default:
      return;
  }
}

void SliderModel::MoveTo(std::int64_t position, int code) {
  const int before = Position();
  SetPosition(static_cast<int>(std::clamp<std::int64_t>(position, Low(), High())));
  if (Position() != before) Raise(Event{.kind = EventKind::scrolled, .code = code});
  Raise(Event{.kind = EventKind::scrolled, .code = scroll_code::endScroll});
}

void SpinModel::SetRange(int low, int high) {
  if (!Alive()) return;
  low_ = low;
  high_ = high;
}

int SpinModel::Position() const {
  if (const Control* edit = BuddyEdit()) {
    const std::optional<int> number = WholeNumber(edit->Text());
    if (number && Held(*number) == *number) return *number;
  }
  return position_;
}

void SpinModel::SetPosition(int position) {
  if (Alive()) MoveTo(Held(position));
}

void SpinModel::SetBuddy(int editId) {
  if (Alive()) buddy_ = editId;
}

void SpinModel::Perish() {
  Modelled::Perish();
  low_ = high_ = position_ = buddy_ = 0;
}

void SpinModel::Step(int delta) {
  if (!Alive()) return;
  position_ = Position();
  bool refuse = false;
  Raise(Event{.kind = EventKind::spinDelta, .position = position_, .delta = delta, .refuse = &refuse});
  if (!refuse && Alive()) MoveTo(Held(std::int64_t{position_} + delta));
  Raise(Event{.kind = EventKind::scrolled, .code = scroll_code::thumbPosition, .position = position_});
  Raise(Event{.kind = EventKind::scrolled, .code = scroll_code::endScroll});
}

Control* SpinModel::BuddyEdit() const {
  return Alive() && buddy_ != 0 ? Owner()->Find(buddy_) : nullptr;
}

// A spin may run the other way round, from a high number down to a low one.
int SpinModel::Held(std::int64_t position) const {
  return static_cast<int>(std::clamp<std::int64_t>(position, std::min(low_, high_), std::max(low_, high_)));
}

void SpinModel::MoveTo(int position) {
  position_ = position;
  Control* edit = BuddyEdit();
  const std::string number = std::to_string(position);
  if (edit != nullptr && edit->Text() != number) edit->SetText(number);
}

}  // namespace set32
