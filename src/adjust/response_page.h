// CResponsePage: the Advanced page of the sheet face, dialog 148.
//
// The page stands in the sheet and hears of the General page as its front; its own logic (the three tabs, the working
// copy, the picture area) comes later. Host's thread only.
#pragma once

#include "boundary/adjustment_front.h"
#include "platform/windows.h"

namespace set32 {

class CResponsePage : public DialogHandler, public AdjustmentFront {
 public:
  void OnInit(Dialog& dialog) override { dialog_ = &dialog; }
  void OnOk() override {}  // Enter and Escape have no effect on a page
  void OnCancel() override {}

 private:
  Dialog* dialog_ = nullptr;
};

}  // namespace set32
