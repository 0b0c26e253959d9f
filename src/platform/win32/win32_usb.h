// Still-image devices as the system's driver for them numbers them.
#pragma once

#include "platform/usb_devices.h"

namespace set32 {

class Win32UsbDevices : public UsbDevices {
 public:
  std::unique_ptr<UsbDevice> Open(int number) override;
};

}  // namespace set32
