#include "apps/driver/user.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>

#include "apps/driver/not_possible.h"
#include "platform/utf8.h"

namespace set32 {

namespace {

std::string NameOf(const Control& control) {
  return "control " + std::to_string(control.Id());
}

void CheckIndex(const Control& control, int index, int count) {
  if (index < 0 || index >= count) {
    throw NotPossible(NameOf(control) + " has no entry #" + std::to_string(index));
  }
}

template <typename TextAt>
int FindText(const Control& control, int count, std::string_view text, TextAt textAt) {
  for (int i = 0; i < count; ++i) {
    if (textAt(i) == text) return i;
  }
  throw NotPossible(NameOf(control) + " has no entry " + Quote(text));
}

bool IsButton(const Control& control) {
  return dynamic_cast<const Button*>(&control) != nullptr || dynamic_cast<const CheckButton*>(&control) != nullptr;
}

}  // namespace

void User::CheckNothingBefore(const Dialog* dialog) const {
  if (boxOpen_) throw NotPossible("a box waits for its answer");
  const Dialog* modal = scene_.ModalInFront();
  if (modal != nullptr && modal != dialog) {
    throw NotPossible("dialog " + std::to_string(modal->TemplateId()) + " is open in front");
  }
}

void User::CheckReachable(const Dialog& dialog) const {
  CheckNothingBefore(&dialog);
  const std::string number = std::to_string(dialog.TemplateId());
  if (!dialog.IsVisible()) {
    throw NotPossible(dialog.IsChild() ? "page " + number + " isn't in front" : "dialog " + number + " is hidden");
  }
  if (!dialog.IsEnabled()) throw NotPossible("dialog " + number + " is disabled");
}

void User::CheckReachable(const FoundControl& found) const {
  const auto& [dialog, control] = found;
  CheckReachable(dialog);
  if (!control.IsVisible()) throw NotPossible(NameOf(control) + " is hidden");
  if (!control.IsEnabled()) throw NotPossible(NameOf(control) + " is disabled");
}

FoundControl User::Reachable(const Target& target) const {
  const FoundControl found = scene_.Require(target);
  CheckReachable(found);
  return found;
}

template <typename T>
T& User::Reach(const Target& target, const char* kind) const {
  const FoundControl found = Reachable(target);
  auto* control = dynamic_cast<T*>(&found.control);
  if (control == nullptr) throw NotPossible(NameOf(found.control) + " isn't " + kind);
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
  const Control& control = Reachable(target).control;
  if (const auto* combo = dynamic_cast<const Combo*>(&control)) {
    return Pick(target, FindText(control, combo->Count(), text, [&](int i) { return combo->EntryText(i); }));
  }
  if (const auto* tabs = dynamic_cast<const TabBar*>(&control)) {
    return Pick(target, FindText(control, tabs->Count(), text, [&](int i) { return tabs->TabText(i); }));
  }
  throw NotPossible(NameOf(control) + " has no entries to pick");
}

void User::Pick(const Target& target, int index) {
  Control& control = Reachable(target).control;
  if (const auto* combo = dynamic_cast<const Combo*>(&control)) {
    CheckIndex(control, index, combo->Count());
    input_.PickEntry(Enter<Combo>(target, "a combo"), index);
  } else if (const auto* tabs = dynamic_cast<const TabBar*>(&control)) {
    CheckIndex(control, index, tabs->Count());
    input_.ChooseTab(Enter<TabBar>(target, "a tab bar"), index);
  } else {
    throw NotPossible(NameOf(control) + " has no entries to pick");
  }
  input_.Pump();
}

void User::Click(const Target& target) {
  const Control& control = Reachable(target).control;
  if (!IsButton(control)) throw NotPossible(NameOf(control) + " can't be clicked");
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
  Control& control = Reachable(target).control;
  if (!TakesFocus(control.Kind())) throw NotPossible(NameOf(control) + " takes no focus");
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
  if (!focus) throw NotPossible("no control has the focus");
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
  Control& control = Reachable(target).control;
  if (control.Kind() != ControlKind::slider && control.Kind() != ControlKind::scroll) {
    throw NotPossible(NameOf(control) + " doesn't scroll");
  }
  if (code < scroll_code::lineLeft || code > scroll_code::endScroll) {
    throw NotPossible("no scroll code " + std::to_string(code));
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
  if (page == nullptr) throw NotPossible("no page stands");
  CheckNothingBefore(page);
  return *page;
}

void User::MovePointer(Point at) {
  Dialog& page = PageShown();
  const Size client = page.ClientSize();
  if (!Rect{0, 0, client.width, client.height}.Contains(at)) throw NotPossible("the page doesn't reach there");
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
  if (!IsButton(control)) throw NotPossible(NameOf(control) + " is no button");
  input_.Poke(control);
  input_.Pump();
}

}  // namespace set32
