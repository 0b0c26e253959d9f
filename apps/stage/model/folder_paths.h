// The paths of scripts and tests: everything lies under one folder, the module in `module`, scratch files in `temp`.
// Both must stand before they are used.
#pragma once

#include <string>
#include <utility>

#include "platform/paths.h"

namespace set32 {

class FolderPaths : public Paths {
 public:
  explicit FolderPaths(std::string folder) : folder_(std::move(folder)) {}

  std::string ModuleFile() override { return folder_ + "/module/set32.dll"; }
  std::string TemporaryFolder() override { return folder_ + "/temp/"; }

 private:
  std::string folder_;
};

}  // namespace set32
