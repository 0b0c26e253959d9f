#include "profile/config_store.h"

#include <algorithm>
#include <span>

#include "profile/profile_file.h"
#include "profile/profile_keys.h"
#include "resources/pictures.h"

namespace set32 {

namespace {

// A row's word is its slot's number plus 1; 0 is the fallback row's.
std::uintptr_t SlotWord(std::size_t slot) {
  return slot + 1;
}

std::span<std::uint8_t> BytesOf(ScanSettings& settings) {
  return {reinterpret_cast<std::uint8_t*>(&settings), sizeof(settings)};
}

}  // namespace

void CConfigStore::SetUpList() {
  std::vector<Picture> icons;
  for (const std::string_view name : {picture::modeBlackWhite, picture::modeGray, picture::modeColour,
                                      picture::modeJpegColour, picture::modeJpegGray}) {
    icons.push_back(LoadPicture(name));
  }
  List& rows = Rows();
  rows.SetIcons(icons);
  rows.SetColumnWidth(ColumnWidthFor(RoomForColumn(), 0, 1, 0));
}

void CConfigStore::WriteFreshProfile() {
  // Of several hosts that start at once only the first lays it; what the others already stored stays.
  const std::string text = FreshProfile(state_.platform.system);
  state_.platform.profiles.CreateIfAbsent(state_.profilePath.c_str(), text);
}

// The pointer in a stored record means nothing.
void CConfigStore::ReadLastSettings(ScanSettings& settings) const {
  CProfileFile profile(state_.platform.profiles);
  profile.SetFileName(state_.profilePath.c_str());
  if (profile.GetBinary(profile_key::tmpSection, profile_key::tmp, BytesOf(settings), 0) > 0)
    settings.frameCommand = 0;
}

void CConfigStore::ReadSelectedRow(std::uint32_t source) {
  CProfileFile profile(state_.platform.profiles);
  profile.SetFileName(state_.profilePath.c_str());
  selectedRow =
      static_cast<std::int32_t>(profile.GetInteger(profile_key::selected, profile_key::SelectedKey(source), 0, 10));
}

void CConfigStore::BuildConfigList(std::uint32_t source) {
  constexpr int farDown = 900;  // pixels; the selection that follows scrolls its row back into view

  List& rows = Rows();
  rows.Clear();
  ConfigEntries entries(state_.platform.profiles, state_.profilePath);
  bool isEmpty = true;
  std::size_t slot = 0;
  for (ConfigEntry entry; entries.Next(entry); isEmpty = false) {
    ScanConfigItem& item = slots_[slot];
    CopyStoredItem(entry, item);
    // The last slot stays the reading place, so the rows past it are not shown; the file keeps them.
    if (item.settings.paperSource == source && slot < static_cast<std::size_t>(mostRows)) {
      rows.Add(entry.name, ModeIcon(item.settings.mode), SlotWord(slot));
      FitColumnTo(rows.Count() - 1);
      ++slot;
    }
  }
  rows.ScrollBy(farDown);
  if (isEmpty) rows.Add("Custom...", ModeIcon(mode::colour), 0);
}

void CConfigStore::FitColumnTo(int row) {
  List& rows = Rows();
  rows.SetColumnWidth(ColumnWidthFor(RoomForColumn(), row, rows.RowsPerPage(), rows.TextWidth(rows.RowText(row))));
}

ColumnRoom CConfigStore::RoomForColumn() const {
  return {Rows().Place().Width(), Rows().InnerWidth(), state_.platform.windows.ScrollBarWidth()};
}

void CConfigStore::FitColumn() {
  for (int row = 0; row < Rows().Count(); ++row) FitColumnTo(row);
}

void CConfigStore::SelectRow(int row) {
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
  Dialog::ControlOf<Button>(dialog_, id::saveButton).SetEnabled(buttons.save);
  Dialog::ControlOf<Button>(dialog_, id::deleteButton).SetEnabled(buttons.remove);
}

// A record as it came from the file: its pointer field means nothing.
bool CConfigStore::TakeRow(int row, ScanSettings& settings) const {
  const ScanConfigItem* item = ItemOf(row);
  if (item == nullptr) return false;
  settings = item->settings;
  settings.frameCommand = 0;
  return true;
}

int CConfigStore::FindRow(const std::string& name) const {
  int found = -1;
  for (int row = 0; row < Rows().Count(); ++row) {
    if (IsSameName(Rows().RowText(row), name)) found = row;
  }
  return found;
}

bool CConfigStore::IsCustomRowSelected() const {
  const int count = Rows().Count();
  int row = Rows().TopRow();
  while (row < count && !(Rows().StateOf(row).selected && Rows().StateOf(row).focused)) ++row;
  return row == CustomRow(Flags());
}

Stored CConfigStore::SaveAs(const std::string& name, const ScanSettings& settings) {
  ScanConfigItem item{};
  item.settings = settings;
  item.editable = item.deletable = 1;
  return StoreConfigItem(state_.platform.profiles, state_.profilePath, name, item);
}

bool CConfigStore::Remove(const std::string& name) {
  return RemoveConfigItem(state_.platform.profiles, state_.profilePath, name);
}

void CConfigStore::SaveChange(const ScanSettings& settings, std::uint32_t source) {
  const AutoSaveTarget target = FindAutoSaveTarget(Flags(), selectedRow);
  if (target.row < 0) return;
  const int fromEnd = Rows().Count() - target.row;
  const std::string text = Rows().RowText(target.row);
  const std::string name = text.substr(0, BytesOfCharacters(state_.platform.system, text, longestName));
  ScanConfigItem item{};
  item.settings = settings;
  item.editable = target.editable;
  item.deletable = target.deletable;
  const Stored stored = StoreConfigItem(state_.platform.profiles, state_.profilePath, name, item);
  BuildConfigList(source);
  if (stored == Stored::failed) return;
  int row = target.countsFromEnd ? Rows().Count() - fromEnd : selectedRow;
  // A file that was edited meanwhile has the row elsewhere.
  if (Rows().RowText(row) != text) {
    if (const int moved = FindRow(text); moved >= 0) row = moved;
  }
  SelectRow(row);
}

void CConfigStore::WriteLastSettings(const ScanSettings& settings, std::uint32_t source) {
  CProfileFile profile(state_.platform.profiles);
  profile.SetFileName(state_.profilePath.c_str());
  profile.WriteInteger(profile_key::selected, profile_key::SelectedKey(source),
                       static_cast<std::uint32_t>(selectedRow), 10);
  ScanSettings last = settings;
  profile.WriteBinary(profile_key::tmpSection, profile_key::tmp, BytesOf(last));
}

}  // namespace set32
