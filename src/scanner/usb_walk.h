// The walk over the USB still-image devices.
#pragma once

#include <cstdint>
#include <string>

#include "platform/profile_calls.h"
#include "platform/usb_devices.h"
#include "scanner/scanner_list.h"

namespace set32 {

// Whether an open device is a scanner of ours: its identity is one of the ten that the module's settings allow.
// Stores the identity whenever the device answers.
bool QueryUsbDeviceId(UsbDevice& device, ProfileCalls& profiles, const std::string& moduleIniPath,
                      UsbIdentity& identity);

// Enters the first scanner of ours into the list and its number into `firstUsbNumber` (0 when there is none). Result:
// whether there was one.
bool EnumerateUsbScanners(UsbDevices& devices, ProfileCalls& profiles, const std::string& moduleIniPath,
                          CScannerList& list, std::int32_t& firstUsbNumber);

}  // namespace set32
