// The outside world of a host that is a script or a test: real or modelled windows, files in a folder of its own, and
// a network, USB devices, a registry and a clock that it declares.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "apps/stage/input.h"
#include "apps/stage/model/folder_paths.h"
#include "apps/stage/model/folder_registry.h"
#include "apps/stage/model/headless_boxes.h"
#include "apps/stage/model/headless_system.h"
#include "apps/stage/model/simulated_clock.h"
#include "apps/stage/model/simulated_network.h"
#include "apps/stage/model/simulated_usb.h"
#include "apps/stage/window_watch.h"
#include "platform/platform.h"

namespace set32 {

struct AssemblyOptions {
  std::string folder;  // holds module/, temp/ and registry/, which exist
  std::uint16_t language = 0x0404;
  bool realNetwork = false;  // sockets and USB devices of the system
  bool quickFiles = false;   // bytes needn't be on the medium when a write returns
  Files* files = nullptr;    // in the place of the system's; they outlive the assembly
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
