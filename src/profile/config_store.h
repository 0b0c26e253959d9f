// The store of scan configurations behind the list 1009 and the buttons 5002 and 5004.
//
// Rows and slots are a cache of the file: every operation rebuilds them. Slot i belongs to row i, and the first slot
// without a row is where the next key is read, so what stands there from an earlier read judges a key that can't be
// read. Everything is on disk when an operation returns. Host's thread only; no operation reports a failure.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "boundary/module_state.h"
#include "boundary/panel_services.h"
#include "host_records.h"
#include "platform/windows.h"
#include "profile/config_items.h"
#include "profile/config_rules.h"

namespace set32 {

// How the faces differ in the store.
struct StoreFace {
  bool savesAutomatically;    // AutoSaveConfig works
  bool clickTouchesFrames;    // a click removes the frames, cuts the lengths and repeats auto crop
  bool clickTellsUnitShown;   // 0x405 after a click carries the unit shown, not 0, and comes last
  bool sourceComesWithTmp;    // the source of the record `Tmp` counts, not the host's
  bool sourceChangeReadsRow;  // a change of source reads the selected row from the file
};

inline constexpr StoreFace sheetStoreFace = {true, true, true, true, false};
inline constexpr StoreFace inlineStoreFace = {false, false, false, false, true};

class CConfigStore {
 public:
  static constexpr int slotCount = 32;
  static constexpr int mostRows = slotCount - 1;
  static constexpr std::size_t longestName = 259;  // characters

  CConfigStore(ModuleState& state, PanelServices& page, const StoreFace& face)
      : state_(state), page_(page), face_(face) {}

  // The page's window stands; the dialog outlives the store's use of it.
  void Attach(Dialog& page);
  // Icons and the one column of the list.
  void SetUpList();

  // Creates the profile when the file is missing.
  void WriteFreshProfile();
  // Reads `Tmp` over the settings, and the selected row of the source that then counts. For the feeder auto crop is
  // cleared. Result: the page's source.
  std::uint32_t LoadLastSettings(ScanSettings& settings);
  // Refills rows and slots for the page's source; the caller has cleared the rows.
  void BuildConfigList();
  void ClearRows();
  // Marks the selected row and brings it into view.
  void ShowSelectedRow();
  // A selected row past the end becomes the last one, without a new selection.
  void HoldSelectedRow();
  // 5002 and 5004 from the selected row.
  void SetButtons();
  // The column over all rows, after a resize.
  void FitColumn();

  void SaveConfigAs();
  void DeleteConfig();
  void AutoSaveConfig();
  bool IsCustomRowSelected() const;
  void SelectConfigRow(int row);
  // The store's share of a change of paper source: rows rebuilt, a row selected, its settings taken.
  void ChangeSource();

  void OnRowChanged(const Event& event);
  void OnRowClicked(const Event& event);

  // Writes the selected row and `Tmp`, and takes the high bit depth away from the host afterwards. Nothing happens
  // where the host ended the page before the last settings were read: they would be lost.
  void Close(ScanSettings& settings, std::uint32_t pageSource);

  int selectedRow = -1;
  bool suppressAutoSave = false;  // while a change of paper source is carried out

 private:
  List& Rows() const;
  int LastSelectedRow() const;
  std::vector<RowFlags> Flags() const;
  RowFlags FlagsOf(int row) const;
  const ScanConfigItem* ItemOf(int row) const;
  void LoadRow(int row);
  void ReadSelectedRow(std::uint32_t source);
  void FitColumnTo(int row);
  int FindRow(const std::string& name) const;

  ModuleState& state_;
  PanelServices& page_;
  const StoreFace& face_;
  Dialog* dialog_ = nullptr;
  bool hasLoaded_ = false;
  std::array<ScanConfigItem, slotCount> slots_{};
};

}  // namespace set32
