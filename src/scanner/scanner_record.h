// One scanner, as the list file holds it and as it stands in memory.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace set32 {

namespace scanner_type {
inline constexpr std::uint32_t network = 0;
inline constexpr std::uint32_t usb = 1;
}  // namespace scanner_type

inline constexpr std::uint16_t networkScannerPort = 53550;
inline constexpr std::string_view usbScannerName = "USB";

inline constexpr std::uint32_t SCANNER_FLAG_ADDED = 2;     // typed in by its address
inline constexpr std::uint32_t SCANNER_FLAG_ANSWERED = 4;  // such a scanner answered when last asked

inline constexpr std::size_t scannerNameBytes = 68;

// In the file all integers are little-endian. A network scanner's four bytes of `id` are its address in the order of
// the fields, and its name is the dotted address.
struct ScannerRecord {
  std::uint32_t type = scanner_type::network;
  std::uint32_t id = 0;        // highHalf * 65536 + lowHalf
  std::uint32_t highHalf = 0;  // network: AddressHalves::high; USB: vendor id
  std::uint32_t lowHalf = 0;   // network: AddressHalves::low; USB: product id
  std::uint32_t port = 0;      // network: networkScannerPort; USB: the device's number
  std::uint32_t flags = 0;
  std::array<char, scannerNameBytes> name{};  // terminated, zeros behind

  std::string_view Name() const;
  // Cut to 67 bytes and at a NUL.
  void SetName(std::string_view text);
  bool operator==(const ScannerRecord&) const = default;
};

static_assert(offsetof(ScannerRecord, type) == 0);
static_assert(offsetof(ScannerRecord, id) == 4);
static_assert(offsetof(ScannerRecord, highHalf) == 8);
static_assert(offsetof(ScannerRecord, lowHalf) == 12);
static_assert(offsetof(ScannerRecord, port) == 16);
static_assert(offsetof(ScannerRecord, flags) == 20);
static_assert(offsetof(ScannerRecord, name) == 24);
static_assert(sizeof(ScannerRecord) == 92);

using ScannerRecordBytes = std::array<std::uint8_t, sizeof(ScannerRecord)>;

ScannerRecordBytes EncodeRecord(const ScannerRecord& record);
// Any bytes: a name without a terminator is cut, and what stands behind a terminator becomes zeros.
ScannerRecord DecodeRecord(std::span<const std::uint8_t, sizeof(ScannerRecord)> bytes);

}  // namespace set32
