// Message 0x403 from the host on the inline face: sizes and the automatic crop, no frames.
#include "panel/inline/inline_setting_page.h"

namespace set32 {

// The report is copied first: the host may pass its own record, which the page writes while it reads.
void CInlineSettingPage::OnHostReport(WParam change, const ScanSettings* reported) {
  if (reported == nullptr) return;
  const ScanSettings report = *reported;
  if (change == frame_report::drawn || change == frame_report::cropped) {
    if (IsNewSize(report)) {
      TakeUserSize();
      if (change == frame_report::cropped) TakeReportedCrop();
    } else {
      KeepReportedSize(report);
    }
    TakeReportedArea(report);
  }
  ShowReportedUnits(report);
  gammaDialog_.Repaint();
}

}  // namespace set32
