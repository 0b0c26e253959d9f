// Where the module lies and where its user's scratch files go.
#pragma once

#include <string>

namespace set32 {

class Paths {
 public:
  virtual ~Paths() = default;
  // Full path of the module's file; the folder is what stands before the last separator. Empty when unknown.
  virtual std::string ModuleFile() = 0;
  // The user's folder for temporary files, with its closing separator. On systems where that folder is shared, one
  // of the user's own inside it that nobody else can enter. Empty when there is none.
  virtual std::string TemporaryFolder() = 0;
};

}  // namespace set32
