// Names of the files in the temporary folder: the module settings give them, and anybody may write those.
#pragma once

#include <string>
#include <string_view>

#include "platform/system.h"

namespace set32 {

struct FileNames {
  std::string runtimeOptions;
  std::string profile;
  std::string scannerList;
};

// Whether a name can be that of a file in its folder and of nothing else: none that leads elsewhere, that a system
// takes for a device or cuts at its end, or that ends as the files beside a profile do (its lock, a new one).
bool IsPlainFileName(System& system, std::string_view name);

// The names with the default in the place of each that isn't plain, is another file's default, or is that of one
// before it in the order of the record.
FileNames SettleFileNames(System& system, FileNames names);

}  // namespace set32
