#include "apps/stage/model/control_model.h"

#include <algorithm>

#include "apps/stage/model/headless_dialog.h"
#include "platform/utf8.h"

namespace set32 {

namespace {

constexpr int closedComboHeight = 21;
constexpr int asciiWidth = 6;
constexpr int wideWidth = 12;

bool IsCombo(ControlKind kind) {
  return kind == ControlKind::combo || kind == ControlKind::iconCombo;
}

// Pixels that the border takes on each side.
int BorderOf(ControlKind kind) {
  switch (kind) {
    case ControlKind::edit:
    case ControlKind::list:
    case ControlKind::address:
      return 2;
    case ControlKind::frame:
      return 1;
    default:
      return 0;
  }
}

}  // namespace

ControlModel::ControlModel(HeadlessDialog& dialog, const ControlTemplate& source, const Rect& place)
    : enabled_((source.flags & control_flag::disabled) == 0),
      visible_((source.flags & control_flag::hidden) == 0),
      caption_(source.caption == nullptr ? "" : source.caption),
      dialog_(&dialog),
      id_(source.id),
      kind_(source.kind) {
  Put(place);
}

bool ControlModel::TellsFocus() const {
  return kind_ == ControlKind::edit || IsCombo(kind_);
}

bool ControlModel::CanTakeFocus() const {
  return Alive() && enabled_ && visible_ && TakesFocus(kind_);
}

void ControlModel::Raise(Event event) const {
  if (dialog_ == nullptr) return;
  event.controlId = id_;
  dialog_->Deliver(event);
}

void ControlModel::Enable(bool enabled) {
  if (!Alive() || enabled_ == enabled) return;
  enabled_ = enabled;
  if (!enabled) dialog_->LeaveControl(*this, HeadlessDialog::FocusGoes::nowhere);
}

void ControlModel::Show(bool visible) {
  if (!Alive() || visible_ == visible) return;
  visible_ = visible;
  if (!visible) dialog_->LeaveControl(*this, HeadlessDialog::FocusGoes::toTheDialog);
}

void ControlModel::Put(const Rect& place) {
  if (!Alive()) return;
  // A window never gets a size below nothing.
  place_ = {place.left, place.top, std::max(place.left, place.right), std::max(place.top, place.bottom)};
  if (IsCombo(kind_)) place_.bottom = place_.top + closedComboHeight;
}

void ControlModel::Focus() {
  if (Alive()) dialog_->FocusControl(*this);
}

bool ControlModel::Focused() const {
  return Alive() && dialog_->HasFocus(*this);
}

Size ControlModel::Inside() const {
  const int borders = 2 * BorderOf(kind_);
  return {std::max(place_.Width() - borders, 0), std::max(place_.Height() - borders, 0)};
}

int ModelTextWidth(std::string_view text) {
  int width = 0;
  while (!text.empty()) {
    const std::size_t length = utf8::CharacterLength(text);
    width += length == 1 && static_cast<unsigned char>(text.front()) < 0x80 ? asciiWidth : wideWidth;
    text.remove_prefix(length);
  }
  return width;
}

}  // namespace set32
