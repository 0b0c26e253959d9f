// The sheet face of uiFixSetting: the tabbed sheet, made at the first call and never again in the module's life.
#pragma once

#include <memory>

#include "boundary/module_state.h"
#include "host/fix_setting_arguments.h"
#include "host/main_sheet.h"

namespace set32 {

class SheetFace {
 public:
  explicit SheetFace(ModuleState& state) : state_(state) {}

  // The General page's window, 0 where none stands.
  WindowHandle FixSetting(const FixSettingArguments& arguments);
  // As after the windows' end, of which nobody told.
  void ForgetWindows() {
    if (thePanelSheet_ != nullptr) thePanelSheet_->DropWindows();
  }

 private:
  WindowHandle Open(const FixSettingArguments& arguments);
  WindowHandle OpenAgain(const FixSettingArguments& arguments);

  ModuleState& state_;
  std::unique_ptr<CAdvanceMainSheet> thePanelSheet_;  // stays from the first window on
};

}  // namespace set32
