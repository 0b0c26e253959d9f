// Steps of message 0x403 from the host: a frame was drawn or moved, or the automatic crop delivered a size. A frame's
// size stands in the report's custom size.
#include "panel/page.h"
#include "resources/ids.h"

namespace set32 {

bool CPanelPage::IsNewSize(const ScanSettings& report) const {
  return !IsSameSize(settings_->width, settings_->height, report.customWidth, report.customHeight, face_.rules);
}

void CPanelPage::KeepReportedSize(const ScanSettings& report) {
  settings_->sizeId = report.sizeId;
  settings_->customWidth = report.width;
  settings_->customHeight = report.height;
}

void CPanelPage::TakeUserSize() {
  settings_->sizeId = size_id::userDefined;
  SelectSize(size_id::userDefined);
}

void CPanelPage::TakeReportedCrop() {
  settings_->autoCrop = 1;
  if (pageSource_ != paper_source::feeder) Get<CheckButton>(id::autoCropCheck).SetChecked(true);
}

void CPanelPage::TakeReportedArea(const ScanSettings& report) {
  settings_->width = report.customWidth;
  settings_->height = report.customHeight;
  settings_->frameLeft = report.frameLeft;
  settings_->frameTop = report.frameTop;
  settings_->rotated = 0;
}

// The unit is shown, not stored, and the page painted at once.
void CPanelPage::ShowReportedUnits(const ScanSettings& report) {
  shownUnits_ = report.units;
  Get<Combo>(id::unitCombo).SelectIndex(static_cast<int>(shownUnits_));
  ShowSizeText();
  SetSizeRanges();
  if (dialog_ != nullptr) dialog_->Update();
}

}  // namespace set32
