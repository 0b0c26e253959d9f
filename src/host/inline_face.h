// The inline face of uiFixSetting: one page in the host's window, made anew after each close.
#pragma once

#include <memory>

#include "boundary/module_state.h"
#include "host/fix_setting_arguments.h"
#include "panel/inline/inline_setting_page.h"

namespace set32 {

class InlineFace {
 public:
  explicit InlineFace(ModuleState& state) : state_(state), thePanelPage_(state) {}
  ~InlineFace() { thePanelPage_.Detach(); }
  InlineFace(const InlineFace&) = delete;
  InlineFace& operator=(const InlineFace&) = delete;

  // The page's window, 0 where none stands.
  WindowHandle FixSetting(const FixSettingArguments& arguments);
  bool IsOpen() const { return thePanelPage_.IsOpen(); }

 private:
  WindowHandle Open(const FixSettingArguments& arguments);
  WindowHandle OpenAgain(const FixSettingArguments& arguments);

  ModuleState& state_;
  CInlineSettingPage thePanelPage_;
  std::unique_ptr<Dialog> window_;  // goes before its handler
};

}  // namespace set32
