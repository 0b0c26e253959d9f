// Scan configurations on the inline face: nothing is saved by itself, and a row that is clicked is loaded plainly.
#include "panel/inline/inline_setting_page.h"

namespace set32 {

// The last settings count but for their source: the host's stays, and the page shows the one of the options.
void CInlineSettingPage::StartStore() {
  const std::uint32_t hostSource = settings_->paperSource;
  store_.ReadLastSettings(*settings_);
  settings_->paperSource = hostSource;
  store_.ReadSelectedRow(hostSource);
  if (hostSource == paper_source::feeder) settings_->autoCrop = 0;
  pageSource_ = Options().PaperSource();
  MarkRowAtStart();
}

void CInlineSettingPage::OnRowClicked(const Event& event) {
  if (event.row < 0 || event.row >= store_.RowCount()) return;
  host_.UnitChosen(0, settings_->dpi);
  store_.selectedRow = event.row;
  if (!store_.TakeRow(event.row, *settings_)) return;
  store_.SetButtons();
  RefreshPanel();
}

}  // namespace set32
