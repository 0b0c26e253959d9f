#include "controls/range_int_edit.h"

#include "controls/number_text.h"
#include "platform/guarded.h"

namespace set32 {

void CRangeIntEdit::Attach(Edit& edit) {
  edit_ = &edit;
  NoteRange();
}

void CRangeIntEdit::SetRange(std::int32_t low, std::int32_t high) {
  rules_.SetRange(low, high);
  NoteRange();
}

void CRangeIntEdit::Show(std::int32_t number) {
  if (edit_ == nullptr) return;
  const std::string text = WholeNumberText(number);
  rules_.Note(text);
  const Hold showing(isShowing_, true);
  edit_->SetText(text);
}

void CRangeIntEdit::OnUpdate() {
  if (edit_ == nullptr || isShowing_) return;
  const std::optional<std::string> shown = rules_.Repair(edit_->Text());
  if (!shown) return;
  // Raises the event once more; that time there is nothing to repair. Whoever hears of it may end the dialog.
  edit_->SetText(*shown);
  if (edit_ == nullptr) return;
  const int end = static_cast<int>(shown->size());
  edit_->Select({end, end});
  edit_->ScrollCaretIntoView();
}

void CRangeIntEdit::NoteRange() {
  if (edit_ == nullptr) return;
  edit_->NoteRange({static_cast<double>(rules_.minValue), static_cast<double>(rules_.maxValue)});
}

}  // namespace set32
