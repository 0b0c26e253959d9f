// What the module knows from its start to its end, apart from its pages.
//
// One object, made by module start-up before the host's first call and handed down; there is no other global state.
// Host's thread only.
#pragma once

#include <cstdint>
#include <string>

#include "boundary/option_keys.h"
#include "platform/platform.h"
#include "set32/window_handle.h"

namespace set32 {

// ModuleState::driverType
namespace driver_type {
inline constexpr std::uint8_t usb = 1;      // USB scanners are looked for
inline constexpr std::uint8_t network = 2;  // network scanners are looked for, Device/Default is in use
}  // namespace driver_type

// What calls of uiFixSetting and the start of a page set. Moving it needs no memory.
struct PanelState {
  std::string productName;         // caption of all message boxes, at most 255 bytes
  bool highBitRestricted = false;  // the running application may not receive high-bit output

  // While false a change of size doesn't notify the host; true at rest.
  bool notifySize = true;

  // Arguments of uiFixSetting.
  bool jpegModesOn = false;       // inline face alone
  std::uint32_t bwThreshold = 0;  // taken on every call
  std::uint32_t outputBits = 0;   // inline face alone
  WindowHandle hostParent = 0;    // inline face: owner of dialog 103

  // The inline page's window, which owns the boxes of errors; 0 while there is none.
  WindowHandle boxOwner = 0;
};

struct ModuleState : PanelState {
  explicit ModuleState(Platform& outside) : platform(outside) {}

  Platform& platform;

  // Set by module start-up.
  std::string moduleDir;        // with its closing separator
  std::string runtimeIniPath;   // the run-time options
  std::string profilePath;      // the scan configurations
  std::string scannerListPath;  // the scanner list
  std::uint8_t driverType = driver_type::usb | driver_type::network;

  // Of a file beside the module; empty where the module's folder isn't known, since a bare name would lead to a file
  // of wherever the process stands.
  std::string PathBesideModule(const char* name) const {
    return moduleDir.empty() ? std::string() : moduleDir + name;
  }
  std::string ModuleSettingsPath() const { return PathBesideModule(module_file::settings); }
  std::string HardwareOptionsPath() const { return PathBesideModule(module_file::hardwareOptions); }
};

}  // namespace set32
