// The scanners that are known now, and beside them those that were typed in, which outlive a clearing of the list.
//
// Host's thread only. Both hold at most maxScanners records, since the count is a 16-bit number; what comes past that
// is dropped. Every operation but clearing costs the logarithm of the size.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "scanner/scanner_record.h"

namespace set32 {

inline constexpr std::size_t maxScanners = 0xFFFF;

struct ScannerNode {
  ScannerRecord record;
  std::unique_ptr<ScannerNode> next;
};

// Records in the order in which they came, one for each pair of halves and name: a later one takes the place of an
// earlier one.
class DistinctRecords {
 public:
  explicit DistinctRecords(std::size_t limit) : limit_(limit) {}

  void Put(const ScannerRecord& record);
  void Clear();
  const std::vector<ScannerRecord>& All() const { return records_; }
  // The flags aren't part of what tells records apart.
  std::uint32_t& FlagsAt(std::size_t index) { return records_[index].flags; }

 private:
  using Key = std::tuple<std::uint32_t, std::uint32_t, std::string>;

  std::size_t limit_;
  std::vector<ScannerRecord> records_;
  std::map<Key, std::size_t> places_;
};

class CScannerList {
 public:
  CScannerList() = default;
  ~CScannerList() { FreeNodes(); }
  CScannerList(const CScannerList&) = delete;
  CScannerList& operator=(const CScannerList&) = delete;

  // A new node at the end; null when type, halves and port are there already. Only the low 8 bits of the type count.
  // A network scanner is named by its address, whatever `name` says.
  const ScannerNode* AddScannerEntry(std::uint32_t type, std::uint32_t highHalf, std::uint32_t lowHalf,
                                     std::uint32_t port, std::string_view name, std::uint32_t flags);
  // The same with all fields as they stand. For the comparison every type but 0 counts as 1.
  const ScannerNode* AddScannerRecord(const ScannerRecord& record);
  // The first node with all four equal, of the type its low 8 bits; null when there is none.
  const ScannerNode* FindScannerEntry(std::uint32_t type, std::uint32_t highHalf, std::uint32_t lowHalf,
                                      std::uint32_t port) const;
  // Into the added list.
  void RememberAddedScanner(const ScannerRecord& record) { added_.Put(record); }
  // Remembers what was typed in, and frees all nodes.
  void ClearScannerList();

  const ScannerNode* Head() const { return head_.get(); }
  std::uint16_t Count() const { return count_; }
  DistinctRecords& Added() { return added_; }
  const DistinctRecords& Added() const { return added_; }

  // Index in the combo that shows the list; goes into the list file.
  std::uint16_t selectedIndex = 0;

 private:
  using Key = std::array<std::uint32_t, 4>;  // low 8 bits of the type, halves, port

  const ScannerNode* Append(const ScannerRecord& record);
  void FreeNodes();

  std::unique_ptr<ScannerNode> head_;
  ScannerNode* tail_ = nullptr;
  std::uint16_t count_ = 0;
  std::map<Key, const ScannerNode*> first_;  // the first node with this key
  DistinctRecords added_{maxScanners};
};

// Whether a record is of a network scanner that was typed in.
bool IsAddedScanner(const ScannerRecord& record);

}  // namespace set32
