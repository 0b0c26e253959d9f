// Random walks: acts that a person or a host could do, and after each the checks of what must always hold.
//
// The walk goes in legs, each in a fresh folder. A failure is shrunk to as few statements as still show it and
// written as a script that scan-host runs. While a leg goes on its script stands in the file already, so that a crash
// leaves it behind.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "apps/driver/walk_acts.h"

namespace set32 {

struct WalkOptions {
  std::uint32_t seed = 1;
  int steps = 1000;
  std::string scriptPath;  // where a failing script is written
  WalkActs::Face face = WalkActs::Face::sheet;
};

// Result: the exit status, 0 when all held, 1 after a failure.
int WalkAtRandom(const WalkOptions& options, const std::function<void(const std::string&)>& print);

}  // namespace set32
