// What the keys of a dialog do in the model, as recorded on real controls.
#include <algorithm>
#include <utility>

#include "apps/stage/model/combo_model.h"
#include "apps/stage/model/edit_model.h"
#include "apps/stage/model/headless_input.h"
#include "apps/stage/model/list_model.h"
#include "apps/stage/model/range_models.h"
#include "apps/stage/model/tab_model.h"
#include "platform/guarded.h"

namespace set32 {

namespace {

// How many entries an arrow moves by; 0 for any other key.
int Step(Key key) {
  if (key == Key::left || key == Key::up) return -1;
  return key == Key::right || key == Key::down ? 1 : 0;
}

// Tells its choice again at either end of its entries.
void PressInCombo(ComboModel& combo, Key key) {
  const int last = combo.Count() - 1;
  if (last < 0) return;
  const int page = std::max(combo.EntriesPerPage() - 1, 1);
  int wanted = combo.Selected() + Step(key);
  if (key == Key::home) wanted = 0;
  if (key == Key::end) wanted = last;
  if (key == Key::pageUp) wanted = combo.Selected() - page;
  if (key == Key::pageDown) wanted = combo.Selected() + page;
  combo.Pick(std::clamp(wanted, 0, last));
}

int FocusedRow(const List& list) {
  for (int row = 0; row < list.Count(); ++row) {
    if (list.StateOf(row).focused) return row;
  }
  return -1;
}

// A page leads to the first or last row in view, and from there one page further.
int RowOnPage(const List& list, int row, Key key) {
  const int page = std::max(list.RowsPerPage() - 1, 1);
  const int bottom = list.TopRow() + page;
  if (key == Key::pageUp) return row == list.TopRow() ? row - page : list.TopRow();
  return row == bottom ? row + page : bottom;
}

// One column: only the arrows up and down move.
void PressInList(ListModel& list, Key key) {
  const int last = list.Count() - 1;
  const int row = FocusedRow(list);
  if (last < 0 || key == Key::left || key == Key::right) return;
  int wanted = row + Step(key);
  if (key == Key::home) wanted = 0;
  if (key == Key::end) wanted = last;
  if (key == Key::pageUp || key == Key::pageDown) wanted = RowOnPage(list, row, key);
  wanted = std::clamp(wanted, 0, last);
  if (wanted != row) list.ArrowTo(wanted);
}

void PressInTabs(TabModel& tabs, Key key) {
  if (key == Key::left || key == Key::right) tabs.Choose(tabs.Current() + Step(key));
}

void PressInEdit(EditModel& edit, Key key) {
  constexpr int textEnd = -1;
  const TextRange selected = edit.Selection();
  int caret = Step(key) < 0 ? std::max(selected.end - 1, 0) : selected.end + Step(key);
  if (key == Key::home) caret = 0;
  if (key == Key::end) caret = textEnd;
  if (key != Key::pageUp && key != Key::pageDown) edit.Select({caret, caret});
}

// The radio buttons from the first of their group on, up to the next control that is none of them.
std::vector<CheckModel*> RadioGroupOf(const HeadlessDialog& dialog, const Control& radio) {
  std::vector<CheckModel*> group;
  bool found = false;
  for (const auto& control : dialog.Controls()) {
    auto* button = control->Kind() == ControlKind::radio ? dynamic_cast<CheckModel*>(control.get()) : nullptr;
    if (button == nullptr || button->StartsGroup()) {
      if (found) break;
      group.clear();
    }
    if (button != nullptr) group.push_back(button);
    found = found || control.get() == &radio;
  }
  return group;
}

// The arrows go round among the radio buttons of a group, and click the one that they reach.
void PressInRadio(const HeadlessDialog& dialog, const Control& radio, Key key) {
  if (Step(key) == 0) return;
  std::vector<CheckModel*> group = RadioGroupOf(dialog, radio);
  if (Step(key) < 0) std::reverse(group.begin(), group.end());
  std::rotate(group.begin(), std::find(group.begin(), group.end(), &radio), group.end());
  const auto next = std::find_if(group.begin() + 1, group.end(), [](auto* button) { return button->CanTakeFocus(); });
  if (next == group.end()) return;
  (*next)->SetFocus();
  if ((*next)->HasFocus()) (*next)->Click();
}

void PressIn(const HeadlessDialog& dialog, Control& control, Key key) {
  if (auto* slider = dynamic_cast<SliderModel*>(&control)) slider->Press(key);
  if (auto* combo = dynamic_cast<ComboModel*>(&control)) PressInCombo(*combo, key);
  if (auto* list = dynamic_cast<ListModel*>(&control)) PressInList(*list, key);
  if (auto* tabs = dynamic_cast<TabModel*>(&control)) PressInTabs(*tabs, key);
  if (auto* edit = dynamic_cast<EditModel*>(&control)) PressInEdit(*edit, key);
  if (control.Kind() == ControlKind::radio) PressInRadio(dialog, control, key);
}

}  // namespace

void HeadlessInput::PressKey(Key key) {
  const WindowHandle window = windows_.Focus().window;
  const HeadlessDialog* dialog = windows_.DialogOf(window);
  if (dialog == nullptr) return;
  switch (key) {
    case Key::enter:
      return PressEnter(window);
    case Key::escape:
      return dialog->Cancel();
    case Key::tab:
      return windows_.FocusNext(*dialog, HeadlessWindows::Way::forwards);
    case Key::backtab:
      return windows_.FocusNext(*dialog, HeadlessWindows::Way::backwards);
    default:
      if (Control* focused = dialog->Focused()) PressIn(*dialog, *focused, key);
  }
}

// An edit's guard sees the key first, then the dialog: a push button with the focus, the default button, OK.
void HeadlessInput::PressEnter(WindowHandle window) {
  const auto* edit = dynamic_cast<EditModel*>(windows_.DialogOf(window)->Focused());
  if (edit != nullptr && edit->Guard() != nullptr) Guarded([&] { edit->Guard()->OnEnterKey(); });
  const HeadlessDialog* dialog = windows_.DialogOf(window);
  if (dialog == nullptr) return;

  Control* focused = dialog->Focused();
  auto* button = dynamic_cast<ControlModel*>(focused);
  if (dynamic_cast<Button*>(focused) == nullptr || focused->Kind() == ControlKind::pictureButton) {
    button = dialog->DefaultButton();
  }
  if (button == nullptr) {
    dialog->Accept();
  } else if (button->CanTakeFocus()) {
    ClickButton(*button);
  }
}

}  // namespace set32
