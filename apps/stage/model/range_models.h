// Controls of the model that hold a position in a range: slider, scroll bar, spin.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

#include "apps/stage/input.h"
#include "apps/stage/model/control_model.h"

namespace set32 {

// A slider or a scroll bar.
template <typename Interface>
class BarModel : public Modelled<Interface> {
 public:
  using Modelled<Interface>::Modelled;

  void SetRange(int low, int high) override {
    if (!this->Alive()) return;
    low_ = low;
    high_ = std::max(low, high);
    SetPosition(position_);
  }
  int Low() const override { return low_; }
  int High() const override { return high_; }
  int Position() const override { return position_; }
  void SetPosition(int position) override {
    if (this->Alive()) position_ = std::clamp(position, low_, high_);
  }
  void Perish() override {
    Modelled<Interface>::Perish();
    low_ = high_ = position_ = 0;
  }

  // A person's act. The thumb's codes move the bar and carry its position; the others leave it to the dialog.
  void Scroll(int code, std::optional<int> position) {
    const bool thumb = CarriesPosition(code);
    if (thumb) SetPosition(position.value_or(position_));
    this->Raise(Event{.kind = EventKind::scrolled, .code = code, .position = thumb ? position_ : 0});
  }

 private:
  int low_ = 0;
  int high_ = 100;
  int position_ = 0;
};

class SliderModel : public BarModel<Slider> {
 public:
  using BarModel::BarModel;
  void SetLineSize(int size) override { lineSize_ = size; }

  // A person's key: the slider moves by itself before it reports. At an end of its range it reports the end of the
  // scroll alone.
  void Press(Key key);

 private:
  void MoveTo(std::int64_t position, int code);

  int lineSize_ = 1;
};

// Has an empty range until one is set.
class ScrollBarModel : public BarModel<ScrollBar> {
 public:
  ScrollBarModel(HeadlessDialog& dialog, const ControlTemplate& source, const Rect& place)
      : BarModel(dialog, source, place) {
    BarModel::SetRange(0, 0);
  }
};

class SpinModel : public Modelled<Spin> {
 public:
  using Modelled::Modelled;

  void SetRange(int low, int high) override;
  int Low() const override { return low_; }
  int High() const override { return high_; }
  // With a buddy the number that stands there, where it is one in the range.
  int Position() const override;
  void SetPosition(int position) override;
  void SetBuddy(int editId) override;
  int Buddy() const override { return buddy_; }
  void Perish() override;

  // A person's act: a step of an arrow.
  void Step(int delta);

 private:
  Control* BuddyEdit() const;
  int Held(std::int64_t position) const;
  void MoveTo(int position);

  int low_ = 100;  // until a range is set, as real ones stand
  int high_ = 0;
  int position_ = 0;
  int buddy_ = 0;
};

}  // namespace set32
