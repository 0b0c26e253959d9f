// CIconCombo: a combo with an icon in front of each entry.
#pragma once

#include <deque>
#include <string_view>

#include "platform/control.h"

namespace set32 {

// The object must outlive the combo's window, which calls it to draw. Host's thread only.
class CIconCombo : public ItemPainter {
 public:
  CIconCombo() = default;
  CIconCombo(const CIconCombo&) = delete;
  CIconCombo& operator=(const CIconCombo&) = delete;

  void Attach(Combo& combo);
  // The combo's window is gone.
  void Detach() { combo_ = nullptr; }

  // Adds an entry at the end with a picture of the resources. Result: its position; -1, and no entry, when there is
  // no such picture.
  int AddResourceIcon(std::string_view pictureName, std::string_view text);
  void RemoveByText(std::string_view text);
  bool Has(std::string_view text) const;

  void DrawItem(Canvas& canvas, const ItemToDraw& item) override;
  int ItemHeight() const override { return iconHeight + 2; }

 private:
  void DrawIconAndText(Canvas& canvas, const ItemToDraw& item, Colour textColour) const;
  const Picture* IconOf(int index) const;
  std::uintptr_t Keep(Picture icon);

  static constexpr int iconWidth = 16;
  static constexpr int iconHeight = 16;

  Combo* combo_ = nullptr;
  // An entry's data is the place of its icon here, counted from 1; an icon used again isn't kept twice.
  std::deque<Picture> icons_;
};

}  // namespace set32
