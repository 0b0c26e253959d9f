// The control of the model that a template's entry asks for.
#pragma once

#include <memory>

#include "apps/stage/model/headless_dialog.h"

namespace set32 {

std::unique_ptr<Control> MakeControl(HeadlessDialog& dialog, const ControlTemplate& source);

}  // namespace set32
