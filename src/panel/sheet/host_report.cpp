// Message 0x403 from the host on the sheet face: sizes, the automatic crop, and the frames.
#include <cstring>

#include "panel/sheet/setting_box_page.h"
#include "resources/ids.h"
#include "set32/pointer_word.h"

namespace set32 {

// The report need not outlive what the page sends while it works on it, nor is it safe from what the page writes when
// the host passes its own record; so it is copied first, with the one pointer that a host's report promises.
void CSettingBoxPage::OnHostReport(WParam change, const ScanSettings* reported) {
  if (reported == nullptr) return;
  const ScanSettings report = *reported;
  if (change == frame_report::cropAgain) {
    RepeatAutoCropUnsaved();
  } else if (change == frame_report::drawn || change == frame_report::cropped) {
    FrameCommand command{};
    if (report.frameCommand != 0) std::memcpy(&command, FromWord<void>(report.frameCommand), sizeof(command));
    TakeSizeReport(change, report);
    TakeReportedArea(report);
    ActOnFrameCommand(command);
  }
  ShowReportedUnits(report);
}

void CSettingBoxPage::TakeSizeReport(WParam change, const ScanSettings& report) {
  if (!IsNewSize(report)) {
    KeepReportedSize(report);
    return;
  }
  if (!store_.IsCustomRowSelected() && report.autoCrop == 0) AutoSaveConfig();
  TakeUserSize();
  if (change != frame_report::cropped) return;
  TakeReportedCrop();
  Get<Button>(id::removeFrameButton).SetEnabled(false);
}

}  // namespace set32
