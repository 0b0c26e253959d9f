// The dialog templates.
#pragma once

#include "platform/dialog_template.h"

namespace set32 {

// Null for an id (dialog::) that isn't in the table. The tables live as long as the module.
const DialogTemplate* FindDialog(int id);

}  // namespace set32
