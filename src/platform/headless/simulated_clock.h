// Time that passes only when somebody waits. Shared by the simulated system and the simulated network, so that a wait
// of seconds costs nothing. One thread.
#pragma once

#include <cstdint>

namespace set32 {

class SimulatedClock {
 public:
  std::uint64_t Now() const { return milliseconds_; }
  void Advance(std::uint64_t milliseconds) { milliseconds_ += milliseconds; }

 private:
  std::uint64_t milliseconds_ = 0;
};

}  // namespace set32
