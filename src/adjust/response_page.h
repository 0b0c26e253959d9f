// CResponsePage: the Advanced page of the sheet face, dialog 148.
//
// The page stands in the sheet and is reached from the General page by the operations below; its own logic (the three
// tabs, the working copy, the picture area) comes later, and until then they have no effect. Host's thread only.
#pragma once

#include "host_records.h"
#include "platform/windows.h"

namespace set32 {

class CResponsePage : public DialogHandler {
 public:
  bool HasWindow() const { return dialog_ != nullptr && dialog_->IsAlive(); }

  // Takes the working copy of the values from a record.
  void LoadFromSettings(const ScanSettings* settings) { (void)settings; }
  // Enables the controls by tab and mode.
  void UpdateEnabling(const ScanSettings* settings) { (void)settings; }
  // Shows the record's values on the current tab.
  void ShowSettings(const ScanSettings* settings) { (void)settings; }

  void OnInit(Dialog& dialog) override { dialog_ = &dialog; }
  void OnOk() override {}  // Enter and Escape have no effect on a page
  void OnCancel() override {}

 private:
  Dialog* dialog_ = nullptr;
};

}  // namespace set32
