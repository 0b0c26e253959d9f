// CRangeIntEdit: an edit that always comes back to a whole number in its range.
#pragma once

#include <cstdint>

#include "controls/edit_rules.h"
#include "controls/numeric_edit.h"

namespace set32 {

// Its owner calls OnUpdate for each editUpdate event of the edit. Until SetRange: 0 to 100.
class CRangeIntEdit : public NumericEdit {
 public:
  void SetRange(std::int32_t low, std::int32_t high) { rules_.SetRange(low, high); }
  Limits Range() const override;

  // Repairs the text, whoever changed it, a person or the program.
  void OnUpdate();

  // Typing is judged by what it leaves.
  bool OnCharacter(std::string_view) override { return true; }
  bool OnPaste() override { return true; }
  void OnEnterKey() override {}

 private:
  IntEditRules rules_;
};

}  // namespace set32
