// The settings that come from outside: what each key means to the panel, read anew at each call.
//
// Objects are short-lived; a missing file, section or key reads as its default (boundary/option_keys.h). Text is cut
// at the start of a character. The calls and the system must outlive the object. Any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "boundary/adjustment_defaults.h"
#include "boundary/option_file.h"
#include "profile/file_names.h"
#include "profile/profile_file.h"

namespace set32 {

// The module settings, beside the module.
class ModuleSettings {
 public:
  ModuleSettings(ProfileCalls& calls, System& system, std::string path)
      : system_(system), file_(calls, system, std::move(path)) {}

  // Each fit to be joined with a folder.
  FileNames Names() const;
  // Bits driver_type::; the key's low byte.
  std::uint8_t DriverType() const { return static_cast<std::uint8_t>(file_.Read(module_key::driverType)); }

 private:
  System& system_;
  OptionFile file_;
};

// The run-time options, in the temporary folder.
class RuntimeOptions {
 public:
  RuntimeOptions(ProfileCalls& calls, System& system, std::string path) : file_(calls, system, std::move(path)) {}

  bool IsInlineFace() const { return file_.Read(option_key::uiFace) == 0; }
  // A maker's edition with a name and an icon of its own.
  bool IsOem() const { return file_.Read(option_key::oem) != 0; }
  // `ownName` unless this is a maker's edition.
  std::string ProductName(const std::string& ownName) const;
  // Whether the running application may not receive high-bit output.
  bool HighBitRestricted() const;
  // Whether the low-level driver takes part: gray mode then allows high-bit output on the inline face.
  bool HasLowLevelDriver() const { return file_.Read(option_key::lowLevelDriver) != 0; }
  bool PaperSourceControlsShown() const;
  // The inline face's paper source at its start; any number can stand there.
  std::uint32_t PaperSource() const { return static_cast<std::uint32_t>(file_.Read(option_key::paperSource)); }
  // Whether the host hears of sizes during the first refresh of a page.
  bool HasCrop() const { return file_.Read(option_key::hasCrop) != 0; }
  // Whether auto crop stays available with the feeder.
  bool FeederAutoCrop() const { return file_.Read(option_key::feederAutoCrop) != 0; }

 private:
  OptionFile file_;
};

// Whether the list, separated by commas, holds the application, byte for byte. Empty entries are none, and blanks
// belong to an entry.
bool ListsApplication(std::string_view list, std::string_view application);

// From the profile of scan configurations. A mode that isn't known has neutral values.
AdjustmentDefaults ReadAdjustmentDefaults(const CProfileFile& profile, std::uint32_t mode);

}  // namespace set32
