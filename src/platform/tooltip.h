// The tips of a dialog's controls. Its operations do nothing, as a tip does that can't be made.
#pragma once

#include <string_view>

#include "platform/geometry.h"

namespace set32 {

class Tooltip {
 public:
  virtual ~Tooltip() = default;
  virtual void Activate() {}
  virtual void SetDelay(int /*milliseconds*/) {}
  // A tip over a whole control.
  virtual void AddTool(int /*controlId*/, std::string_view /*text*/) {}
  // A tip over a part of a control, in the control's client coordinates.
  virtual void AddTool(int /*controlId*/, const Rect& /*part*/, std::string_view /*text*/) {}
};

}  // namespace set32
