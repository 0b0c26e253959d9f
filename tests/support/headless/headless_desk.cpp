#include "stage/model/headless_desk.h"

#include "tests/support/desk.h"

namespace set32 {

namespace {

class HeadlessDeskUnderTest : public DeskUnderTest {
 public:
  Windows& TheWindows() override { return desk_.windows; }
  WindowWatch& Watch() override { return desk_.windows; }
  Input& Hands() override { return desk_.input; }
  Clipboard& TheClipboard() override { return desk_.clipboard; }

 private:
  HeadlessDesk desk_;
};

}  // namespace

std::unique_ptr<DeskUnderTest> MakeDesk() {
  return std::make_unique<HeadlessDeskUnderTest>();
}

}  // namespace set32
