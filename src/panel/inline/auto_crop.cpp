// A click on auto crop on the inline face.
#include "panel/inline/inline_setting_page.h"
#include "resources/ids.h"

namespace set32 {

void CInlineSettingPage::ToggleAutoCrop() {
  TurnAutoCrop();
  if (pageSource_ != paper_source::feeder) {
    Get<CheckButton>(id::autoCropCheck).SetChecked(settings_->autoCrop != 0);
  }
  host_.AutoCropChanged(auto_crop_change::checkBox, *settings_);
  if (settings_->autoCrop != 0) return;
  GoBackToLetter();
  host_.AreaChanged(*settings_);
  ShowSizeText();
}

}  // namespace set32
