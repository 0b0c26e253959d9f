// A host's window with one page in it, for tests of windows and controls.
#pragma once

#include <memory>

#include "tests/support/recording_handler.h"
#include "tests/support/windows_under_test.h"

namespace set32 {

class SilentHost : public HostWindowHandler {
 public:
  MessageResult OnHostMessage(std::uint32_t, WParam, LParam) override { return 0; }
  void OnRepaintAsked() override { ++repaints; }
  int repaints = 0;
};

struct Stage {
  explicit Stage(const DialogTemplate& page) : dialog(screen->TheWindows().Create(page, host, handler)) {
    screen->Hands().Pump();
    handler.Take();
  }

  Input& Hands() { return screen->Hands(); }
  Windows& TheWindows() { return screen->TheWindows(); }
  WindowWatch& Watch() { return screen->Watch(); }
  template <typename T>
  T& Get(int id) {
    return dialog->Get<T>(id);
  }
  RecordingHandler::Lines Heard() { return handler.Take(); }

  SilentHost hostHandler;
  RecordingHandler handler;
  std::unique_ptr<WindowsUnderTest> screen = MakeWindowsUnderTest();
  WindowHandle host = screen->Hands().MakeHostWindow({600, 500}, hostHandler);
  std::unique_ptr<Dialog> dialog;
};

}  // namespace set32
