// Scan configurations on the sheet face: changes are kept by themselves, and a row that is chosen takes the frames
// away.
#include "panel/sheet/setting_box_page.h"

namespace set32 {

// The source of the last settings is the one that counts, not the host's.
void CSettingBoxPage::StartStore() {
  store_.ReadLastSettings(*settings_);
  settings_->frameCommand = 0;
  hasRecord_ = true;
  pageSource_ = settings_->paperSource;
  store_.ReadSelectedRow(pageSource_);
  if (pageSource_ == paper_source::feeder) settings_->autoCrop = 0;
  MarkRowAtStart();
}

void CSettingBoxPage::AutoSaveConfig() {
  if (!suppressAutoSave_) store_.SaveChange(*settings_, pageSource_);
}

// A click beside the rows still takes the frames away.
void CSettingBoxPage::OnRowClicked(const Event& event) {
  RemoveAllFrames();
  if (event.row < 0 || event.row >= store_.RowCount()) return;
  store_.selectedRow = event.row;
  if (!store_.TakeRow(event.row, *settings_)) return;
  CutLengths(*settings_);
  store_.SetButtons();
  RefreshPanel();
  host_.AutoCropChanged(auto_crop_change::taken, *settings_);
  host_.AreaChanged(*settings_);
  host_.UnitChosen(shownUnits_, settings_->dpi);
  RepeatAutoCropUnsaved();
}

void CSettingBoxPage::SelectConfigRow(int row) {
  RemoveAllFrames();
  store_.selectedRow = row;
  if (!store_.TakeRow(row, *settings_)) return;
  store_.SetButtons();
  RefreshPanel();
  host_.AreaChanged(*settings_);
  RepeatAutoCrop();
  store_.SelectRow(row);
}

}  // namespace set32
