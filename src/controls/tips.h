// Tips over the controls of a dialog, with texts of the resources.
#pragma once

#include <span>

#include "platform/system.h"
#include "platform/windows.h"

namespace set32 {

struct Tip {
  int controlId;
  int textId;
};

// Switches the dialog's tips on, to come after a second, and adds these.
void AddTips(Dialog& dialog, System& system, std::span<const Tip> tips);

}  // namespace set32
