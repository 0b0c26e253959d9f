#include "apps/stage/model/model_windows.h"

#include "tests/support/windows_under_test.h"

namespace set32 {

namespace {

class HeadlessWindowsUnderTest : public WindowsUnderTest {
 public:
  Windows& TheWindows() override { return screen_.windows; }
  WindowWatch& Watch() override { return screen_.windows; }
  Input& Hands() override { return screen_.input; }
  Clipboard& TheClipboard() override { return screen_.clipboard; }

 private:
  ModelWindows screen_;
};

}  // namespace

std::unique_ptr<WindowsUnderTest> MakeWindowsUnderTest() {
  return std::make_unique<HeadlessWindowsUnderTest>();
}

}  // namespace set32
