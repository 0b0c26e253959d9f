// The outside world of a host that is a script or a test: real or modelled windows, files in a folder of its own, and
// a network, USB devices, a registry and a clock that it declares.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/headless/folder_registry.h"
#include "platform/headless/headless_boxes.h"
#include "platform/headless/headless_system.h"
#include "platform/headless/simulated_clock.h"
#include "platform/headless/simulated_network.h"
#include "platform/headless/simulated_usb.h"
#include "platform/input.h"
#include "platform/platform.h"

namespace set32 {

struct AssemblyOptions {
  std::string folder;  // holds module/, temp/ and registry/, which exist
  std::uint16_t language = 0x0404;
  bool realNetwork = false;  // sockets and USB devices of the system
  bool quickFiles = false;   // bytes needn't be on the medium when a write returns
};

class Assembly {
 public:
  virtual ~Assembly() = default;

  virtual Platform& ThePlatform() = 0;
  virtual Input& TheInput() = 0;
  virtual SimulatedClock& Clock() = 0;
  virtual HeadlessSystem& TheSystem() = 0;
  virtual HeadlessBoxes& TheBoxes() = 0;
  virtual SimulatedNetwork& Network() = 0;
  virtual SimulatedUsb& Usb() = 0;
  virtual FolderRegistry& TheRegistry() = 0;
};

// The one that this build has. Never null.
std::unique_ptr<Assembly> Assemble(const AssemblyOptions& options);

}  // namespace set32
