// CRangeRealEdit: an edit that takes only what keeps its text a decimal number.
//
// It refuses each key and each paste that would spoil the text, with a beep, and Enter takes the focus out of it, so
// that its owner's test of the value runs. Saying in words what is wrong is the owner's part.
#pragma once

#include <string_view>

#include "controls/edit_rules.h"
#include "controls/numeric_edit.h"
#include "platform/platform.h"

namespace set32 {

// Until SetRange: 0.0 to 1000.0.
class CRangeRealEdit : public NumericEdit {
 public:
  explicit CRangeRealEdit(Platform& platform) : platform_(platform) {}

  void SetRange(double a, double b) { rules_.SetRange(a, b); }
  Limits Range() const override { return {rules_.minValue, rules_.maxValue}; }

  bool OnCharacter(std::string_view character) override;
  bool OnPaste() override;
  void OnEnterKey() override;

 private:
  EditState State() const;
  void DeleteSelection(const EditState& state);
  void BeepForForeign(std::string_view pasted);

  Platform& platform_;
  RealEditRules rules_;
};

}  // namespace set32
