// The rows of the list 1009, the slots behind them, and the file that both are a cache of.
//
// Every operation rebuilds rows and slots from the file. Slot i belongs to row i, and the first slot without a row is
// where the next key is read, so what stands there from an earlier read judges a key that can't be read. Everything
// is on disk when an operation returns. What a page does with a row is the page's (panel/configurations.cpp). Host's
// thread only; selecting a row raises the list's report before the operation goes on.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "boundary/module_state.h"
#include "platform/windows.h"
#include "profile/config_items.h"
#include "profile/config_rules.h"
#include "resources/ids.h"
#include "set32/host_records.h"

namespace set32 {

class CConfigStore {
 public:
  static constexpr int slotCount = 32;
  static constexpr int mostRows = slotCount - 1;
  static constexpr std::size_t longestName = 259;  // characters

  explicit CConfigStore(ModuleState& state) : state_(state) {}

  // The list of a page whose window stands, until Detach; without one the store has no rows.
  void Attach(Dialog& page) { dialog_ = &page; }
  void Detach() { dialog_ = nullptr; }
  // Icons and the one column of the list.
  void SetUpList();

  // Creates the profile when the file is missing.
  void WriteFreshProfile();
  // `Tmp` over the settings, as far as the file holds it.
  void ReadLastSettings(ScanSettings& settings) const;
  void ReadSelectedRow(std::uint32_t source);

  // Refills rows and slots from the file for a paper source.
  void BuildConfigList(std::uint32_t source);
  int RowCount() const { return Rows().Count(); }
  // Marks a row and brings it into view; its report comes in the middle.
  void SelectRow(int row);
  // A selected row past the end becomes the last one, without a new selection.
  void HoldSelectedRow();
  // 5002 and 5004 from the selected row.
  void SetButtons();
  // The column over all rows, after a resize.
  void FitColumn();

  // Whether a row has a slot: every row but the fallback row and those that aren't there.
  bool HasSlot(int row) const { return ItemOf(row) != nullptr; }
  // A row's settings over these. False, and nothing happens, where the row has no slot.
  bool TakeRow(int row, ScanSettings& settings) const;
  std::string RowText(int row) const { return Rows().RowText(row); }
  // The last row with exactly this name, and the last in the selected state; -1 when there is none.
  int FindRow(const std::string& name) const;
  int LastSelectedRow() const;
  bool IsCustomRowSelected() const;

  // Stores the settings under a name as a configuration of the person's, which can be changed and deleted.
  Stored SaveAs(const std::string& name, const ScanSettings& settings);
  bool Remove(const std::string& name);
  // Stores a change of the settings in the row that takes it up, rebuilds the rows and selects that row. Where it
  // couldn't be written the file's rows stand and none is selected: its report would load what was stored before.
  void SaveChange(const ScanSettings& settings, std::uint32_t source);

  // Writes the selected row under the source's key, and `Tmp`.
  void WriteLastSettings(const ScanSettings& settings, std::uint32_t source);

  int selectedRow = -1;

 private:
  List& Rows() const { return Dialog::ControlOf<List>(dialog_, id::configList); }
  std::vector<RowFlags> Flags() const;
  RowFlags FlagsOf(int row) const;
  const ScanConfigItem* ItemOf(int row) const;
  void FitColumnTo(int row);
  ColumnRoom RoomForColumn() const;

  ModuleState& state_;
  Dialog* dialog_ = nullptr;
  std::array<ScanConfigItem, slotCount> slots_{};
};

}  // namespace set32
