#include "apps/stage/model/headless_clipboard.h"
#include "apps/stage/win32/watched_window_set.h"
#include "apps/stage/win32/win32_input.h"
#include "platform/win32/code_page.h"
#include "platform/win32/win32_windows.h"
#include "tests/support/windows_under_test.h"

namespace set32 {

namespace {

class Win32WindowsUnderTest : public WindowsUnderTest {
 public:
  Windows& TheWindows() override { return windows_; }
  WindowWatch& Watch() override { return *windowSet_; }
  Input& Hands() override { return input_; }
  Clipboard& TheClipboard() override { return clipboard_; }

 private:
  struct Utf8 {
    Utf8() { win32::UseUtf8(); }
  };

  Utf8 utf8_;
  std::shared_ptr<WatchedWindowSet> windowSet_ = std::make_shared<WatchedWindowSet>();
  Win32Windows windows_{windowSet_};
  HeadlessClipboard clipboard_;
  Win32Input input_{windows_, clipboard_, Win32Input::HostWindows::shown};
};

}  // namespace

std::unique_ptr<WindowsUnderTest> MakeWindowsUnderTest() {
  return std::make_unique<Win32WindowsUnderTest>();
}

}  // namespace set32
