#include "scanner/scanner_choice.h"

#include <algorithm>
#include <set>

#include "boundary/option_keys.h"
#include "platform/letter_case.h"
#include "resources/ids.h"
#include "resources/strings.h"
#include "scanner/add_scanner_dialog.h"
#include "scanner/address.h"
#include "scanner/default_device.h"
#include "scanner/list_file.h"
#include "scanner/nets.h"
#include "scanner/searching_dialog.h"
#include "scanner/usb_walk.h"

namespace set32 {

namespace {

constexpr std::size_t currentNameBytes = 64;  // with the terminator

// The texts of a combo, to know in logarithmic time whether one begins with a given text, as Combo::FindPrefix finds
// it by a walk over all entries: a list file may hold tens of thousands.
class EntryTexts {
 public:
  void Add(std::string_view entry) { folded_.insert(Folded(entry)); }
  bool HasPrefix(std::string_view prefix) const {
    const std::string folded = Folded(prefix);
    const auto found = folded_.lower_bound(folded);
    return found != folded_.end() && found->starts_with(folded);
  }

 private:
  std::set<std::string> folded_;
};

}  // namespace

Combo& CScannerChoice::ScannerCombo() const {
  return page_->Get<Combo>(id::scannerCombo);
}

std::string CScannerChoice::AddEntryText() const {
  return LoadString(state_.platform.system, text::addScanner);
}

void CScannerChoice::Start() {
  list_.ClearScannerList();
  if (Wants(driver_type::network)) SyncDefaultDevice();
  LoadScannerList(LoadAt::start);
  if (Wants(driver_type::usb)) RefreshScanners();
}

void CScannerChoice::StoreAtClose() {
  // Without a selection the person has chosen nothing: what was stored before stays the default.
  const int selected = ScannerCombo().Selected();
  list_.selectedIndex = static_cast<std::uint16_t>(selected);
  if (Wants(driver_type::network) && selected >= 0) {
    ReadCurrentName();
    if (currentName_ != LoadString(state_.platform.system, text::addScannerAtClose)) {
      StoreDefaultDevice(state_, currentName_);
    }
  }
  SaveScannerList();
}

void CScannerChoice::RefreshScanners() {
  // Nothing reads the section.
  state_.platform.profiles.WriteString("SCNIP", nullptr, nullptr, state_.profilePath.c_str());
  list_.ClearScannerList();
  if (Wants(driver_type::usb)) SearchUsb();
  if (Wants(driver_type::network)) SearchNetwork();
  // The first entry in view of the combo as it was before the search, not its selection.
  list_.selectedIndex = static_cast<std::uint16_t>(ScannerCombo().TopIndex());
  SaveScannerList();
  ReloadScannerList();
  ReadCurrentName();
  state_.platform.windows.ForgetInput();
  ReportScanner();
}

void CScannerChoice::SearchUsb() {
  Platform& platform = state_.platform;
  const CSearchingDlg searching(platform.windows, page_->Handle(), LoadString(platform.system, text::searchingLocal));
  EnumerateUsbScanners(platform.usb, platform.profiles, state_.ModuleSettingsPath(), list_, firstUsbNumber_);
}

void CScannerChoice::SearchNetwork() {
  Platform& platform = state_.platform;
  CSearchingDlg searching(platform.windows, page_->Handle(), {});
  {
    const SocketLibrary library(platform.sockets, nets::oldLibrary);
    if (library) CheckAddedScanners(platform.sockets, platform.system, list_.Added(), networkScannerPort);
  }
  searching.Paint();
  BroadcastDiscovery(platform.sockets, platform.system, list_);
}

void CScannerChoice::OnScannerSelChange() {
  ReadCurrentName();
  if (currentName_ == AddEntryText()) {
    CAddScannerIpDlg dialog(state_.platform.windows, state_.platform.system, state_.platform.sockets);
    const int result = dialog.Run(page_->Handle());
    if (!page_->IsAlive()) return;
    Combo& combo = ScannerCombo();
    if (result == dialog_result::ok) {
      SetCurrentName(dialog.AddressText());
      if (AddTypedScanner(dialog.AddressWord(), dialog.AddressText()) && combo.FindPrefix(-1, currentName_) < 0) {
        combo.Insert(std::max(combo.Count() - 1, 0), currentName_);
      }
    }
    if (combo.Count() > 1) combo.SelectIndex(combo.Count() - 2);
  }
  ReportScanner();
}

void CScannerChoice::OnAskScannerAddress() {
  CAddScannerIpDlg dialog(state_.platform.windows, state_.platform.system, state_.platform.sockets);
  const int result = dialog.Run(page_->Handle());
  if (!page_->IsAlive()) return;
  Combo& combo = ScannerCombo();
  if (result == dialog_result::ok) {
    SetCurrentName(dialog.AddressText());
    if (AddTypedScanner(dialog.AddressWord(), dialog.AddressText())) {
      combo.Insert(std::max(combo.Count() - 1, 0), currentName_);
    }
  } else {
    combo.Remove(combo.Selected());
    combo.SelectIndex(0);
    defaultAddress_.clear();
  }
  ReportScanner();
}

bool CScannerChoice::AddTypedScanner(std::uint32_t address, const std::string& name) {
  const AddressHalves halves = SplitAddress(address);
  return list_.AddScannerEntry(scanner_type::network, halves.high, halves.low, networkScannerPort, name,
                               SCANNER_FLAG_ADDED | SCANNER_FLAG_ANSWERED) != nullptr;
}

void CScannerChoice::ReportScanner() {
  Report(HostText());
}

void CScannerChoice::ReportAtPanelRefresh() {
  const std::string hostText = HostText();
  ReadCurrentName();
  Report(hostText);
}

std::string CScannerChoice::HostText() const {
  if (currentName_ != usbScannerName) return currentName_;
  return currentName_ + ' ' + std::to_string(firstUsbNumber_);
}

void CScannerChoice::Report(const std::string& hostText) {
  host_.DeviceSelected(currentName_ == AddEntryText(), hostText);
}

void CScannerChoice::SetCurrentName(std::string_view name) {
  currentName_ = CutAtCharacter(state_.platform.system, name, currentNameBytes - 1);
}

void CScannerChoice::ReadCurrentName() {
  const Combo& combo = ScannerCombo();
  const int selected = combo.Selected();
  if (selected >= 0) SetCurrentName(combo.EntryText(selected));
}

void CScannerChoice::SyncDefaultDevice() {
  const std::string device = TakeDefaultDevice(state_);
  if (!LooksLikeAddress(device)) return;
  Platform& platform = state_.platform;
  bool answered = false;
  {
    const SocketLibrary library(platform.sockets, nets::oldLibrary);
    answered = library && ProbeScanner(platform.sockets, platform.system, device, networkScannerPort);
  }
  platform.windows.ForgetInput();
  if (!answered) return;
  ScannerCombo().Insert(0, device);
  defaultAddress_ = device;
  ScannerCombo().SelectIndex(0);
}

std::uint16_t CScannerChoice::LoadScannerList(LoadAt when) {
  Combo& combo = ScannerCombo();
  combo.Clear();
  EntryTexts entries;
  const bool offersDefault = Wants(driver_type::network) && !defaultAddress_.empty();
  if (offersDefault) {
    combo.Insert(0, defaultAddress_);
    combo.SelectIndex(0);
    entries.Add(defaultAddress_);
  }
  const auto show = [&](std::string_view name) {
    if (entries.HasPrefix(name)) return;
    combo.Add(name);
    entries.Add(name);
  };
  if (!ReadListFile(state_.platform.files, state_.scannerListPath, list_, show)) return 0;
  if (Wants(driver_type::network)) {
    const std::string addEntry = AddEntryText();
    if (when == LoadAt::start && combo.FindPrefix(-1, addEntry) < 0) combo.Add(addEntry);
    if (defaultAddress_.empty()) combo.SelectIndex(0);
  }
  return list_.Count();
}

void CScannerChoice::ReloadScannerList() {
  list_.ClearScannerList();
  LoadScannerList(LoadAt::reload);
  Combo& combo = ScannerCombo();
  if (!Wants(driver_type::network)) {
    if (state_.driverType == driver_type::usb) {
      list_.selectedIndex = 0;
      combo.SelectIndex(0);
    }
    return;
  }
  const std::string addEntry = AddEntryText();
  if (combo.FindPrefix(-1, addEntry) < 0) combo.Add(addEntry);
  combo.SelectIndex(list_.selectedIndex);
  ReadCurrentName();
}

bool CScannerChoice::SaveScannerList() {
  return WriteListFile(state_.platform.profiles, state_.scannerListPath, list_);
}

}  // namespace set32
