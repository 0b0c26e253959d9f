// Windows in memory over the system's files and threads.
#ifndef _WIN32
#include "apps/driver/assembly.h"
#include "platform/headless/folder_paths.h"
#include "platform/headless/headless_desk.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_sockets.h"
#include "platform/posix/posix_threads.h"
#include "platform/posix/posix_usb.h"
#include "platform/profile_engine.h"

namespace set32 {

namespace {

class PosixAssembly : public Assembly {
 public:
  explicit PosixAssembly(const AssemblyOptions& options)
      : system_(clock_, options.language),
        paths_(options.folder),
        registry_(options.folder + "/registry"),
        platform_{desk_.windows,
                  desk_.boxes,
                  files_,
                  paths_,
                  profiles_,
                  system_,
                  options.realNetwork ? static_cast<Sockets&>(realSockets_) : network_,
                  options.realNetwork ? static_cast<UsbDevices&>(realUsb_) : usb_,
                  registry_,
                  desk_.clipboard,
                  threads_} {}

  Platform& ThePlatform() override { return platform_; }
  Input& TheInput() override { return desk_.input; }
  SimulatedClock& Clock() override { return clock_; }
  HeadlessSystem& TheSystem() override { return system_; }
  HeadlessBoxes& TheBoxes() override { return desk_.boxes; }
  SimulatedNetwork& Network() override { return network_; }
  SimulatedUsb& Usb() override { return usb_; }
  FolderRegistry& TheRegistry() override { return registry_; }

 private:
  HeadlessDesk desk_;
  SimulatedClock clock_;
  HeadlessSystem system_;
  PosixFiles files_;
  ProfileEngine profiles_{files_};
  FolderPaths paths_;
  SimulatedNetwork network_{clock_};
  SimulatedUsb usb_;
  PosixSockets realSockets_;
  PosixUsb realUsb_;
  FolderRegistry registry_;
  PosixThreads threads_;
  Platform platform_;
};

}  // namespace

std::unique_ptr<Assembly> Assemble(const AssemblyOptions& options) {
  return std::make_unique<PosixAssembly>(options);
}

}  // namespace set32
#endif
