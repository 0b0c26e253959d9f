// The windows that the contract suite runs against: the model, or real ones where the build chooses them.
#pragma once

#include <memory>

#include "platform/boxes.h"
#include "platform/clipboard.h"
#include "platform/windows.h"
#include "stage/input.h"
#include "stage/window_watch.h"

namespace set32 {

class DeskUnderTest {
 public:
  virtual ~DeskUnderTest() = default;
  virtual Windows& TheWindows() = 0;
  virtual WindowWatch& Watch() = 0;
  virtual Input& Hands() = 0;
  virtual Clipboard& TheClipboard() = 0;
};

std::unique_ptr<DeskUnderTest> MakeDesk();

}  // namespace set32
