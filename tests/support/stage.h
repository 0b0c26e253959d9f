// A host's window with one page in it, for tests of windows and controls.
#pragma once

#include <memory>

#include "tests/support/desk.h"
#include "tests/support/recording_handler.h"

namespace set32 {

class SilentHost : public HostWindowHandler {
 public:
  MessageResult OnHostMessage(std::uint32_t, WParam, LParam) override { return 0; }
  void OnRepaintAsked() override { ++repaints; }
  int repaints = 0;
};

struct Stage {
  explicit Stage(const DialogTemplate& page) : dialog(desk->TheWindows().Create(page, host, handler)) {
    desk->Hands().Pump();
    handler.Take();
  }

  Input& Hands() { return desk->Hands(); }
  Windows& TheWindows() { return desk->TheWindows(); }
  WindowWatch& Watch() { return desk->Watch(); }
  template <typename T>
  T& Get(int id) {
    return dialog->Get<T>(id);
  }
  RecordingHandler::Lines Heard() { return handler.Take(); }

  SilentHost hostHandler;
  RecordingHandler handler;
  std::unique_ptr<DeskUnderTest> desk = MakeDesk();
  WindowHandle host = desk->Hands().MakeHostWindow({600, 500}, hostHandler);
  std::unique_ptr<Dialog> dialog;
};

}  // namespace set32
