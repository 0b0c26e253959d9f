#include "platform/win32/code_page.h"
#include "platform/win32/win32_windows.h"
#include "stage/model/headless_clipboard.h"
#include "stage/win32/watched_desk.h"
#include "stage/win32/win32_input.h"
#include "tests/support/desk.h"

namespace set32 {

namespace {

class Win32DeskUnderTest : public DeskUnderTest {
 public:
  Windows& TheWindows() override { return windows_; }
  WindowWatch& Watch() override { return *desk_; }
  Input& Hands() override { return input_; }
  Clipboard& TheClipboard() override { return clipboard_; }

 private:
  struct Utf8 {
    Utf8() { win32::UseUtf8(); }
  };

  Utf8 utf8_;
  std::shared_ptr<WatchedDesk> desk_ = std::make_shared<WatchedDesk>();
  Win32Windows windows_{desk_};
  HeadlessClipboard clipboard_;
  Win32Input input_{windows_, clipboard_, Win32Input::HostWindows::shown};
};

}  // namespace

std::unique_ptr<DeskUnderTest> MakeDesk() {
  return std::make_unique<Win32DeskUnderTest>();
}

}  // namespace set32
