#include "apps/driver/possible.h"

#include <algorithm>
#include <cstdlib>

#include "apps/driver/suggestions.h"
#include "apps/stage/inspection.h"

namespace set32 {

namespace {

bool IsUsable(const Control& control) {
  return control.Exists() && control.IsVisible() && control.IsEnabled();
}

// A picture button's text is the name of its picture, and a slider's or a list's says nothing.
bool HasTextOfItsOwn(ControlKind kind) {
  switch (kind) {
    case ControlKind::label:
    case ControlKind::group:
    case ControlKind::button:
    case ControlKind::defaultButton:
    case ControlKind::check:
    case ControlKind::radio:
      return true;
    default:
      return false;
  }
}

// The nearest label that begins left of the control in the row of its middle.
const Control* LabelBefore(const Dialog& dialog, const Rect& place) {
  const int middle = (place.top + place.bottom) / 2;
  const Control* nearest = nullptr;
  for (const auto& candidate : dialog.Controls()) {
    if (candidate->Kind() != ControlKind::label || !candidate->IsVisible()) continue;
    const Rect at = candidate->Place();
    if (at.left >= place.left || middle < at.top || middle >= at.bottom) continue;
    if (nearest == nullptr || at.left > nearest->Place().left) nearest = candidate.get();
  }
  return nearest;
}

// The lowest label above the control that begins about where it does.
const Control* LabelAbove(const Dialog& dialog, const Rect& place) {
  constexpr int aside = 30;   // pixels
  constexpr int overlap = 3;  // the same
  const Control* nearest = nullptr;
  for (const auto& candidate : dialog.Controls()) {
    if (candidate->Kind() != ControlKind::label || !candidate->IsVisible()) continue;
    const Rect at = candidate->Place();
    if (at.bottom > place.top + overlap || std::abs(at.left - place.left) > aside) continue;
    if (nearest == nullptr || at.bottom > nearest->Place().bottom) nearest = candidate.get();
  }
  return nearest;
}

const Control* GroupAround(const Dialog& dialog, const Rect& place) {
  for (const auto& candidate : dialog.Controls()) {
    if (candidate->Kind() != ControlKind::group || !candidate->IsVisible()) continue;
    const Rect at = candidate->Place();
    if (at.Contains({place.left, place.top}) && !candidate->Text().empty()) return candidate.get();
  }
  return nullptr;
}

}  // namespace

const char* KindName(ControlKind kind) {
  switch (kind) {
    case ControlKind::label:
      return "label";
    case ControlKind::group:
      return "group";
    case ControlKind::edit:
      return "edit";
    case ControlKind::combo:
    case ControlKind::iconCombo:
      return "combo";
    case ControlKind::button:
    case ControlKind::defaultButton:
    case ControlKind::pictureButton:
      return "button";
    case ControlKind::check:
      return "check";
    case ControlKind::radio:
      return "radio";
    case ControlKind::list:
      return "list";
    case ControlKind::tab:
      return "tab";
    case ControlKind::slider:
      return "slider";
    case ControlKind::scroll:
      return "scroll";
    case ControlKind::spin:
      return "spin";
    case ControlKind::address:
      return "address";
    case ControlKind::picture:
      return "picture";
    case ControlKind::frame:
      return "frame";
  }
  return "";
}

std::string WithoutAccelerator(std::string text) {
  std::erase(text, '&');
  return text;
}

std::string NameOf(Dialog& dialog, const Control& control) {
  if (HasTextOfItsOwn(control.Kind()) && !control.Text().empty()) return WithoutAccelerator(control.Text());
  if (const auto* tips = dynamic_cast<const TellsTips*>(&dialog.Tips())) {
    if (std::string tip = tips->TextAt(control.Id(), 0); !tip.empty()) return tip;
  }
  const Control* beside = LabelBefore(dialog, control.Place());
  if (beside == nullptr) beside = GroupAround(dialog, control.Place());
  if (beside == nullptr) beside = LabelAbove(dialog, control.Place());
  return beside == nullptr ? std::string() : WithoutAccelerator(beside->Text());
}

std::string IdOf(const Scene& scene, const Dialog& dialog, const Control& control) {
  std::string id = std::to_string(control.Id());
  if (dialog.TemplateId() == scene.DefaultDialog()) return id;
  return std::to_string(dialog.TemplateId()) + ':' + id;
}

std::string UsableControls(const Scene& scene, const Dialog& dialog, const ControlFilter& filter) {
  std::vector<std::string> found;
  for (const auto& control : dialog.Controls()) {
    if (IsUsable(*control) && filter(*control))
      found.push_back(IdOf(scene, dialog, *control) + ' ' + KindName(control->Kind()));
  }
  return Listed(found);
}

std::vector<std::string> EntriesOf(const Control& control) {
  std::vector<std::string> entries;
  if (const auto* combo = dynamic_cast<const Combo*>(&control)) {
    for (int i = 0; i < combo->Count(); ++i) entries.push_back(combo->EntryText(i));
  } else if (const auto* tabs = dynamic_cast<const TabBar*>(&control)) {
    for (int i = 0; i < tabs->Count(); ++i) entries.push_back(tabs->TabText(i));
  } else if (const auto* list = dynamic_cast<const List*>(&control)) {
    for (int i = 0; i < list->Count(); ++i) entries.push_back(list->RowText(i));
  }
  return entries;
}

std::string NumberedEntries(const Control& control) {
  std::vector<std::string> numbered = EntriesOf(control);
  int index = 0;
  for (std::string& entry : numbered) {
    std::string number = '#' + std::to_string(index++);
    entry = entry.empty() ? std::move(number) : std::move(number) + ' ' + Quote(entry);
  }
  return Listed(numbered);
}

std::string OpenDialogs(const Scene& scene) {
  std::vector<std::string> open;
  for (const Dialog* dialog : scene.Standing()) {
    std::string number = std::to_string(dialog->TemplateId());
    const bool stands = dialog->IsVisible() || dialog->IsChild();  // a page behind another one
    if (stands && std::find(open.begin(), open.end(), number) == open.end()) open.push_back(std::move(number));
  }
  return Listed(open);
}

std::string WaysOut(const Scene& scene, const Dialog& dialog) {
  std::string ways;
  for (const auto& control : dialog.Controls()) {
    const bool isPush = control->Kind() == ControlKind::button || control->Kind() == ControlKind::defaultButton;
    if (!isPush || !IsUsable(*control)) continue;
    if (!ways.empty()) ways += " or ";
    ways += "`click " + IdOf(scene, dialog, *control) + "` (" + WithoutAccelerator(control->Text()) + ')';
  }
  return ways;
}

}  // namespace set32
