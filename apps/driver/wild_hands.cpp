#include "apps/driver/wild_hands.h"

namespace set32 {

namespace {

constexpr int codes[] = {scroll_code::lineLeft,  scroll_code::lineRight,     scroll_code::pageLeft,
                         scroll_code::pageRight, scroll_code::thumbPosition, scroll_code::thumbTrack,
                         scroll_code::endScroll};
constexpr const char* texts[] = {"1",  "300", "0.30", "8.5", "99999999",     "",    ".",   "19200", "-1", "3.333",
                                 "=a", "[b]", ";",    "own", "\xE4\xB8\x80", "a b", "1e9", "\t"};

}  // namespace

void WildHands::Act() {
  const auto standing = watch_.Standing();
  if (!standing.empty()) ActAt(*choices_.OneOf(standing));
}

void WildHands::ActAt(Dialog& dialog) {
  switch (choices_.Below(24)) {
    case 0:
      return input_.SendClose(dialog);
    case 1:
    case 2:
      return input_.PressKey(static_cast<Key>(choices_.Below(static_cast<int>(Key::end) + 1)));
    case 3:
      return input_.Resize(dialog, {choices_.Below(1200) - 100, choices_.Below(900) - 50});
    case 4:
      return input_.FocusHost();
    case 5:
      return input_.MovePointer(dialog, {choices_.Below(700) - 50, choices_.Below(700) - 50});
    default:
      break;
  }
  const auto& controls = dialog.Controls();
  if (!controls.empty()) ActOn(dialog, *choices_.OneOf(controls));
}

void WildHands::ActOn(const Dialog& dialog, Control& control) {
  switch (control.Kind()) {
    case ControlKind::edit:
      return TypeInto(dialog.Handle(), control.Id());
    case ControlKind::combo:
    case ControlKind::iconCombo:
      if (choices_.OneIn(8)) return input_.DropList(static_cast<Combo&>(control));
      return input_.PickEntry(static_cast<Combo&>(control), choices_.Below(16));
    case ControlKind::tab:
      return input_.ChooseTab(static_cast<TabBar&>(control), choices_.Below(4));
    case ControlKind::list:
      if (choices_.OneIn(3)) return input_.ArrowTo(static_cast<List&>(control), choices_.Below(12));
      return input_.ClickRow(static_cast<List&>(control), choices_.Below(14) - 1);
    case ControlKind::spin:
      return input_.SpinBy(static_cast<Spin&>(control), choices_.Below(9) - 4);
    case ControlKind::address:
      return input_.FillAddress(static_cast<Address&>(control), {AnyField(), AnyField(), AnyField(), AnyField()});
    case ControlKind::slider:
      if (choices_.OneIn(6)) return input_.Release(static_cast<Slider&>(control));
      [[fallthrough]];
    case ControlKind::scroll:
      return input_.ScrollTo(control, choices_.OneOf(codes), choices_.Below(2500) - 1000);
    default:
      return choices_.OneIn(2) ? input_.Click(control) : input_.Poke(control);
  }
}

std::optional<int> WildHands::AnyField() {
  if (choices_.OneIn(4)) return {};
  return choices_.Below(256);
}

Edit* WildHands::Find(WindowHandle dialog, int id) const {
  for (const Dialog* standing : watch_.Standing()) {
    if (standing->Handle() == dialog) return dynamic_cast<Edit*>(standing->Find(id));
  }
  return nullptr;
}

void WildHands::TypeInto(WindowHandle dialog, int id) {
  Edit* edit = Find(dialog, id);
  if (edit != nullptr) input_.Focus(*edit);
  edit = Find(dialog, id);
  if (edit == nullptr) return;
  switch (choices_.Below(6)) {
    case 0:
      return input_.Backspace(*edit, choices_.Below(6));
    case 1:
      return input_.Paste(*edit);
    case 2:
      return input_.SetCaret(*edit, {choices_.Below(6), choices_.Below(6)});
    default:
      input_.SelectAll(*edit);
      return input_.TypeText(*edit, choices_.OneOf(texts));
  }
}

}  // namespace set32
