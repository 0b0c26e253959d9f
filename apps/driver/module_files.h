// The module's files as a host sees them: by role, read and written beside the panel.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"
#include "profile/file_names.h"

namespace set32 {

enum class ModuleFile { module, hardware, options, profile, list };

std::optional<ModuleFile> FindModuleFile(std::string_view role);
std::vector<std::string> ModuleFileNames();

class ModuleFiles {
 public:
  explicit ModuleFiles(Platform& platform) : platform_(platform) {}

  // The module settings can rename the files in the temporary folder; the module reads the names when it is loaded.
  void OnModuleLoaded();
  void OnModuleUnloaded() { loaded_.reset(); }

  std::string PathOf(ModuleFile file) const;
  void WriteKey(ModuleFile file, const std::string& section, const std::string& key, const std::string& value) const;
  void WriteBytes(ModuleFile file, std::span<const std::uint8_t> bytes) const;

  // The lines of a text file without their ends; of the list, its header and each record in hexadecimal. Nothing when
  // the file is missing.
  std::vector<std::string> Lines(ModuleFile file) const;

 private:
  FileNames ReadNames() const;
  std::string ModuleFolder() const;

  Platform& platform_;
  std::optional<FileNames> loaded_;
};

}  // namespace set32
