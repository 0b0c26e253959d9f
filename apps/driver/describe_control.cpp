// A control as one line: kind, flags, value.
#include <string>

#include "apps/driver/inspector.h"
#include "apps/driver/possible.h"

namespace set32 {

namespace {

std::string TextPart(const Control& control) {
  return " text=" + Quote(control.Text());
}

std::string ColourName(Colour colour) {
  if (colour == Colour{255, 0, 0}) return "red";
  return std::to_string(colour.red) + ',' + std::to_string(colour.green) + ',' + std::to_string(colour.blue);
}

std::string LabelPart(const Control& control) {
  std::string line = TextPart(control);
  const auto* label = dynamic_cast<const Label*>(&control);
  if (label != nullptr && label->OwnColour()) line += " colour=" + ColourName(*label->OwnColour());
  return line;
}

std::string ComboPart(const Combo& combo) {
  std::string line = " index=" + std::to_string(combo.Selected()) + TextPart(combo) + " entries=";
  for (int i = 0; i < combo.Count(); ++i) {
    if (i > 0) line += ',';
    line += Quote(combo.EntryText(i));
  }
  const auto* drops = dynamic_cast<const DropsList*>(&combo);
  if (drops != nullptr && drops->WasDropped()) line += " dropped=" + std::to_string(combo.DroppedWidth());
  return line;
}

std::string EditPart(const Edit& edit) {
  std::string line = TextPart(edit);
  const auto* notes = dynamic_cast<const NotesRange*>(&edit);
  const auto range = notes == nullptr ? std::nullopt : notes->NotedRange();
  if (range) line += " low=" + Number(range->low) + " high=" + Number(range->high);
  return line;
}

std::string CheckPart(const CheckButton& button) {
  return TextPart(button) + " checked=" + (button.IsChecked() ? '1' : '0');
}

std::string ListPart(const List& list) {
  int selected = -1;
  std::string rows;
  for (int i = 0; i < list.Count(); ++i) {
    if (i > 0) rows += ',';
    rows += Quote(list.RowText(i)) + '/' + std::to_string(list.RowIcon(i));
    if (list.StateOf(i).selected && selected < 0) selected = i;
  }
  return " index=" + std::to_string(selected) + " rows=" + rows;
}

std::string TabPart(const TabBar& tabs) {
  return " index=" + std::to_string(tabs.Current()) + " count=" + std::to_string(tabs.Count());
}

std::string RangePart(const RangeControl& range) {
  return " position=" + std::to_string(range.Position()) + " low=" + std::to_string(range.Low()) +
         " high=" + std::to_string(range.High());
}

std::string ValuePart(const Control& control) {
  switch (control.Kind()) {
    case ControlKind::label:
      return LabelPart(control);
    case ControlKind::edit:
      return EditPart(dynamic_cast<const Edit&>(control));
    case ControlKind::combo:
    case ControlKind::iconCombo:
      return ComboPart(dynamic_cast<const Combo&>(control));
    case ControlKind::check:
    case ControlKind::radio:
      return CheckPart(dynamic_cast<const CheckButton&>(control));
    case ControlKind::list:
      return ListPart(dynamic_cast<const List&>(control));
    case ControlKind::tab:
      return TabPart(dynamic_cast<const TabBar&>(control));
    case ControlKind::slider:
    case ControlKind::scroll:
    case ControlKind::spin:
      return RangePart(dynamic_cast<const RangeControl&>(control));
    case ControlKind::picture:
    case ControlKind::frame:
      return {};
    case ControlKind::group:
    case ControlKind::button:
    case ControlKind::defaultButton:
    case ControlKind::pictureButton:
    case ControlKind::address:
      return TextPart(control);
  }
  return {};
}

}  // namespace

std::string Inspector::Describe(const Control& control) const {
  return std::string(KindName(control.Kind())) + (control.IsVisible() ? " visible" : " hidden") +
         (control.IsEnabled() ? " enabled" : " disabled") + ValuePart(control);
}

}  // namespace set32
