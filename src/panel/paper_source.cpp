// Paper source: combo 1012, whose entries carry their codes as data.
#include "panel/panel_page.h"
#include "panel/rules/mode_rules.h"
#include "profile/options.h"
#include "resources/ids.h"
#include "resources/strings.h"

namespace set32 {

void CPanelPage::FillSources() {
  Combo& combo = Get<Combo>(id::sourceCombo);
  for (const SourceEntry& entry : AllSources()) {
    if (SourceStands(entry, caps_.sourceCaps())) combo.SetData(combo.Add(String(entry.stringId)), entry.source);
  }
}

// The entry with this code; none when the device doesn't offer it.
void CPanelPage::SelectSource(std::uint32_t source) {
  Combo& combo = Get<Combo>(id::sourceCombo);
  int entry = combo.Count() - 1;
  while (entry >= 0 && combo.Data(entry) != source) --entry;
  combo.SelectIndex(entry);
}

// A source that the device doesn't offer has no entry, so nothing is selected then and the record's own source stays.
void CPanelPage::ChangePaperSource() {
  store_.suppressAutoSave = true;
  const std::uint32_t before = settings_->paperSource;
  const Combo& combo = Get<Combo>(id::sourceCombo);
  if (combo.Selected() >= 0) settings_->paperSource = static_cast<std::uint32_t>(combo.Data(combo.Selected()));
  pageSource_ = settings_->paperSource;
  settings_->frameCommand = 0;
  limits_.minDpi = face_.rules.minDpiAtSourceChange[pageSource_];
  ShowControlsOfSource();
  FitModeEntries();
  BuildSizeList();
  store_.ChangeSource();
  settings_->frameCommand = 0;
  host_.SettingsChanged(settings_change::sourceInPlace, *settings_);
  if (pageSource_ != before) {
    Get<Combo>(id::unitCombo).SelectIndex(0);
    shownUnits_ = unit::inch;
    host_.UnitChosen(unit::inch, settings_->dpi);
  }
  {
    const NotifySizeHold quiet(state_, state_.notifySize && !IsTransparency(pageSource_));
    RefreshPanel();
  }
  if (const int row = RowOfSource(pageSource_); row >= 0) store_.SelectConfigRow(row);
  store_.suppressAutoSave = false;
}

// Auto crop and frames are matters of the flatbed.
void CPanelPage::ShowControlsOfSource() {
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
