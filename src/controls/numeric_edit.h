// What the numeric edits share: they hang on an edit as its filter, so that whoever looks at the edit finds them.
#pragma once

#include "platform/control.h"

namespace set32 {

class Dialog;

// The object must outlive the edit's window. Host's thread only.
class NumericEdit : public EditFilter {
 public:
  struct Limits {
    double low;
    double high;
  };

  NumericEdit() = default;
  NumericEdit(const NumericEdit&) = delete;
  NumericEdit& operator=(const NumericEdit&) = delete;

  // Takes the edit with this id of a dialog that stands; the limits stay.
  void Attach(Dialog& dialog, int editId);

  virtual Limits Range() const = 0;

 protected:
  // Null until attached.
  Dialog* dialog_ = nullptr;
  Edit* edit_ = nullptr;
};

}  // namespace set32
