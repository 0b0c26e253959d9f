// Time that passes only when somebody waits, so that a wait of seconds costs nothing. Shared by the simulated system
// and the simulated network. One thread.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace set32 {

class SimulatedClock {
 public:
  std::uint64_t Now() const { return milliseconds_ + RealMilliseconds(); }
  void Advance(std::uint64_t milliseconds) { milliseconds_ += milliseconds; }

  // From now on real time passes as well: beside a real network, whose waits don't advance this clock.
  void RunByItself() { running_ = std::chrono::steady_clock::now(); }

 private:
  std::uint64_t RealMilliseconds() const {
    if (!running_) return 0;
    const auto passed = std::chrono::steady_clock::now() - *running_;
    return static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::milliseconds>(passed).count());
  }

  std::uint64_t milliseconds_ = 0;
  std::optional<std::chrono::steady_clock::time_point> running_;
};

}  // namespace set32
