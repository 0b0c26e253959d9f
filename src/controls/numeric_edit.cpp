#include "controls/numeric_edit.h"

#include "platform/windows.h"

namespace set32 {

void NumericEdit::Attach(Dialog& dialog, int editId) {
  dialog_ = &dialog;
  edit_ = &dialog.Get<Edit>(editId);
  edit_->SetFilter(this);
}

}  // namespace set32
