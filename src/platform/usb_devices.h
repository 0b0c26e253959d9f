// Numbered USB still-image devices.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

namespace set32 {

struct UsbIdentity {
  std::uint16_t vendor = 0;
  std::uint16_t product = 0;
};

// An open device; releasing it closes it.
class UsbDevice {
 public:
  virtual ~UsbDevice() = default;
  // Nothing when the device doesn't answer.
  virtual std::optional<UsbIdentity> Identity() = 0;
};

inline constexpr int lastUsbNumber = 254;

class UsbDevices {
 public:
  virtual ~UsbDevices() = default;
  // Numbers 0 to lastUsbNumber, in an order that stays while the devices stay. Null when no device has the number.
  virtual std::unique_ptr<UsbDevice> Open(int number) = 0;
};

}  // namespace set32
