// The arguments of scan-host.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/driver/random_walk.h"

namespace set32::scan_host {

extern const char usage[];

struct CommandLine {
  std::string folder;
  std::uint16_t language = 0x0404;
  bool realNetwork = false;
  bool echo = false;
  bool help = false;
  std::optional<WalkOptions> walk;
  std::string script;
  bool recordsWalk = false;
};

// Throws NotPossible, with a hint where there is one, when the arguments make no sense.
CommandLine ParseCommandLine(const std::vector<std::string_view>& arguments);

}  // namespace set32::scan_host
