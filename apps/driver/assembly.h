// The outside world of a host that is a script or a test: real or modelled windows, files in a folder of its own, and
// a network, USB devices, a registry and a clock that it declares.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/platform.h"
#include "stage/input.h"
#include "stage/model/folder_paths.h"
#include "stage/model/folder_registry.h"
#include "stage/model/headless_boxes.h"
#include "stage/model/headless_system.h"
#include "stage/model/simulated_clock.h"
#include "stage/model/simulated_network.h"
#include "stage/model/simulated_usb.h"
#include "stage/window_watch.h"

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
  Assembly(const Assembly&) = delete;
  Assembly& operator=(const Assembly&) = delete;

  virtual Platform& ThePlatform() = 0;
  virtual WindowWatch& Watch() = 0;
  virtual Input& TheInput() = 0;
  virtual HeadlessBoxes& TheBoxes() = 0;

  SimulatedClock& Clock() { return clock_; }
  HeadlessSystem& TheSystem() { return system_; }
  SimulatedNetwork& Network() { return network_; }
  SimulatedUsb& Usb() { return usb_; }
  FolderRegistry& TheRegistry() { return registry_; }

 protected:
  explicit Assembly(const AssemblyOptions& options)
      : system_(clock_, options.language), paths_(options.folder), registry_(options.folder + "/registry") {
    if (options.realNetwork) clock_.RunByItself();
  }

  SimulatedClock clock_;
  HeadlessSystem system_;
  SimulatedNetwork network_{clock_};
  SimulatedUsb usb_;
  FolderPaths paths_;
  FolderRegistry registry_;
};

// The one that this build has. Never null.
std::unique_ptr<Assembly> Assemble(const AssemblyOptions& options);

}  // namespace set32
