// CMessageDlg: a message that stands beside its owner and doesn't stop it.
#pragma once

#include <memory>
#include <string_view>

#include "boundary/module_state.h"
#include "platform/windows.h"

namespace set32 {

// Host's thread only. The window is made by the first Show and lives until this object dies; OK, Escape and the close
// box hide it.
class CMessageDlg : public DialogHandler {
 public:
  explicit CMessageDlg(ModuleState& state) : state_(state) {}

  // Shows caption and text, in the window that stands already if there is one, in the middle of the screen. Nothing
  // when no window can be had.
  void Show(WindowHandle parent, std::string_view caption, std::string_view text);

 private:
  bool StandsOrOpens(WindowHandle parent);
  void TakeIcons();

  ModuleState& state_;
  std::unique_ptr<Dialog> dialog_;
};

}  // namespace set32
