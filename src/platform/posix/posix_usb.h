// The USB devices of the system, read from its device tree and never opened for writing.
//
// Numbers are places: all devices with a vendor and a product id, root hubs left out, stand in the order of bus and
// ports (1-2 before 1-10, a hub before what hangs on it) and count from 0. So the numbers stay while nothing is
// plugged in or pulled out, whatever order the tree is listed in. Devices past number 254 have none.
#pragma once

#include <string>

#include "platform/usb_devices.h"

namespace set32 {

class PosixUsb : public UsbDevices {
 public:
  // `tree` is a folder of one folder a device, each with files idVendor and idProduct.
  explicit PosixUsb(std::string tree = "/sys/bus/usb/devices") : tree_(std::move(tree)) {}
  std::unique_ptr<UsbDevice> Open(int number) override;

 private:
  std::string tree_;
};

}  // namespace set32
