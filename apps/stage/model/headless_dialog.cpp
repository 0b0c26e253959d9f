#include "apps/stage/model/headless_dialog.h"

#include <algorithm>
#include <utility>

#include "apps/stage/model/dialog_units.h"
#include "apps/stage/model/headless_windows.h"

namespace set32 {

HeadlessDialog::HeadlessDialog(HeadlessWindows& windows, const DialogTemplate& source, DialogHandler& handler,
                               bool modal)
    : windows_(&windows),
      graveyard_(windows.graveyard_),
      handler_(&handler),
      templateId_(source.id),
      child_(IsChildStyle(source.style)),
      framed_(!child_),
      captioned_(!child_ && source.style != DialogStyle::bare),
      takesFocus_(source.style != DialogStyle::notePopup),
      modal_(modal),
      open_(modal),
      title_(source.caption == nullptr ? "" : source.caption) {
  const Size frame = FrameSize();
  place_ = {0, 0, AcrossInPixels(source.size.width) + frame.width, DownInPixels(source.size.height) + frame.height};
}

HeadlessDialog::~HeadlessDialog() {
  if (windows_ != nullptr) windows_->Release(*this);
  graveyard_->controls.splice(graveyard_->controls.end(), held_);
}

Control* HeadlessDialog::Find(int id) const {
  const auto found =
      std::find_if(controls_.begin(), controls_.end(), [id](const auto& control) { return control->Id() == id; });
  return found == controls_.end() ? nullptr : found->get();
}

void HeadlessDialog::Move(const Rect& place) {
  if (!IsAlive()) return;
  const Size before = ClientSize();
  place_ = place;
  const Size client = ClientSize();
  if (client == before) return;
  dirty_ = true;
  windows_->Tell(handle_, [&](DialogHandler& handler) { handler.OnResize(ResizeKind::restored, client); });
}

Size HeadlessDialog::ClientSize() const {
  const Size frame = FrameSize();
  return {std::max(place_.Width() - frame.width, 0), std::max(place_.Height() - frame.height, 0)};
}

void HeadlessDialog::SetVisible(bool visible) {
  if (IsAlive()) windows_->Show(handle_, visible);
}

void HeadlessDialog::SetEnabled(bool enabled) {
  if (IsAlive()) windows_->EnableDialog(*this, enabled);
}

void HeadlessDialog::RemoveCaption() {
  if (!IsAlive() || !captioned_) return;
  captioned_ = false;
  windows_->Tell(handle_,
                 [client = ClientSize()](DialogHandler& handler) { handler.OnResize(ResizeKind::restored, client); });
}

void HeadlessDialog::TakeFocus() {
  if (IsAlive()) windows_->MoveFocus({handle_, 0});
}

Control* HeadlessDialog::Focused() const {
  if (!IsAlive() || windows_->Focus().window != handle_ || windows_->Focus().control == 0) return nullptr;
  return Find(windows_->Focus().control);
}

void HeadlessDialog::Update() {
  if (IsAlive()) windows_->Update(handle_);
}

void HeadlessDialog::CentreOverParent() {
  if (!IsAlive()) return;
  const WindowHandle parent = windows_->Find(handle_)->parent;
  if (parent == 0) {
    CentreOnScreen();
    return;
  }
  Rect over = windows_->OnScreen(parent);
  if (child_) over = {0, 0, over.Width(), over.Height()};
  place_ = CentredIn(over, {place_.Width(), place_.Height()});
}

void HeadlessDialog::CentreOnScreen() {
  if (!IsAlive()) return;
  const Size screen = windows_->FullScreen();
  place_ = CentredIn({0, 0, screen.width, screen.height}, {place_.Width(), place_.Height()});
}

void HeadlessDialog::CentreOnPointer() {
  if (!IsAlive()) return;
  const Size screen = windows_->FullScreen();
  const Point at = windows_->Pointer();
  const Rect centred = CentredIn({at.x, at.y, at.x, at.y}, {place_.Width(), place_.Height()});
  place_ = MovedInto({0, 0, screen.width, screen.height}, centred);
}

Tooltip& HeadlessDialog::Tips() {
  static Tooltip none;
  if (!IsAlive() || (tips_ == nullptr && windows_->failures.tips)) return none;
  if (tips_ == nullptr) tips_ = std::make_unique<TooltipModel>();
  return *tips_;
}

void HeadlessDialog::EndModal(int result) {
  if (IsAlive() && modal_) windows_->EndModal(*this, result);
}

void HeadlessDialog::Destroy() {
  if (IsAlive()) windows_->Destroy(handle_);
}

void HeadlessDialog::Deliver(const Event& event) const {
  windows_->Tell(handle_, [&](DialogHandler& handler) { handler.OnEvent(event); });
}

void HeadlessDialog::Accept() const {
  windows_->Tell(handle_, [](DialogHandler& handler) { handler.OnOk(); });
}

void HeadlessDialog::Cancel() const {
  windows_->Tell(handle_, [](DialogHandler& handler) { handler.OnCancel(); });
}

void HeadlessDialog::FocusControl(const ControlModel& control) const {
  if (TakesFocus(control.ModelKind())) windows_->MoveFocus({handle_, control.ModelId()});
}

bool HeadlessDialog::HasFocus(const ControlModel& control) const {
  return windows_->Focus() == FocusPlace{handle_, control.ModelId()};
}

void HeadlessDialog::LeaveControl(const ControlModel& control, FocusGoes where) const {
  if (!HasFocus(control)) return;
  windows_->MoveFocus(where == FocusGoes::nowhere ? FocusPlace{} : FocusPlace{handle_, 0});
}

ControlModel* HeadlessDialog::DefaultButton() const {
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [](const auto& control) { return control->Kind() == ControlKind::defaultButton; });
  return found == controls_.end() ? nullptr : dynamic_cast<ControlModel*>(found->get());
}

void HeadlessDialog::Perish() {
  handle_ = 0;
  windows_ = nullptr;
  tips_.reset();
  for (const std::unique_ptr<Control>& control : controls_) {
    if (auto* model = dynamic_cast<ControlModel*>(control.get())) model->Perish();
  }
}

Size HeadlessDialog::FrameSize() const {
  const int frame = framed_ ? 2 * frameWidth : 0;
  return {frame, frame + (captioned_ ? captionHeight : 0)};
}

}  // namespace set32
