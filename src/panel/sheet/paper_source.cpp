// A change of paper source on the sheet face: in place, on a fixed row of the new source.
#include "panel/rules/mode_rules.h"
#include "panel/sheet/setting_box_page.h"
#include "platform/guarded.h"
#include "resources/ids.h"

namespace set32 {

void CSettingBoxPage::ChangePaperSource() {
  const Hold unsaved(suppressAutoSave_, true);
  const std::uint32_t before = settings_->paperSource;
  TakeChosenSource();
  settings_->frameCommand = 0;
  SetMinDpiOfSource();
  ShowControlsOfSource();
  FitModeEntries();
  BuildSizeList();
  BuildRowsOfSource();
  LoadSelectedRow();
  settings_->frameCommand = 0;
  host_.SettingsChanged(settings_change::sourceInPlace, *settings_);
  ShowInchesUnless(before);
  {
    const Hold quiet(state_.notifySize, state_.notifySize && !IsTransparency(pageSource_));
    RefreshPanel();
  }
  if (const int row = RowOfSource(pageSource_); row >= 0) SelectConfigRow(row);
}

// Auto crop and frames are matters of the flatbed.
void CSettingBoxPage::ShowControlsOfSource() {
  CheckButton& autoCrop = Get<CheckButton>(id::autoCropCheck);
  if (pageSource_ == paper_source::flatbed) {
    autoCrop.SetVisible(true);
    autoCrop.SetEnabled(true);
  } else if (pageSource_ == paper_source::feeder) {
    ClearAutoCrop();
    if (!Options().FeederAutoCrop()) autoCrop.SetVisible(false);
  } else if (IsTransparency(pageSource_)) {
    autoCrop.SetEnabled(false);
  }
  const bool framesStand = pageSource_ == paper_source::flatbed;
  Get<Label>(id::framesLabel).SetVisible(framesStand);
  Get<TabBar>(id::frameTabs).SetVisible(framesStand);
  Get<Button>(id::removeFrameButton).SetVisible(framesStand);
}

}  // namespace set32
