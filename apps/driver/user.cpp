#include "apps/driver/user.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>

#include "apps/driver/not_possible.h"
#include "apps/driver/possible.h"
#include "platform/utf8.h"

namespace set32 {

namespace {

std::string Numbered(const Control& control) {
  return "control " + std::to_string(control.Id());
}

std::string WhatItHas(const Control& control) {
  const std::string entries = NumberedEntries(control);
  return entries.empty() ? "it has none" : "it has " + entries;
}

void CheckIndex(const Control& control, int index, int count) {
  if (index < 0 || index >= count) {
    throw NotPossible(Numbered(control) + " has no entry #" + std::to_string(index), WhatItHas(control));
  }
}

template <typename TextAt>
int FindText(const Control& control, int count, std::string_view text, TextAt textAt) {
  for (int i = 0; i < count; ++i) {
    if (textAt(i) == text) return i;
  }
  throw NotPossible(Numbered(control) + " has no entry " + Quote(text), WhatItHas(control));
}

bool IsButton(const Control& control) {
  return dynamic_cast<const Button*>(&control) != nullptr || dynamic_cast<const CheckButton*>(&control) != nullptr;
}

bool IsPicked(const Control& control) {
  return dynamic_cast<const Combo*>(&control) != nullptr || dynamic_cast<const TabBar*>(&control) != nullptr;
}

bool Scrolls(const Control& control) {
  return control.Kind() == ControlKind::slider || control.Kind() == ControlKind::scroll;
}

}  // namespace

void User::CheckNothingBefore(const Dialog* dialog) const {
  if (boxOpen_) throw NotPossible("a box waits for its answer", "`answer` and one of its buttons");
  const Dialog* modal = scene_.ModalInFront();
  if (modal != nullptr && modal != dialog) {
    throw NotPossible("dialog " + std::to_string(modal->TemplateId()) + " is open in front",
                      WaysOut(scene_, *modal) + " leaves it");
  }
}

void User::CheckReachable(const Dialog& dialog) const {
  CheckNothingBefore(&dialog);
  const int id = dialog.TemplateId();
  const std::string number = std::to_string(id);
  if (!dialog.IsVisible()) {
    if (!dialog.IsChild()) throw NotPossible("dialog " + number + " is hidden");
    throw NotPossible("page " + number + " isn't in front",
                      id == dialog::advanced ? "`page advanced` turns to it" : "`page general` turns to it");
  }
  if (!dialog.IsEnabled()) {
    throw NotPossible("dialog " + number + " is disabled",
                      dialog.IsChild() ? "`enable yes` is the host's way to let people in again" : "");
  }
}

void User::CheckReachable(const FoundControl& found) const {
  const auto& [dialog, control] = found;
  CheckReachable(dialog);
  if (control.IsVisible() && control.IsEnabled()) return;
  const auto isAlike = [kind = control.Kind()](const Control& other) {
    return std::string_view(KindName(kind)) == KindName(other.Kind());
  };
  const std::string alike = UsableControls(scene_, dialog, isAlike);
  throw NotPossible(Numbered(control) + (control.IsVisible() ? " is disabled" : " is hidden"),
                    alike.empty() ? alike : "these aren't: " + alike);
}

FoundControl User::Reachable(const Target& target) const {
  const FoundControl found = scene_.Require(target);
  CheckReachable(found);
  return found;
}

// Of what kind a control is, and which ones a statement would take.
std::string User::Instead(const FoundControl& found, const std::function<bool(const Control&)>& takes) const {
  const std::string others = UsableControls(scene_, found.dialog, takes);
  return "it is a " + std::string(KindName(found.control.Kind())) + (others.empty() ? "" : "; there are: " + others);
}

template <typename T>
T& User::Reach(const Target& target, const char* kind) const {
  const FoundControl found = Reachable(target);
  auto* control = dynamic_cast<T*>(&found.control);
  if (control == nullptr) {
    const auto isOne = [](const Control& other) { return dynamic_cast<const T*>(&other) != nullptr; };
    throw NotPossible(Numbered(found.control) + " isn't " + kind, Instead(found, isOne));
  }
  return *control;
}

// A press on a control takes the focus from the edit that has it, and what the edit's owner does then may take the
// control away. (A radio button that gains the focus alone would count as clicked on real windows.)
FoundControl User::Entered(const Target& target) const {
  const FoundControl found = Reachable(target);
  if (found.control.HasFocus() || found.control.Kind() == ControlKind::radio) return found;
  input_.Focus(found.control);
  input_.Pump();
  return Reachable(target);
}

template <typename T>
T& User::Enter(const Target& target, const char* kind) const {
  Reach<T>(target, kind);
  return dynamic_cast<T&>(Entered(target).control);
}

void User::Pick(const Target& target, std::string_view text) {
  const FoundControl found = Reachable(target);
  const Control& control = found.control;
  if (const auto* combo = dynamic_cast<const Combo*>(&control)) {
    return Pick(target, FindText(control, combo->Count(), text, [&](int i) { return combo->EntryText(i); }));
  }
  if (const auto* tabs = dynamic_cast<const TabBar*>(&control)) {
    return Pick(target, FindText(control, tabs->Count(), text, [&](int i) { return tabs->TabText(i); }));
  }
  throw NotPossible(Numbered(control) + " has no entries to pick", Instead(found, IsPicked));
}

void User::Pick(const Target& target, int index) {
  const FoundControl found = Reachable(target);
  const Control& control = found.control;
  if (const auto* combo = dynamic_cast<const Combo*>(&control)) {
    CheckIndex(control, index, combo->Count());
    input_.PickEntry(Enter<Combo>(target, "a combo"), index);
  } else if (const auto* tabs = dynamic_cast<const TabBar*>(&control)) {
    CheckIndex(control, index, tabs->Count());
    input_.ChooseTab(Enter<TabBar>(target, "a tab bar"), index);
  } else {
    throw NotPossible(Numbered(control) + " has no entries to pick", Instead(found, IsPicked));
  }
  input_.Pump();
}

void User::Click(const Target& target) {
  const FoundControl found = Reachable(target);
  if (!IsButton(found.control)) {
    throw NotPossible(Numbered(found.control) + " can't be clicked", Instead(found, IsButton));
  }
  input_.Click(Entered(target).control);
  input_.Pump();
}

void User::ClickRow(const Target& target, std::string_view text) {
  const List& list = Reach<List>(target, "a list");
  ClickRow(target, FindText(list, list.Count(), text, [&](int i) { return list.RowText(i); }));
}

void User::ClickRow(const Target& target, int row) {
  const List& list = Reach<List>(target, "a list");
  CheckIndex(list, row, list.Count());
  input_.ClickRow(Enter<List>(target, "a list"), row);
  input_.Pump();
}

void User::ClickBesideRows(const Target& target) {
  input_.ClickRow(Enter<List>(target, "a list"), -1);
  input_.Pump();
}

void User::ArrowTo(const Target& target, int row) {
  const List& list = Reach<List>(target, "a list");
  CheckIndex(list, row, list.Count());
  input_.ArrowTo(Enter<List>(target, "a list"), row);
  input_.Pump();
}

void User::Focus(const Target& target) {
  const FoundControl found = Reachable(target);
  Control& control = found.control;
  if (!TakesFocus(control.Kind())) {
    const auto takes = [](const Control& other) { return TakesFocus(other.Kind()); };
    throw NotPossible(Numbered(control) + " takes no focus", Instead(found, takes));
  }
  input_.Focus(control);
  input_.Pump();
}

void User::Leave() {
  CheckNothingBefore(nullptr);
  input_.FocusHost();
  input_.Pump();
}

void User::Type(const Target& target, std::string_view text) {
  Edit& edit = Enter<Edit>(target, "an edit");
  input_.SelectAll(edit);
  input_.TypeText(edit, utf8::Mend(text));
  input_.Pump();
}

// Entering an edit may change its text, so the end is looked for after it.
Edit& User::EnterAtEnd(const Target& target) {
  Edit& edit = Enter<Edit>(target, "an edit");
  const int end = static_cast<int>(CountCharacters(system_, edit.Text()));
  input_.SetCaret(edit, {end, end});
  return edit;
}

void User::Append(const Target& target, std::string_view text) {
  input_.TypeText(EnterAtEnd(target), utf8::Mend(text));
  input_.Pump();
}

void User::Paste(const Target& target, std::string_view text) {
  Edit& edit = EnterAtEnd(target);
  clipboard_.Write(utf8::Mend(text));
  input_.Paste(edit);
  input_.Pump();
}

void User::Erase(const Target& target, int times) {
  input_.Backspace(EnterAtEnd(target), times);
  input_.Pump();
}

void User::SetCaret(const Target& target, TextRange range) {
  Edit& edit = Enter<Edit>(target, "an edit");
  const int length = static_cast<int>(CountCharacters(system_, edit.Text()));
  const auto held = [length](int position) { return position < 0 || position > length ? length : position; };
  input_.SetCaret(edit, {held(range.start), held(range.end)});
  input_.Pump();
}

void User::PressKey(Key key) {
  const auto focus = scene_.Focused();
  if (!focus) throw NotPossible("no control has the focus", "`focus` and a control's id");
  CheckReachable(*focus->dialog);
  input_.PressKey(key);
  input_.Pump();
}

void User::FillAddress(const Target& target, std::string_view text) {
  constexpr int highest = 255;
  std::array<std::optional<int>, 4> fields;
  std::size_t field = 0;
  while (!text.empty()) {
    const std::size_t point = text.find('.');
    const std::string_view digits = text.substr(0, point);
    if (field >= fields.size()) throw NotPossible("an address has four fields");
    if (!digits.empty()) {
      const auto value = ParseInteger(digits);
      if (!value || *value < 0) throw NotPossible(Quote(digits) + " is no field of an address");
      fields[field] = static_cast<int>(std::min<std::int64_t>(*value, highest));
    }
    ++field;
    if (point == std::string_view::npos) break;
    text.remove_prefix(point + 1);
  }
  input_.FillAddress(Reach<Address>(target, "an address"), fields);
  input_.Pump();
}

void User::DropList(const Target& target) {
  input_.DropList(Reach<Combo>(target, "a combo"));
  input_.Pump();
}

void User::ScrollList(const Target& target, int topIndex) {
  Combo& combo = Reach<Combo>(target, "a combo");
  CheckIndex(combo, topIndex, combo.Count());
  input_.ScrollList(combo, topIndex);
  input_.Pump();
}

void User::Scroll(const Target& target, int code, std::optional<int> position) {
  const FoundControl found = Reachable(target);
  Control& control = found.control;
  if (!Scrolls(control)) throw NotPossible(Numbered(control) + " doesn't scroll", Instead(found, Scrolls));
  if (code < scroll_code::lineLeft || code > scroll_code::endScroll) {
    throw NotPossible("no scroll code " + std::to_string(code),
                      "0 to 3 a line or a page, 4 and 5 the thumb, 6 and 7 an end, 8 the end of the scroll");
  }
  if (CarriesPosition(code) && !position) throw NotPossible("this scroll code needs a position");
  input_.ScrollTo(control, code, CarriesPosition(code) ? position : std::nullopt);
  input_.Pump();
}

void User::Spin(const Target& target, int delta) {
  input_.SpinBy(Reach<set32::Spin>(target, "a spin"), delta);
  input_.Pump();
}

void User::Release(const Target& target) {
  input_.Release(Reach<Slider>(target, "a slider"));
  input_.Pump();
}

Dialog& User::PageShown() const {
  Dialog* page =
      scene_.DefaultDialog() == dialog::general ? scene_.PageInFront() : scene_.Find(scene_.DefaultDialog());
  if (page == nullptr) throw NotPossible("no page stands", "`open` opens the panel");
  CheckNothingBefore(page);
  return *page;
}

void User::MovePointer(Point at) {
  Dialog& page = PageShown();
  const Size client = page.ClientSize();
  if (!Rect{0, 0, client.width, client.height}.Contains(at)) {
    throw NotPossible("the page doesn't reach there",
                      "it is " + std::to_string(client.width) + " by " + std::to_string(client.height) + " pixels");
  }
  input_.MovePointer(page, at);
  input_.Pump();
}

void User::TurnTo(int pageDialog) {
  const FoundControl found = scene_.Require(Target(dialog::sheet, id_sheet::tabs));
  CheckReachable(found);
  auto* tabs = dynamic_cast<TabBar*>(&found.control);
  const int index = pageDialog == dialog::general ? 0 : 1;
  if (tabs == nullptr || index >= tabs->Count()) throw NotPossible("the sheet has no such page");
  input_.TurnToTab(*tabs, index);
  input_.Pump();
}

void User::Resize(Size client) {
  input_.Resize(PageShown(), client);
  input_.Pump();
}

void User::CloseBox(int dialogId) {
  Dialog& dialog = scene_.Require(dialogId);
  if (dialog.IsChild() || dialogId == dialog::searching) {
    throw NotPossible("dialog " + std::to_string(dialogId) + " has no close box");
  }
  CheckReachable(dialog);
  input_.SendClose(dialog);
  input_.Pump();
}

void User::Poke(const Target& target) {
  Control& control = scene_.Require(target).control;
  if (!IsButton(control)) throw NotPossible(Numbered(control) + " is no button");
  input_.Poke(control);
  input_.Pump();
}

}  // namespace set32
