#include "controls/range_int_edit.h"

namespace set32 {

NumericEdit::Limits CRangeIntEdit::Range() const {
  return {static_cast<double>(rules_.minValue), static_cast<double>(rules_.maxValue)};
}

void CRangeIntEdit::OnUpdate() {
  if (edit_ == nullptr) return;
  const std::optional<std::string> shown = rules_.Repair(edit_->Text());
  if (!shown) return;
  // Raises the event once more; that time there is nothing to repair.
  edit_->SetText(*shown);
  const int end = static_cast<int>(shown->size());
  edit_->Select({end, end});
  edit_->ScrollCaretIntoView();
}

}  // namespace set32
