// CRangeIntEdit: an edit that always comes back to a whole number in its range, whatever a person does in it.
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
  // The edit's window is gone; numbers may be shown all the same.
  void Detach() { edit_ = nullptr; }
  void SetRange(std::int32_t low, std::int32_t high);

  // The program shows a number, also one out of range, which then stands until a person changes it.
  void Show(std::int32_t number);
  // Whether the edit's events are those of Show: nothing that a person did.
  bool IsShowing() const { return isShowing_; }

  // Repairs the text after a change that isn't of Show.
  void OnUpdate();

 private:
  void NoteRange();

  Edit* edit_ = nullptr;
  bool isShowing_ = false;
  IntEditRules rules_;
};

}  // namespace set32
