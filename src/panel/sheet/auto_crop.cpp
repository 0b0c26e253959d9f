// A click on auto crop on the sheet face, where frames stand beside it and changes are kept.
#include "panel/sheet/setting_box_page.h"
#include "platform/guarded.h"
#include "resources/ids.h"

namespace set32 {

void CSettingBoxPage::ToggleAutoCrop() {
  TurnAutoCrop();
  Get<CheckButton>(id::autoCropCheck).SetChecked(settings_->autoCrop != 0);
  host_.AutoCropChanged(auto_crop_change::checkBox, *settings_);
  if (settings_->autoCrop != 0) {
    Get<Button>(id::removeFrameButton).SetEnabled(false);
  } else {
    GoBackToLetter();
    host_.AreaChanged(*settings_);
    host_.AreaChanged(*settings_);
    ShowSizeText();
    if (Get<TabBar>(id::frameTabs).Count() > 0) Get<Button>(id::removeFrameButton).SetEnabled(true);
  }
  if (autoSaveOnCrop_) AutoSaveConfig();
}

// Where auto crop is on: turns it off and on again, so that the host hears of it.
void CSettingBoxPage::RepeatAutoCrop() {
  if (settings_->autoCrop == 0) return;
  settings_->autoCrop = 0;
  ToggleAutoCrop();
}

void CSettingBoxPage::RepeatAutoCropUnsaved() {
  const Hold unsaved(autoSaveOnCrop_, false);
  RepeatAutoCrop();
}

}  // namespace set32
