#include "profile/config_store.h"

#include <algorithm>
#include <cstring>

#include "controls/thread_message.h"
#include "profile/profile_file.h"
#include "profile/profile_keys.h"
#include "profile/save_config_dialog.h"
#include "resources/ids.h"
#include "resources/pictures.h"
#include "resources/strings.h"

namespace set32 {

namespace {

// A row's word is its slot's number plus 1; 0 is the fallback row's.
std::uintptr_t SlotWord(std::size_t slot) {
  return slot + 1;
}

// A record as it came from the file: its pointer field means nothing.
void TakeSettings(const ScanConfigItem& item, ScanSettings& settings) {
  settings = item.settings;
  settings.frameCommand = 0;
}

std::span<std::uint8_t> BytesOf(ScanSettings& settings) {
  return {reinterpret_cast<std::uint8_t*>(&settings), sizeof(settings)};
}

}  // namespace

void CConfigStore::Attach(Dialog& page) {
  dialog_ = &page;
}

List& CConfigStore::Rows() const {
  return dialog_->Get<List>(id::configList);
}

void CConfigStore::SetUpList() {
  std::vector<Picture> icons;
  for (const std::string_view name : {picture::modeBlackWhite, picture::modeGray, picture::modeColour,
                                      picture::modeJpegColour, picture::modeJpegGray}) {
    icons.push_back(LoadPicture(name));
  }
  List& rows = Rows();
  rows.SetIcons(icons);
  rows.SetColumnWidth(ColumnWidthFor(rows.Place().Width(), 0, 1, 0));
}

void CConfigStore::WriteFreshProfile() {
  if (state_.platform.files.Exists(state_.profilePath)) return;
  const std::string text = FreshProfile(state_.platform.system);
  state_.platform.profiles.ReplaceFile(state_.profilePath.c_str(), text);
}

std::uint32_t CConfigStore::LoadLastSettings(ScanSettings& settings) {
  hasLoaded_ = true;
  const std::uint32_t hostSource = settings.paperSource;
  CProfileFile profile(state_.platform.profiles);
  profile.SetFileName(state_.profilePath.c_str());
  profile.GetBinary(profile_key::tmpSection, profile_key::tmp, BytesOf(settings), 0);
  settings.frameCommand = 0;
  if (!face_.sourceComesWithTmp) settings.paperSource = hostSource;
  ReadSelectedRow(settings.paperSource);
  if (settings.paperSource == paper_source::feeder) settings.autoCrop = 0;
  return settings.paperSource;
}

void CConfigStore::ReadSelectedRow(std::uint32_t source) {
  CProfileFile profile(state_.platform.profiles);
  profile.SetFileName(state_.profilePath.c_str());
  selectedRow =
      static_cast<std::int32_t>(profile.GetInteger(profile_key::selected, profile_key::SelectedKey(source), 0, 10));
}

void CConfigStore::ClearRows() {
  Rows().Clear();
}

void CConfigStore::BuildConfigList() {
  constexpr int farDown = 900;  // pixels; the selection that follows scrolls its row back into view

  List& rows = Rows();
  const std::vector<ConfigEntry> entries = ReadConfigEntries(state_.platform.profiles, state_.profilePath);
  std::size_t slot = 0;
  for (const ConfigEntry& entry : entries) {
    ScanConfigItem& item = slots_[slot];
    CopyStoredItem(entry, item);
    const bool isOnPage = item.settings.paperSource == page_.PageSource();
    // The last slot stays the reading place, so the rows past it are not shown; the file keeps them.
    if (isOnPage && slot < static_cast<std::size_t>(mostRows)) {
      rows.Add(entry.name, ModeIcon(item.settings.mode), SlotWord(slot));
      FitColumnTo(rows.Count() - 1);
      ++slot;
    }
  }
  rows.ScrollBy(farDown);
  if (entries.empty()) rows.Add("Custom...", ModeIcon(mode::colour), 0);
}

void CConfigStore::FitColumnTo(int row) {
  List& rows = Rows();
  rows.SetColumnWidth(
      ColumnWidthFor(rows.Place().Width(), row, rows.RowsPerPage(), rows.TextWidth(rows.RowText(row))));
}

void CConfigStore::FitColumn() {
  for (int row = 0; row < Rows().Count(); ++row) FitColumnTo(row);
}

void CConfigStore::ShowSelectedRow() {
  // The selection's report may move selectedRow, so the row is kept.
  const int row = selectedRow;
  Rows().SelectAndFocus(row);
  Rows().EnsureVisible(row);
}

void CConfigStore::HoldSelectedRow() {
  if (selectedRow >= Rows().Count()) selectedRow = Rows().Count() - 1;
}

const ScanConfigItem* CConfigStore::ItemOf(int row) const {
  if (row < 0 || row >= Rows().Count()) return nullptr;
  const std::uintptr_t word = Rows().RowData(row);
  return word == 0 || word > slots_.size() ? nullptr : &slots_[word - 1];
}

RowFlags CConfigStore::FlagsOf(int row) const {
  const ScanConfigItem* item = ItemOf(row);
  if (item == nullptr) return {0, 0, false};
  return {item->editable, item->deletable, true};
}

std::vector<RowFlags> CConfigStore::Flags() const {
  std::vector<RowFlags> flags;
  flags.reserve(static_cast<std::size_t>(Rows().Count()));
  for (int row = 0; row < Rows().Count(); ++row) flags.push_back(FlagsOf(row));
  return flags;
}

int CConfigStore::LastSelectedRow() const {
  for (int row = Rows().Count() - 1; row >= 0; --row) {
    if (Rows().StateOf(row).selected) return row;
  }
  return -1;
}

void CConfigStore::SetButtons() {
  if (selectedRow == -1) return;
  const RowButtons buttons = ButtonsOf(FlagsOf(selectedRow));
  dialog_->Get<Button>(id::saveButton).SetEnabled(buttons.save);
  dialog_->Get<Button>(id::deleteButton).SetEnabled(buttons.remove);
}

void CConfigStore::LoadRow(int row) {
  if (const ScanConfigItem* item = ItemOf(row)) TakeSettings(*item, page_.Settings());
}

int CConfigStore::FindRow(const std::string& name) const {
  int found = -1;
  for (int row = 0; row < Rows().Count(); ++row) {
    if (IsSameName(Rows().RowText(row), name)) found = row;
  }
  return found;
}

void CConfigStore::OnRowChanged(const Event& event) {
  const bool isPick = event.after.selected && !event.before.selected;
  if (!isPick || event.row == selectedRow) return;
  selectedRow = event.row;
  if (ItemOf(selectedRow) == nullptr) return;
  LoadRow(selectedRow);
  SetButtons();
  page_.RefreshPanel();
}

void CConfigStore::OnRowClicked(const Event& event) {
  if (face_.clickTouchesFrames) page_.RemoveAllFrames();
  if (event.row < 0 || event.row >= Rows().Count()) return;
  if (!face_.clickTellsUnitShown) page_.Host().UnitChosen(0, page_.Settings().dpi);
  selectedRow = event.row;
  if (ItemOf(selectedRow) == nullptr) return;
  LoadRow(selectedRow);
  if (face_.clickTouchesFrames) CutLengths(page_.Settings());
  SetButtons();
  page_.RefreshPanel();
  if (!face_.clickTouchesFrames) return;
  HostLink& host = page_.Host();
  host.AutoCropChanged(auto_crop_change::taken, page_.Settings());
  host.AreaChanged(page_.Settings());
  host.UnitChosen(page_.ShownUnits(), page_.Settings().dpi);
  page_.RepeatAutoCrop(PanelServices::Saving::off);
}

void CConfigStore::SelectConfigRow(int row) {
  page_.RemoveAllFrames();
  selectedRow = row;
  if (ItemOf(row) == nullptr) return;
  LoadRow(row);
  SetButtons();
  page_.RefreshPanel();
  page_.Host().AreaChanged(page_.Settings());
  page_.RepeatAutoCrop(PanelServices::Saving::asUsual);
  Rows().SelectAndFocus(row);
}

void CConfigStore::ChangeSource() {
  ClearRows();
  BuildConfigList();
  if (face_.sourceChangeReadsRow) ReadSelectedRow(page_.PageSource());
  HoldSelectedRow();
  ShowSelectedRow();
  LoadRow(selectedRow);
}

void CConfigStore::AutoSaveConfig() {
  if (!face_.savesAutomatically || suppressAutoSave) return;
  const AutoSaveTarget target = FindAutoSaveTarget(Flags(), selectedRow);
  if (target.row < 0) return;
  const int fromEnd = Rows().Count() - target.row;
  const std::string text = Rows().RowText(target.row);
  System& system = state_.platform.system;
  const std::string name = text.substr(0, BytesOfCharacters(system, text, longestName));
  ScanConfigItem item{};
  item.settings = page_.Settings();
  item.editable = target.editable;
  item.deletable = target.deletable;
  StoreConfigItem(state_.platform.profiles, state_.profilePath, name, item);
  ClearRows();
  BuildConfigList();
  int row = target.countsFromEnd ? Rows().Count() - fromEnd : selectedRow;
  // A file that was edited meanwhile has the row elsewhere.
  if (Rows().RowText(row) != text) {
    if (const int moved = FindRow(text); moved >= 0) row = moved;
  }
  Rows().SelectAndFocus(row);
}

bool CConfigStore::IsCustomRowSelected() const {
  const int count = Rows().Count();
  int row = Rows().TopRow();
  while (row < count && !(Rows().StateOf(row).selected && Rows().StateOf(row).focused)) ++row;
  return row == CustomRow(Flags());
}

void CConfigStore::SaveConfigAs() {
  System& system = state_.platform.system;
  if (Rows().Count() >= mostRows) {
    ShowMessageOnThread(state_, LoadString(system, text::tooManyConfigs));
    return;
  }
  const int shown = LastSelectedRow();
  CSaveConfigDlg dialog(state_);
  dialog.name = shown >= 0 ? Rows().RowText(shown) : LoadString(system, text::newConfigName);
  if (dialog.Run(dialog_->Handle()) != dialog_result::ok || !dialog_->IsAlive()) return;
  ScanConfigItem item{};
  item.settings = page_.Settings();
  item.editable = item.deletable = 1;
  StoreConfigItem(state_.platform.profiles, state_.profilePath, dialog.name, item);
  ClearRows();
  BuildConfigList();
  if (const int row = FindRow(dialog.name); row >= 0) selectedRow = row;
  ShowSelectedRow();
  if (ItemOf(selectedRow) != nullptr) SetButtons();
}

void CConfigStore::DeleteConfig() {
  const int rowsBefore = Rows().Count();
  if (rowsBefore < 2) return;
  const int row = LastSelectedRow();
  if (row < 0) return;
  System& system = state_.platform.system;
  const std::string name = Rows().RowText(row);
  const std::string question = LoadString(system, text::deleteQuestionStart) + "\"" + name + "\"" +
                               LoadString(system, text::deleteQuestionEnd);
  const BoxAnswer answer = state_.platform.boxes.Show(dialog_->Handle(), question, state_.productName,
                                                      box_style::yesNo | box_style::exclamation);
  if (answer != BoxAnswer::yes || !dialog_->IsAlive()) return;
  RemoveConfigItem(state_.platform.profiles, state_.profilePath, name);
  ClearRows();
  BuildConfigList();
  selectedRow = RowAfterDeletion(selectedRow, rowsBefore, Rows().Count());
  ShowSelectedRow();
  LoadRow(selectedRow);
  page_.RefreshPanel();
}

void CConfigStore::Close(ScanSettings& settings, std::uint32_t pageSource) {
  if (!hasLoaded_) return;
  CProfileFile profile(state_.platform.profiles);
  profile.SetFileName(state_.profilePath.c_str());
  profile.WriteInteger(profile_key::selected, profile_key::SelectedKey(pageSource),
                       static_cast<std::uint32_t>(selectedRow), 10);
  profile.WriteBinary(profile_key::tmpSection, profile_key::tmp, BytesOf(settings));
  settings.highBitDepth = 0;
}

}  // namespace set32
