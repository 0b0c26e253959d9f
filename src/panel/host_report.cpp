// Message 0x403 from the host: a frame was drawn or moved, or the automatic crop delivered a size.
#include <cstring>

#include "panel/panel_page.h"
#include "pointer_word.h"
#include "resources/ids.h"

namespace set32 {

// The report need not outlive what the page sends while it works on it, nor is it safe from what the page writes when
// the host passes its own record; so it is copied first, with the one pointer that a host's report promises.
void CPanelPage::OnHostReport(WParam change, const ScanSettings* reported) {
  if (reported == nullptr) return;
  const ScanSettings report = *reported;
  if (change == frame_report::cropAgain) {
    RepeatAutoCrop(Saving::off);
  } else if (change == frame_report::drawn || change == frame_report::cropped) {
    FrameCommand command{};
    if (report.frameCommand != 0) std::memcpy(&command, FromWord<void>(report.frameCommand), sizeof(command));
    TakeSizeReport(change, report);
    ActOnFrameCommand(command);
  }
  shownUnits_ = report.units;
  Get<Combo>(id::unitCombo).SelectIndex(static_cast<int>(shownUnits_));
  ShowSizeText();
  SetSizeRanges();
  if (dialog_ != nullptr) dialog_->Update();
}

void CPanelPage::TakeSizeReport(WParam change, const ScanSettings& report) {
  if (IsSameSize(settings_->width, settings_->height, report.customWidth, report.customHeight, face_.rules)) {
    settings_->sizeId = report.sizeId;
    settings_->customWidth = report.width;
    settings_->customHeight = report.height;
  } else {
    if (!store_.IsCustomRowSelected() && report.autoCrop == 0) AutoSaveConfig();
    settings_->sizeId = size_id::userDefined;
    SelectSize(size_id::userDefined);
    if (change == frame_report::cropped) {
      settings_->autoCrop = 1;
      if (pageSource_ != paper_source::feeder) Get<CheckButton>(id::autoCropCheck).SetChecked(true);
    }
  }
  settings_->width = report.customWidth;
  settings_->height = report.customHeight;
  settings_->frameLeft = report.frameLeft;
  settings_->frameTop = report.frameTop;
  settings_->rotated = 0;
}

}  // namespace set32
