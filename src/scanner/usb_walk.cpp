#include "scanner/usb_walk.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <string_view>

#include "boundary/option_keys.h"

namespace set32 {

namespace {

constexpr std::size_t idLength = 17;
constexpr std::size_t idValueBytes = 100;

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
  for (const TextKey& key : module_key::deviceIds) {
    std::array<char, idValueBytes> value{};
    const std::size_t length = profiles.GetString(key.section, key.name, key.fallback, value, moduleIniPath.c_str());
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
