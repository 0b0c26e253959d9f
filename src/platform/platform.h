// Everything that the panel asks of the outside world, gathered in one object.
//
// Whoever starts the module puts it together, interface by interface, and keeps the parts alive until the module's
// state is dropped.
#pragma once

#include "platform/boxes.h"
#include "platform/clipboard.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/profile_calls.h"
#include "platform/registry.h"
#include "platform/sockets.h"
#include "platform/system.h"
#include "platform/threads.h"
#include "platform/usb_devices.h"
#include "platform/windows.h"

namespace set32 {

struct Platform {
  Windows& windows;
  Boxes& boxes;
  Files& files;
  Paths& paths;
  ProfileCalls& profiles;
  System& system;
  Sockets& sockets;
  UsbDevices& usb;
  Registry& registry;
  Clipboard& clipboard;
  Threads& threads;
};

}  // namespace set32
