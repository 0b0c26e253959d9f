// The one focus of the model, and what moves it.
#include <algorithm>

#include "stage/model/headless_windows.h"

namespace set32 {

namespace {

ControlModel* ModelOf(const HeadlessDialog* dialog, int id) {
  return dialog == nullptr || id == 0 ? nullptr : dynamic_cast<ControlModel*>(dialog->Find(id));
}

}  // namespace

void HeadlessWindows::MoveFocus(FocusPlace to) {
  if (to == focus_ || (to.window != 0 && !CanTakeFocus(to))) return;
  const FocusPlace from = focus_;
  focus_ = to;
  TellFocus(from, EventKind::focusLost);
  if (focus_ == to) TellFocus(to, EventKind::focusGained);
}

void HeadlessWindows::FocusHost() {
  const auto host = std::find_if(nodes_.rbegin(), nodes_.rend(), [](const auto& entry) { return entry.second.host; });
  if (host != nodes_.rend()) MoveFocus({host->first, 0});
}

void HeadlessWindows::FocusNext(HeadlessDialog& dialog) {
  const auto& controls = dialog.Controls();
  const Control* current = dialog.Focused();
  const auto at =
      std::find_if(controls.begin(), controls.end(), [=](const auto& control) { return control.get() == current; });
  const std::size_t start = at == controls.end() ? 0 : static_cast<std::size_t>(at - controls.begin()) + 1;
  for (std::size_t step = 0; step < controls.size(); ++step) {
    Control& next = *controls[(start + step) % controls.size()];
    const auto* model = dynamic_cast<const ControlModel*>(&next);
    if (model == nullptr || !model->CanTakeFocus()) continue;
    // A key that leads into an edit selects what stands there.
    if (auto* edit = dynamic_cast<Edit*>(&next)) edit->Select({0, -1});
    next.SetFocus();
    return;
  }
}

// A hidden control can take the focus by the program; a disabled one, or one in a disabled window, can't.
bool HeadlessWindows::CanTakeFocus(FocusPlace place) const {
  WindowHandle window = place.window;
  for (const Node* node = Find(window); node != nullptr; node = node->child ? Find(window) : nullptr) {
    if (!(node->dialog != nullptr ? node->dialog->IsEnabled() : node->enabled)) return false;
    window = node->parent;
  }
  const HeadlessDialog* dialog = DialogOf(place.window);
  if (place.control == 0) return IsWindow(place.window);
  const Control* control = dialog == nullptr ? nullptr : dialog->Find(place.control);
  return control != nullptr && control->IsEnabled();
}

bool HeadlessWindows::IsShown(WindowHandle window) const {
  for (const Node* node = Find(window); node != nullptr && node->dialog != nullptr;
       node = node->child ? Find(node->parent) : nullptr) {
    if (!node->dialog->IsVisible()) return false;
  }
  return true;
}

void HeadlessWindows::TellFocus(FocusPlace place, EventKind kind) {
  const ControlModel* control = ModelOf(DialogOf(place.window), place.control);
  if (control != nullptr && control->TellsFocus()) control->Raise(kind);
}

// Where a pop-up that appears begins, unless its start-up placed the focus inside already.
void HeadlessWindows::FocusFirst(WindowHandle window) {
  if (FocusIsInside(window) && focus_.control != 0) return;
  MoveFocus({window, 0});
  if (HeadlessDialog* dialog = DialogOf(window)) FocusNext(*dialog);
}

// A pop-up that goes gives the focus back where it was, without a word.
void HeadlessWindows::ReturnFocus(WindowHandle window, FocusPlace before) {
  if (focus_.window != 0 && !FocusIsInside(window)) return;
  focus_ = before.window != 0 && CanTakeFocus(before) ? before : FocusPlace{};
}

}  // namespace set32
