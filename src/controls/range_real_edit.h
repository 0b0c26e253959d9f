// CRangeRealEdit: an edit that takes only what keeps its text a decimal number.
//
// It refuses each key and each paste that would spoil the text, with a beep, and Enter runs its owner's test of the
// value. Saying in words what is wrong is the owner's part.
#pragma once

#include <string_view>

#include "controls/edit_rules.h"
#include "platform/platform.h"

namespace set32 {

// How Enter makes the owner test the value.
enum class EnterKey {
  leavesEdit,  // the focus goes to the dialog, so that the edit is left
  isOwners,    // the focus stays, the owner answers the dialog's OK
};

// Until SetRange: 0.0 to 1000.0. The object must outlive the edit's window. Host's thread only.
class CRangeRealEdit : public EditGuard {
 public:
  CRangeRealEdit(Clipboard& clipboard, System& system, EnterKey enter = EnterKey::leavesEdit)
      : clipboard_(clipboard), system_(system), enter_(enter) {}
  explicit CRangeRealEdit(Platform& platform, EnterKey enter = EnterKey::leavesEdit)
      : CRangeRealEdit(platform.clipboard, platform.system, enter) {}
  CRangeRealEdit(const CRangeRealEdit&) = delete;
  CRangeRealEdit& operator=(const CRangeRealEdit&) = delete;

  // Takes the edit with this id of a dialog that stands.
  void Attach(Dialog& dialog, int editId);
  // The dialog's window is gone; ranges may be set all the same.
  void Detach() {
    dialog_ = nullptr;
    edit_ = nullptr;
  }
  // In either order.
  void SetRange(double a, double b);

  bool OnCharacter(std::string_view character) override;
  bool OnPaste() override;
  void OnEnterKey() override;

 private:
  EditState State() const;
  void DeleteSelection(const EditState& state);
  void BeepForForeign(std::string_view pasted);
  void NoteRange();

  Clipboard& clipboard_;
  System& system_;
  EnterKey enter_;
  Dialog* dialog_ = nullptr;
  Edit* edit_ = nullptr;
  RealEditRules rules_;
};

}  // namespace set32
