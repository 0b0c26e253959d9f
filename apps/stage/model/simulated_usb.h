// The USB devices that a script or a test declares. One thread; an open device answers as it was declared when it was
// opened.
#pragma once

#include <map>
#include <optional>

#include "platform/usb_devices.h"

namespace set32 {

class SimulatedUsb : public UsbDevices {
 public:
  void Place(int number, UsbIdentity identity) { devices_[number] = identity; }
  // It opens and doesn't answer.
  void PlaceSilent(int number) { devices_[number] = std::nullopt; }
  void Remove(int number) { devices_.erase(number); }

  std::unique_ptr<UsbDevice> Open(int number) override {
    const auto found = devices_.find(number);
    if (found == devices_.end()) return nullptr;
    return std::make_unique<Device>(found->second);
  }

 private:
  class Device : public UsbDevice {
   public:
    explicit Device(std::optional<UsbIdentity> identity) : identity_(identity) {}
    std::optional<UsbIdentity> Identity() override { return identity_; }

   private:
    std::optional<UsbIdentity> identity_;
  };

  std::map<int, std::optional<UsbIdentity>> devices_;
};

}  // namespace set32
