// The choice of the scanner on the General page: combo 1013, button 5003, and what the host is told of it.
//
// Everything runs on the host's thread. A search blocks it, 3 seconds and more; dialog 119 and every report to the
// host dispatch messages, and when the page died meanwhile nothing more is touched.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "boundary/host_link.h"
#include "boundary/module_state.h"
#include "platform/windows.h"
#include "scanner/scanner_list.h"

namespace set32 {

class CScannerChoice {
 public:
  enum class LoadAt { start, reload };

  CScannerChoice(ModuleState& state, HostLink& host) : state_(state), host_(host) {}

  // The page, before anything else is called. The object must stay as long as this one is used; its window may go.
  void Attach(Dialog& page) { page_ = &page; }

  // The page's start: default device, list file, and a refresh where USB scanners are wanted.
  void Start();
  // The page's end, while its controls stand: stores the default device and the list.
  void StoreAtClose();
  // The page's end, after its window.
  void ClearScannerList() { list_.ClearScannerList(); }

  // Button 5003.
  void RefreshScanners();
  // An entry of combo 1013 was chosen.
  void OnScannerSelChange();
  // The host asks for a scanner's address.
  void OnAskScannerAddress();

  // Tells the host the current choice.
  void ReportScanner();
  // The same as the panel's refresh does it: the text is that of the name so far, only then is the combo read.
  void ReportAtPanelRefresh();

  void SyncDefaultDevice();
  // Fills list and combo from the file. Result: the list's count, 0 when the file can't be read.
  std::uint16_t LoadScannerList(LoadAt when);
  void ReloadScannerList();
  bool SaveScannerList();

  const CScannerList& List() const { return list_; }
  const std::string& DefaultAddress() const { return defaultAddress_; }

 private:
  bool Wants(std::uint8_t driverType) const { return (state_.driverType & driverType) != 0; }
  Combo& ScannerCombo() const;
  std::string AddEntryText() const;

  void SearchUsb();
  void SearchNetwork();

  void SetCurrentName(std::string_view name);
  // The selected entry's text; without a selection the name stays.
  void ReadCurrentName();
  // What the host is told of the current name.
  std::string HostText() const;
  void Report(const std::string& hostText);
  // Enters an address that was typed in and answered. False when it is in the list.
  bool AddTypedScanner(std::uint32_t address, const std::string& name);

  ModuleState& state_;
  HostLink& host_;
  Dialog* page_ = nullptr;

  CScannerList list_;
  std::string currentName_;     // at most 63 bytes
  std::string defaultAddress_;  // answered at the page's start; empty: none
  std::int32_t firstUsbNumber_ = 0;
};

}  // namespace set32
