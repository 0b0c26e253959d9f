// A change of paper source on the inline face: the host may refuse it, and the stored row of the new source counts.
#include "panel/inline/inline_setting_page.h"
#include "resources/ids.h"

namespace set32 {

void CInlineSettingPage::ChangePaperSource() {
  const std::uint32_t before = settings_->paperSource;
  const WindowHandle window = Window();
  TakeChosenSource();
  const bool isRefused = HostRefusesSource();
  if (!StillStands(window)) return;
  if (isRefused) {
    SelectSource(before);
    pageSource_ = settings_->paperSource = before;
    return;
  }
  SetMinDpiOfSource();
  ShowControlsOfSource();
  FitModeEntries();
  Front().OnSourceChanged();
  BuildSizeList();
  BuildRowsOfSource();
  store_.ReadSelectedRow(pageSource_);
  LoadSelectedRow();
  host_.SettingsChanged(settings_change::sourceInPlace, *settings_);
  ShowInchesUnless(before);
  RefreshPanel();
}

// A host whose window is gone can't refuse.
bool CInlineSettingPage::HostRefusesSource() {
  return host_.HasWindow() && host_.SettingsChanged(settings_change::askSource, *settings_) == 0;
}

void CInlineSettingPage::ShowControlsOfSource() {
  CheckButton& autoCrop = Get<CheckButton>(id::autoCropCheck);
  if (pageSource_ == paper_source::flatbed) {
    autoCrop.SetVisible(true);
    autoCrop.SetEnabled(true);
  } else if (pageSource_ == paper_source::feeder && !Options().FeederAutoCrop()) {
    ClearAutoCrop();
    autoCrop.SetEnabled(false);
  } else if (IsTransparency(pageSource_)) {
    autoCrop.SetEnabled(false);
  }
}

}  // namespace set32
