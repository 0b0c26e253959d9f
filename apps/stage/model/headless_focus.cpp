// The one focus of the model, and what moves it.
#include <algorithm>

#include "apps/stage/model/headless_windows.h"

namespace set32 {

namespace {

ControlModel* ModelOf(const HeadlessDialog* dialog, int id) {
  return dialog == nullptr || id == 0 ? nullptr : dynamic_cast<ControlModel*>(dialog->Find(id));
}

bool IsTabStop(const Control* control) {
  const auto* model = dynamic_cast<const ControlModel*>(control);
  return model != nullptr && model->CanTakeFocus() && model->IsTabStop();
}

// A key that leads into an edit selects what stands there.
void FocusByKey(Control& control) {
  if (auto* edit = dynamic_cast<Edit*>(&control)) edit->Select({0, -1});
  control.SetFocus();
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

void HeadlessWindows::FocusNext(const HeadlessDialog& dialog, Way way) {
  WindowHandle outermost = dialog.Handle();
  for (const Node* node = Find(outermost); node->child && DialogOf(node->parent) != nullptr; node = Find(outermost)) {
    outermost = node->parent;
  }
  std::vector<Control*> controls;
  AddInTabbingOrder(outermost, controls);
  if (way == Way::backwards) std::reverse(controls.begin(), controls.end());
  const auto focused =
      std::find_if(controls.begin(), controls.end(), [](auto* control) { return control->HasFocus(); });
  if (focused != controls.end()) std::rotate(controls.begin(), focused + 1, controls.end());
  const auto next = std::find_if(controls.begin(), controls.end(), IsTabStop);
  if (next != controls.end()) FocusByKey(**next);
}

// The page that was made last lies over the others, and all of them over what is the window's own.
void HeadlessWindows::AddInTabbingOrder(WindowHandle window, std::vector<Control*>& controls) const {
  const HeadlessDialog* dialog = DialogOf(window);
  if (dialog == nullptr || !dialog->IsVisible() || !dialog->IsEnabled()) return;
  for (auto node = nodes_.rbegin(); node != nodes_.rend(); ++node) {
    if (node->second.child && node->second.parent == window) AddInTabbingOrder(node->first, controls);
  }
  for (const auto& control : dialog->Controls()) controls.push_back(control.get());
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
  const HeadlessDialog* dialog = DialogOf(window);
  if (dialog == nullptr) return;
  for (const auto& control : dialog->Controls()) {
    const auto* model = dynamic_cast<const ControlModel*>(control.get());
    if (model != nullptr && model->CanTakeFocus()) return FocusByKey(*control);
  }
}

// A pop-up that goes gives the focus back where it was, without a word.
void HeadlessWindows::ReturnFocus(WindowHandle window, FocusPlace before) {
  if (focus_.window != 0 && !FocusIsInside(window)) return;
  focus_ = before.window != 0 && CanTakeFocus(before) ? before : FocusPlace{};
}

}  // namespace set32
