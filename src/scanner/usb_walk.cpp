#include "scanner/usb_walk.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <string_view>

namespace set32 {

namespace {

constexpr int allowedIds = 10;
constexpr std::size_t idLength = 17;
constexpr std::size_t idValueBytes = 100;
constexpr char builtInId[] = "VID_0C5A&PID_0E72";
static_assert(sizeof builtInId == idLength + 1);

using UsbId = std::array<char, idLength + 1>;

UsbId FormatId(UsbIdentity identity) {
  UsbId text{};
  std::snprintf(text.data(), text.size(), "VID_%04X&PID_%04X", static_cast<unsigned>(identity.vendor),
                static_cast<unsigned>(identity.product));
  return text;
}

char Upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool SameText(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return Upper(x) == Upper(y); });
}

}  // namespace

bool QueryUsbDeviceId(UsbDevice& device, ProfileCalls& profiles, const std::string& moduleIniPath,
                      UsbIdentity& identity) {
  const std::optional<UsbIdentity> answer = device.Identity();
  if (!answer) return false;
  identity = *answer;
  const UsbId id = FormatId(identity);
  for (int i = 0; i < allowedIds; ++i) {
    const std::string key = "DeviceID" + std::to_string(i);
    std::array<char, idValueBytes> value{};
    const std::size_t length = profiles.GetString("DeviceID", key.c_str(), builtInId, value, moduleIniPath.c_str());
    if (SameText({value.data(), std::min(length, value.size())}, id.data())) return true;
  }
  return false;
}

bool EnumerateUsbScanners(UsbDevices& devices, ProfileCalls& profiles, const std::string& moduleIniPath,
                          CScannerList& list, std::int32_t& firstUsbNumber) {
  firstUsbNumber = 0;
  for (int number = 0; number <= lastUsbNumber; ++number) {
    const std::unique_ptr<UsbDevice> device = devices.Open(number);
    UsbIdentity identity;
    if (!device || !QueryUsbDeviceId(*device, profiles, moduleIniPath, identity)) continue;
    firstUsbNumber = number;
    list.AddScannerEntry(scanner_type::usb, identity.vendor, identity.product, static_cast<std::uint32_t>(number),
                         usbScannerName, 0);
    return true;
  }
  return false;
}

}  // namespace set32
