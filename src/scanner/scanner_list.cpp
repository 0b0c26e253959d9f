#include "scanner/scanner_list.h"

#include <utility>

#include "scanner/address.h"

namespace set32 {

namespace {

constexpr std::uint32_t typeBits = 0xFF;

}  // namespace

bool IsAddedScanner(const ScannerRecord& record) {
  return record.type == scanner_type::network && (record.flags & SCANNER_FLAG_ADDED) != 0;
}

void DistinctRecords::Put(const ScannerRecord& record) {
  const Key key(record.highHalf, record.lowHalf, record.Name());
  const auto found = places_.find(key);
  if (found != places_.end()) {
    records_[found->second] = record;
  } else if (records_.size() < limit_) {
    places_.emplace(key, records_.size());
    records_.push_back(record);
  }
}

void DistinctRecords::Clear() {
  records_.clear();
  places_.clear();
}

const ScannerNode* CScannerList::AddScannerEntry(std::uint32_t type, std::uint32_t highHalf, std::uint32_t lowHalf,
                                                 std::uint32_t port, std::string_view name, std::uint32_t flags) {
  if (FindScannerEntry(type, highHalf, lowHalf, port) != nullptr) return nullptr;
  ScannerRecord record;
  record.type = type & typeBits;
  record.id = (highHalf << 16) + lowHalf;
  record.highHalf = highHalf;
  record.lowHalf = lowHalf;
  record.port = port;
  record.flags = flags;
  const bool network = record.type == scanner_type::network;
  record.SetName(network ? DottedAddress(JoinAddress({highHalf, lowHalf})) : name);
  return Append(record);
}

const ScannerNode* CScannerList::AddScannerRecord(const ScannerRecord& record) {
  const std::uint32_t type = record.type != scanner_type::network ? scanner_type::usb : scanner_type::network;
  if (FindScannerEntry(type, record.highHalf, record.lowHalf, record.port) != nullptr) return nullptr;
  return Append(record);
}

const ScannerNode* CScannerList::FindScannerEntry(std::uint32_t type, std::uint32_t highHalf, std::uint32_t lowHalf,
                                                  std::uint32_t port) const {
  const auto found = first_.find({type & typeBits, highHalf, lowHalf, port});
  return found != first_.end() ? found->second : nullptr;
}

void CScannerList::ClearScannerList() {
  for (const ScannerNode* node = Head(); node != nullptr; node = node->next.get()) {
    if (IsAddedScanner(node->record)) RememberAddedScanner(node->record);
  }
  FreeNodes();
  selectedIndex = 0;
}

const ScannerNode* CScannerList::Append(const ScannerRecord& record) {
  if (count_ == maxScanners) return nullptr;
  auto node = std::make_unique<ScannerNode>(ScannerNode{record, nullptr});
  ScannerNode* const added = node.get();
  (head_ ? tail_->next : head_) = std::move(node);
  tail_ = added;
  ++count_;
  first_.emplace(Key{record.type & typeBits, record.highHalf, record.lowHalf, record.port}, added);
  return added;
}

// One by one: the chain would otherwise free itself by a recursion as deep as the list is long.
void CScannerList::FreeNodes() {
  while (head_) head_ = std::move(head_->next);
  tail_ = nullptr;
  count_ = 0;
  first_.clear();
}

}  // namespace set32
