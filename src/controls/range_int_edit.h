// CRangeIntEdit: an edit that always comes back to a whole number in its range.
#pragma once

#include <cstdint>

#include "controls/edit_rules.h"
#include "platform/control.h"

namespace set32 {

// Its owner calls OnUpdate for each editUpdate event of the edit. Until SetRange: 0 to 100. The edit's dialog must
// outlive the calls. Host's thread only.
class CRangeIntEdit {
 public:
  void Attach(Edit& edit);
  void SetRange(std::int32_t low, std::int32_t high);

  // Repairs the text, whoever changed it, a person or the program.
  void OnUpdate();

 private:
  void NoteRange();

  Edit* edit_ = nullptr;
  IntEditRules rules_;
};

}  // namespace set32
