#include "controls/icon_combo.h"

#include <algorithm>
#include <utility>

#include "resources/pictures.h"

namespace set32 {

namespace {

constexpr Colour disabledText = {192, 192, 192};
constexpr int iconLeft = 5;
constexpr int textGap = 9;  // between the item's left edge and the text, beside the icon's width

}  // namespace

void CIconCombo::Attach(Combo& combo) {
  combo_ = &combo;
  combo.SetPainter(this);
}

int CIconCombo::AddResourceIcon(std::string_view pictureName, std::string_view text) {
  if (combo_ == nullptr) return -1;
  Picture icon = LoadPicture(pictureName);
  if (icon.Empty()) return -1;
  const int index = combo_->Add(text);
  if (index >= 0) combo_->SetData(index, Keep(std::move(icon)));
  return index;
}

void CIconCombo::RemoveByText(std::string_view text) {
  if (combo_ == nullptr) return;
  if (const int index = combo_->FindExact(-1, text); index >= 0) combo_->Remove(index);
}

bool CIconCombo::Has(std::string_view text) const {
  return combo_ != nullptr && combo_->FindExact(-1, text) >= 0;
}

void CIconCombo::DrawItem(Canvas& canvas, const ItemToDraw& item) {
  if (item.disabled) {
    DrawIconAndText(canvas, item, disabledText);
  } else if (item.entire || item.selectionChanged) {
    const SystemColour ground = item.selected ? SystemColour::highlight : SystemColour::window;
    const SystemColour ink = item.selected ? SystemColour::highlightText : SystemColour::windowText;
    canvas.Fill(item.place, canvas.ColourOf(ground));
    DrawIconAndText(canvas, item, canvas.ColourOf(ink));
  }
  if (item.focusChanged) canvas.FocusRect(item.place);
}

void CIconCombo::DrawIconAndText(Canvas& canvas, const ItemToDraw& item, Colour textColour) const {
  if (combo_ == nullptr || combo_->Selected() < 0 || combo_->Count() < 1) return;
  const Picture* icon = IconOf(item.index);
  if (icon == nullptr) return;

  const int top = item.place.top + item.place.Height() / 2 - iconHeight / 2;
  const int left = item.place.left + iconLeft;
  canvas.Stretch(*icon, {left, top, left + iconWidth, top + iconHeight});

  Rect inside = item.place;
  inside.left += iconWidth + textGap;
  canvas.Text(combo_->EntryText(item.index), inside, textColour);
}

const Picture* CIconCombo::IconOf(int index) const {
  const std::uintptr_t place = index < 0 ? 0 : combo_->Data(index);
  return place == 0 || place > icons_.size() ? nullptr : &icons_[place - 1];
}

std::uintptr_t CIconCombo::Keep(Picture icon) {
  const auto kept = std::ranges::find(icons_, icon.name, &Picture::name);
  const auto place = static_cast<std::uintptr_t>(kept - icons_.begin());
  if (kept == icons_.end()) icons_.push_back(std::move(icon));
  return place + 1;
}

}  // namespace set32
