// CWideDropCombo: a combo whose list is as wide as its widest entry.
#pragma once

#include "platform/windows.h"

namespace set32 {

// Its owner calls OnDropDown for the combo's dropDown event. Host's thread only.
class CWideDropCombo {
 public:
  explicit CWideDropCombo(Windows& windows) : windows_(windows) {}

  // The combo's dialog must stay until Detach.
  void Attach(Combo& combo) { combo_ = &combo; }
  void Detach() { combo_ = nullptr; }

  // The widest text and a scroll bar beside it; 0 with no entries.
  void OnDropDown();

 private:
  Windows& windows_;
  Combo* combo_ = nullptr;
};

}  // namespace set32
