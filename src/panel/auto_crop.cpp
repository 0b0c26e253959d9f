// Auto crop: check box 1006.
#include "panel/panel_page.h"
#include "resources/ids.h"

namespace set32 {

void CPanelPage::OnAutoCropClicked(const Event&) {
  ToggleAutoCrop();
}

void CPanelPage::ClearAutoCrop() {
  settings_->autoCrop = 0;
  Get<CheckButton>(id::autoCropCheck).SetChecked(false);
}

void CPanelPage::ToggleAutoCrop() {
  settings_->autoCrop = settings_->autoCrop == 0 ? 1 : 0;
  Get<CheckButton>(id::autoCropCheck).SetChecked(settings_->autoCrop != 0);
  host_.AutoCropChanged(auto_crop_change::checkBox, *settings_);
  if (settings_->autoCrop != 0) {
    Get<Button>(id::removeFrameButton).SetEnabled(false);
  } else {
    settings_->frameLeft = settings_->frameTop = 0;
    settings_->width = 8.5;
    settings_->height = 11.0;
    settings_->sizeId = size_id::letter;
    SelectSize(size_id::letter);
    host_.AreaChanged(*settings_);
    host_.AreaChanged(*settings_);
    ShowSizeText();
    if (Get<TabBar>(id::frameTabs).Count() > 0) Get<Button>(id::removeFrameButton).SetEnabled(true);
  }
  if (autoSaveOnCrop_) AutoSaveConfig();
}

void CPanelPage::RepeatAutoCrop(Saving saving) {
  if (settings_->autoCrop == 0) return;
  settings_->autoCrop = 0;
  const bool kept = autoSaveOnCrop_;
  if (saving == Saving::off) autoSaveOnCrop_ = false;
  ToggleAutoCrop();
  autoSaveOnCrop_ = kept;
}

}  // namespace set32
