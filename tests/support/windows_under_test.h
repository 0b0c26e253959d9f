// The windows that the contract suite runs against: the model, or real ones where the build chooses them.
#pragma once

#include <memory>

#include "apps/stage/input.h"
#include "apps/stage/window_watch.h"
#include "platform/boxes.h"
#include "platform/clipboard.h"
#include "platform/windows.h"

namespace set32 {

class WindowsUnderTest {
 public:
  virtual ~WindowsUnderTest() = default;
  virtual Windows& TheWindows() = 0;
  virtual WindowWatch& Watch() = 0;
  virtual Input& Hands() = 0;
  virtual Clipboard& TheClipboard() = 0;
};

std::unique_ptr<WindowsUnderTest> MakeWindowsUnderTest();

}  // namespace set32
