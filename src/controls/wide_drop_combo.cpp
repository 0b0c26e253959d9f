#include "controls/wide_drop_combo.h"

#include <algorithm>

namespace set32 {

void CWideDropCombo::OnDropDown() {
  if (combo_ == nullptr) return;
  const int bar = windows_.ScrollBarWidth();
  int widest = 0;
  for (int index = 0; index < combo_->Count(); ++index) {
    widest = std::max(widest, combo_->TextWidth(combo_->EntryText(index)) + bar);
  }
  combo_->SetDroppedWidth(widest);
}

}  // namespace set32
