// A random walk as a script: what could be done, with a look at everything on the way, so that the same walk can be
// played on other windows and what is seen there compared.
#pragma once

#include <functional>
#include <string>

#include "apps/driver/random_walk.h"

namespace set32 {

// Writes the script, which plays to its end. Result: the exit status, 0, or 1 when something didn't hold.
int RecordWalk(const WalkOptions& options, const std::function<void(const std::string&)>& print);

}  // namespace set32
