#include "apps/stage/model/headless_windows.h"

#include <algorithm>
#include <utility>

#include "apps/stage/model/control_factory.h"
#include "apps/stage/model/dialog_units.h"

namespace set32 {

namespace {

constexpr Size screen{1280, 1024};
constexpr int scrollBarWidth = 17;

}  // namespace

HeadlessWindows::Delivery::Delivery(Graveyard& graveyard) : graveyard_(graveyard) {
  if (graveyard_.deliveries++ == 0) graveyard_.controls.clear();
}

HeadlessWindows::Delivery::~Delivery() {
  --graveyard_.deliveries;
}

HeadlessWindows::HeadlessWindows()
    : pointer_{screen.width / 2, screen.height / 2}, graveyard_(std::make_shared<Graveyard>()) {}

HeadlessWindows::~HeadlessWindows() {
  for (auto& [handle, node] : nodes_) {
    if (node.dialog != nullptr) node.dialog->Perish();
  }
}

std::unique_ptr<HeadlessDialog> HeadlessWindows::Make(const DialogTemplate& source, WindowHandle parent,
                                                      DialogHandler& handler, bool modal) {
  const bool child = IsChildStyle(source.style);
  if (failures.dialogs.count(source.id) != 0) return nullptr;
  if ((parent != 0 || child) && !IsWindow(parent)) return nullptr;

  auto dialog = std::make_unique<HeadlessDialog>(*this, source, handler, modal);
  const WindowHandle handle = ++lastHandle_;
  dialog->handle_ = handle;
  dialog->focusBefore_ = {focus_.window, focus_.control};
  nodes_[handle] = Node{.parent = parent, .child = child, .dialog = dialog.get()};
  for (const ControlTemplate& control : source.controls) {
    if (failures.controls.count(control.id) == 0) dialog->controls_.push_back(MakeControl(*dialog, control));
  }

  Attach(handler, dialog.get());
  if (!child && opening_) opening_(*dialog);
  {
    const Delivery delivery(*graveyard_);
    if (IsWindow(handle)) Start(handler, *dialog);
  }
  return dialog->IsAlive() ? std::move(dialog) : nullptr;
}

std::unique_ptr<Dialog> HeadlessWindows::Create(const DialogTemplate& source, WindowHandle parent,
                                                DialogHandler& handler) {
  std::unique_ptr<HeadlessDialog> dialog = Make(source, parent, handler, false);
  if (dialog != nullptr && dialog->IsChild()) Show(dialog->Handle(), true);
  return dialog != nullptr && dialog->IsAlive() ? std::move(dialog) : nullptr;
}

MessageResult HeadlessWindows::Send(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  const Node* node = Find(window);
  if (node == nullptr) return 0;
  if (node->host != nullptr) return node->host->OnHostMessage(message, wParam, lParam);
  MessageResult result = 0;
  Tell(window, [&](DialogHandler& handler) { result = handler.OnMessage(message, wParam, lParam); });
  return result;
}

void HeadlessWindows::Invalidate(WindowHandle window) {
  const Node* node = Find(window);
  if (node == nullptr) return;
  if (node->host != nullptr) {
    node->host->OnRepaintAsked();
  } else {
    node->dialog->Invalidate();
  }
}

void HeadlessWindows::Enable(WindowHandle window, bool enabled) {
  Node* node = Find(window);
  if (node == nullptr) return;
  if (node->dialog != nullptr) {
    EnableDialog(*node->dialog, enabled);
    return;
  }
  node->enabled = enabled;
  if (!enabled && focus_ == FocusPlace{window, 0}) MoveFocus({});
}

void HeadlessWindows::RaiseToFront(WindowHandle window) {
  if (IsWindow(window)) raised_ = window;
}

Size HeadlessWindows::FullScreen() const {
  return screen;
}

Rect HeadlessWindows::WorkAreaAt(const Rect&) const {
  return {0, 0, screen.width, screen.height};
}

int HeadlessWindows::ScrollBarWidth() const {
  return scrollBarWidth;
}

std::vector<Dialog*> HeadlessWindows::Standing() const {
  std::vector<Dialog*> standing;
  for (const auto& [handle, node] : nodes_) {
    if (node.dialog != nullptr) standing.push_back(node.dialog);
  }
  return standing;
}

void HeadlessWindows::MovePointer(HeadlessDialog& dialog, Point at) {
  const Rect place = OnScreen(dialog.Handle());
  pointer_ = {place.left + at.x, place.top + at.y};
  Tell(dialog.Handle(), [at](DialogHandler& handler) { handler.OnPointerMoved(at); });
}

WindowHandle HeadlessWindows::MakeHost(Size client, HostWindowHandler& handler) {
  nodes_[++lastHandle_] = Node{.host = &handler, .client = client};
  return lastHandle_;
}

void HeadlessWindows::Dispatch() {
  std::vector<WindowHandle> dirty;
  for (const auto& [handle, node] : nodes_) {
    if (node.dialog != nullptr && node.dialog->dirty_) dirty.push_back(handle);
  }
  for (const WindowHandle window : dirty) Update(window);
}

void HeadlessWindows::Update(WindowHandle window) {
  HeadlessDialog* dialog = DialogOf(window);
  if (dialog == nullptr || !dialog->dirty_ || !IsShown(window)) return;
  dialog->dirty_ = false;
  dialog->Deliver(Event{.kind = EventKind::paint});
}

HeadlessDialog* HeadlessWindows::DialogOf(WindowHandle window) const {
  const Node* node = Find(window);
  return node == nullptr ? nullptr : node->dialog;
}

const HeadlessWindows::Node* HeadlessWindows::Find(WindowHandle window) const {
  const auto found = nodes_.find(window);
  return found == nodes_.end() ? nullptr : &found->second;
}

HeadlessWindows::Node* HeadlessWindows::Find(WindowHandle window) {
  const auto found = nodes_.find(window);
  return found == nodes_.end() ? nullptr : &found->second;
}

WindowHandle HeadlessWindows::TopLevelOf(WindowHandle window) const {
  const Node* node = Find(window);
  while (node != nullptr && node->child) {
    window = node->parent;
    node = Find(window);
  }
  return window;
}

bool HeadlessWindows::IsInside(WindowHandle window, WindowHandle outer) const {
  while (window != outer) {
    const Node* node = Find(window);
    if (node == nullptr || !node->child) return false;
    window = node->parent;
  }
  return true;
}

WindowHandle HeadlessWindows::NextInside(WindowHandle window, WindowHandle after) const {
  auto node = nodes_.upper_bound(after);
  while (node != nodes_.end() && !IsInside(node->first, window)) ++node;
  return node == nodes_.end() ? 0 : node->first;
}

WindowHandle HeadlessWindows::LastInside(WindowHandle window) const {
  auto node = nodes_.rbegin();
  while (node != nodes_.rend() && !IsInside(node->first, window)) ++node;
  return node == nodes_.rend() ? 0 : node->first;
}

WindowHandle HeadlessWindows::NextOwned(WindowHandle window, WindowHandle after) const {
  const auto isOwned = [&](const Node& node) {
    return !node.child && node.parent != 0 && IsInside(node.parent, window);
  };
  auto node = nodes_.upper_bound(after);
  while (node != nodes_.end() && !isOwned(node->second)) ++node;
  return node == nodes_.end() ? 0 : node->first;
}

Rect HeadlessWindows::OnScreen(WindowHandle window) const {
  Rect place;
  const Node* node = Find(window);
  if (node == nullptr) return place;
  if (node->host != nullptr) return {0, 0, node->client.width, node->client.height};
  place = node->dialog->Place();
  if (node->child) {
    const Rect parent = OnScreen(node->parent);
    place = {place.left + parent.left, place.top + parent.top, place.right + parent.left, place.bottom + parent.top};
  }
  return place;
}

void HeadlessWindows::EnableDialog(HeadlessDialog& dialog, bool enabled) {
  if (dialog.enabled_ == enabled) return;
  const WindowHandle window = dialog.Handle();
  dialog.enabled_ = enabled;
  if (!enabled && focus_ == FocusPlace{window, 0}) MoveFocus({});
  Tell(window, [enabled](DialogHandler& handler) { handler.OnEnabled(enabled); });
}

}  // namespace set32
