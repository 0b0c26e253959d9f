#include "scanner/scanner_record.h"

#include <algorithm>

namespace set32 {

namespace {

constexpr std::size_t nameOffset = offsetof(ScannerRecord, name);

// The words in file order, each with its field.
constexpr std::uint32_t ScannerRecord::*words[] = {&ScannerRecord::type,     &ScannerRecord::id,
                                                   &ScannerRecord::highHalf, &ScannerRecord::lowHalf,
                                                   &ScannerRecord::port,     &ScannerRecord::flags};

}  // namespace

std::string_view ScannerRecord::Name() const {
  return {name.begin(), std::find(name.begin(), name.end(), '\0')};
}

void ScannerRecord::SetName(std::string_view text) {
  text = text.substr(0, std::min({text.size(), text.find('\0'), name.size() - 1}));
  name.fill('\0');
  std::copy(text.begin(), text.end(), name.begin());
}

ScannerRecordBytes EncodeRecord(const ScannerRecord& record) {
  ScannerRecordBytes bytes{};
  auto out = bytes.begin();
  for (const auto word : words) {
    for (int shift = 0; shift < 32; shift += 8) *out++ = static_cast<std::uint8_t>(record.*word >> shift);
  }
  std::copy(record.name.begin(), record.name.end(), out);
  return bytes;
}

ScannerRecord DecodeRecord(std::span<const std::uint8_t, sizeof(ScannerRecord)> bytes) {
  ScannerRecord record;
  auto in = bytes.begin();
  for (const auto word : words) {
    for (int shift = 0; shift < 32; shift += 8) record.*word |= static_cast<std::uint32_t>(*in++) << shift;
  }
  std::array<char, scannerNameBytes> name{};
  std::copy(bytes.begin() + nameOffset, bytes.end(), name.begin());
  record.SetName({name.data(), name.size()});
  return record;
}

}  // namespace set32
