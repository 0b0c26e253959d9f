// A whole world in memory around the module, over files that a test chooses: no disk, no network, no waiting. And a
// host of the barest kind, that can go away in the middle of a message and take its record with it.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "apps/stage/model/folder_registry.h"
#include "apps/stage/model/headless_system.h"
#include "apps/stage/model/model_windows.h"
#include "apps/stage/model/simulated_network.h"
#include "apps/stage/model/simulated_usb.h"
#include "host/module.h"
#include "platform/profile_engine.h"
#include "profile/config_items.h"

namespace set32 {

struct MemoryWorld {
  static constexpr const char* profilePath = "temp/QUIRNPrf.ini";
  static constexpr const char* optionsPath = "temp/QUIRNHTp.INI";
  static constexpr const char* modulePath = "module/QUIRNMFP.ini";

  explicit MemoryWorld(Files& chosen) : files(chosen) {}

  struct FixedPaths : Paths {
    std::string ModuleFile() override { return "module/set32.dll"; }
    std::string TemporaryFolder() override { return "temp/"; }
  };
  struct NoThreads : Threads {
    bool Start(ThreadPriority, std::function<void()>) override { return false; }
    std::unique_ptr<NamedMutex> MakeMutex(std::string_view, bool) override { return nullptr; }
  };

  Files& files;
  ModelWindows screen;
  SimulatedClock clock;
  HeadlessSystem system{clock, 0x0409};
  ProfileEngine profiles{files};
  FixedPaths paths;
  SimulatedNetwork network{clock};
  SimulatedUsb usb;
  FolderRegistry registry{"/no/such/folder"};
  NoThreads threads;
  Platform platform{screen.windows, screen.boxes,     files,  paths, profiles, system, network, usb,
                    registry,       screen.clipboard, threads};
};

class MemoryHost : public HostWindowHandler {
 public:
  explicit MemoryHost(MemoryWorld& world)
      : world_(world),
        window_(world.screen.input.MakeHostWindow({600, 500}, *this)),
        record(std::make_unique<ScanSettings>(MakeSettings(world.system, {}))) {}
  ~MemoryHost() override { End(); }
  MemoryHost(const MemoryHost&) = delete;
  MemoryHost& operator=(const MemoryHost&) = delete;

  // The page of the face that the options name, null when none stands.
  Dialog* Open(Module& module, CDib* preview = nullptr) {
    if (window_ == 0) return nullptr;
    const WindowHandle page = module.FixSetting({window_, window_, limits ? &*limits : nullptr, record.get(), preview,
                                                 jpegModes, 128, outputBits, &place, caps ? &*caps : nullptr});
    return world_.screen.windows.DialogOf(page);
  }
  // The window goes, with the page in it, and then the record.
  void End() {
    if (window_ == 0) return;
    world_.screen.input.DestroyHostWindow(std::exchange(window_, 0));
    record.reset();
  }

  std::function<void(std::uint32_t message)> heard;
  MessageResult OnHostMessage(std::uint32_t message, WParam, LParam) override {
    if (heard) heard(message);
    return 1;
  }
  void OnRepaintAsked() override {}

 private:
  MemoryWorld& world_;
  WindowHandle window_;

 public:
  std::unique_ptr<ScanSettings> record;
  std::optional<DeviceLimits> limits = DeviceLimits{7, 0x7FFE, 4800, 75};
  std::optional<DeviceCaps> caps;
  PanelRect place{0, 0, 300, 430};
  bool jpegModes = false;
  std::uint32_t outputBits = 36;
};

}  // namespace set32
