// Where the module and its user's scratch files lie on a POSIX system. Any thread.
//
// The folder for temporary files is shared there, so the module has one of its user's own inside it, which nobody
// else can enter. One that stands already is used only where it is a folder, not a link to one, and belongs to the
// user.
#pragma once

#include <string>

#include "platform/paths.h"

namespace set32 {

class PosixPaths : public Paths {
 public:
  // The shared folder; empty means TMPDIR, or /tmp where that isn't set.
  explicit PosixPaths(std::string sharedFolder = {}) : sharedFolder_(std::move(sharedFolder)) {}

  std::string ModuleFile() override;
  std::string TemporaryFolder() override;

 private:
  std::string sharedFolder_;
};

}  // namespace set32
