// A life of the module under a host that calls the two functions with whatever it likes, on either face, and does so
// again, ends windows and acts on the panel inside every message, dialog and box; while a person acts on whatever
// stands, and other programs write the module's files.
#pragma once

#include <cstdint>
#include <string>

namespace set32 {

struct CallFigures {
  long lives = 0;
  long calls = 0;     // of uiFixSetting
  long openings = 0;  // that gave a page
  long messages = 0;  // that the host heard
  long acts = 0;      // of the host, the person and the others, those inside counted
};

// One such life, and behind it a plain one that must be as if nothing had been. The same seed gives the same acts.
// Result: empty when all held, else what didn't. The process must have no module yet, and has none afterwards.
std::string PlayRandomCalls(std::uint32_t seed, CallFigures& figures);

}  // namespace set32
