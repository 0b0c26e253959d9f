#include "host/start_up.h"

#include "profile/options.h"

namespace set32 {

namespace {

// Drive and folder of a path, with the closing separator.
std::string FolderOf(const std::string& path) {
  const std::size_t end = path.find_last_of("/\\");
  return end == std::string::npos ? std::string() : path.substr(0, end + 1);
}

}  // namespace

void StartUp(ModuleState& state) {
  state.moduleDir = FolderOf(state.platform.paths.ModuleFile());
  const ModuleSettings settings(state.platform.profiles, state.platform.system, state.ModuleSettingsPath());
  const FileNames names = settings.Names();
  state.driverType = settings.DriverType();
  // Without a folder of the user's there are no files: a bare name would lie wherever the process happens to stand.
  const std::string folder = state.platform.paths.TemporaryFolder();
  if (folder.empty()) return;
  state.profilePath = folder + names.profile;
  state.scannerListPath = folder + names.scannerList;
  state.runtimeIniPath = folder + names.runtimeOptions;
}

}  // namespace set32
