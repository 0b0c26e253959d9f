// Auto crop: check box 1006. What a click on it does is each face's.
#include "panel/page.h"
#include "resources/ids.h"

namespace set32 {

// On the feeder the check box is there only where auto crop stays available; on film it can't be used.
void CPanelPage::ShowAutoCropAtStart() {
  CheckButton& check = Get<CheckButton>(id::autoCropCheck);
  if (pageSource_ == paper_source::flatbed) {
    check.SetVisible(true);
    check.SetEnabled(true);
  } else if (IsTransparency(pageSource_) || (pageSource_ == paper_source::feeder && !Options().FeederAutoCrop())) {
    check.SetEnabled(false);
  }
}

void CPanelPage::ClearAutoCrop() {
  settings_->autoCrop = 0;
  Get<CheckButton>(id::autoCropCheck).SetChecked(false);
}

void CPanelPage::TurnAutoCrop() {
  settings_->autoCrop = settings_->autoCrop == 0 ? 1 : 0;
}

// The area that stands once auto crop no longer decides on it.
void CPanelPage::GoBackToLetter() {
  settings_->frameLeft = settings_->frameTop = 0;
  settings_->width = 8.5;
  settings_->height = 11.0;
  settings_->sizeId = size_id::letter;
  SelectSize(size_id::letter);
}

}  // namespace set32
