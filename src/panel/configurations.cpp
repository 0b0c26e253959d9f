// Scan configurations: list 1009, buttons 5002 and 5004. The store keeps rows, slots and the file; here stands what a
// row does to the page. A click on a row is each face's.
#include "controls/thread_message.h"
#include "panel/page.h"
#include "profile/save_config_dialog.h"
#include "resources/ids.h"
#include "resources/strings.h"

namespace set32 {

void CPanelPage::MarkRowAtStart() {
  store_.BuildConfigList(pageSource_);
  store_.SelectRow(store_.selectedRow);
}

// The list of a source that was turned to; the row number is the one that is in force by then.
void CPanelPage::BuildRowsOfSource() {
  store_.BuildConfigList(pageSource_);
}

void CPanelPage::LoadSelectedRow() {
  store_.HoldSelectedRow();
  store_.SelectRow(store_.selectedRow);
  store_.TakeRow(store_.selectedRow, *settings_);
}

// Only a row that gains the selection is a pick, and the one that is selected already changes nothing.
void CPanelPage::OnRowChanged(const Event& event) {
  const bool isPick = event.after.selected && !event.before.selected;
  if (!isPick || event.row == store_.selectedRow) return;
  store_.selectedRow = event.row;
  if (!store_.TakeRow(event.row, *settings_)) return;
  store_.SetButtons();
  RefreshPanel();
}

void CPanelPage::OnSaveClicked(const Event&) {
  SaveConfigAs();
}
void CPanelPage::OnDeleteClicked(const Event&) {
  DeleteConfig();
}

void CPanelPage::SaveConfigAs() {
  if (store_.RowCount() >= CConfigStore::mostRows) {
    ShowMessageOnThread(state_, String(text::tooManyConfigs));
    return;
  }
  const WindowHandle window = Window();
  const int shown = store_.LastSelectedRow();
  CSaveConfigDlg dialog(state_);
  dialog.name = shown >= 0 ? store_.RowText(shown) : String(text::newConfigName);
  if (dialog.Run(window) != dialog_result::ok || !StillStands(window)) return;
  const Stored stored = store_.SaveAs(dialog.name, *settings_);
  store_.BuildConfigList(pageSource_);
  // A row of that name that couldn't be written holds older settings, and isn't shown as what was saved.
  const int row = stored == Stored::written ? store_.FindRow(dialog.name) : -1;
  if (row >= 0) store_.selectedRow = row;
  store_.SelectRow(store_.selectedRow);
  if (store_.HasSlot(store_.selectedRow)) store_.SetButtons();
  if (const auto refusal = RefusalText(stored, dialog.name)) ShowMessageOnThread(state_, String(*refusal));
}

void CPanelPage::DeleteConfig() {
  const int rowsBefore = store_.RowCount();
  const int row = store_.LastSelectedRow();
  if (rowsBefore < 2 || row < 0) return;
  const std::string name = store_.RowText(row);
  const std::string question =
      String(text::deleteQuestionStart) + "\"" + name + "\"" + String(text::deleteQuestionEnd);
  const WindowHandle window = Window();
  const BoxAnswer answer =
      state_.platform.boxes.Show(window, question, state_.productName, box_style::yesNo | box_style::exclamation);
  if (answer != BoxAnswer::yes || !StillStands(window)) return;
  store_.Remove(name);
  store_.BuildConfigList(pageSource_);
  store_.selectedRow = RowAfterDeletion(store_.selectedRow, rowsBefore, store_.RowCount());
  store_.SelectRow(store_.selectedRow);
  store_.TakeRow(store_.selectedRow, *settings_);
  RefreshPanel();
}

}  // namespace set32
