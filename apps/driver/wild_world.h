// What other programs and devices do beside the panel: they write the module's files, answer on the network, come and
// go at the USB ports, and fill the clipboard.
#pragma once

#include <cstdint>
#include <vector>

#include "apps/driver/assembly.h"
#include "apps/driver/choices.h"
#include "apps/driver/module_files.h"

namespace set32 {

class WildWorld {
 public:
  WildWorld(Assembly& outside, Choices& choices)
      : outside_(outside), files_(outside.ThePlatform()), choices_(choices) {}

  // The next opening is on either face.
  void ChooseFace();
  void WriteFiles();
  void ChangeTheRest();

  const ModuleFiles& TheFiles() const { return files_; }
  // Whether somebody but the panel has written the profile.
  bool IsProfileForeign() const { return isProfileForeign_; }

 private:
  std::vector<std::uint8_t> WildProfile();

  Assembly& outside_;
  ModuleFiles files_;
  Choices& choices_;
  bool isProfileForeign_ = false;
};

}  // namespace set32
