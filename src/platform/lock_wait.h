// How somebody waits for a lock: for a while in which nothing moves, and anew whenever another one has had a turn.
// Whoever has let more turns pass tries more often, so those that have waited come before those that come anew.
#pragma once

#include <algorithm>
#include <cstdint>
#include <utility>

namespace set32 {

// `Sign` is whatever differs once another one has done its work. Times are milliseconds of any one clock.
template <typename Sign>
class LockWait {
 public:
  LockWait(std::int64_t now, int patience, Sign sign)
      : patience_(std::max(patience, 0)),
        deadline_(now + patience_),
        last_(now + mostWaits * patience_),
        sign_(std::move(sign)) {}

  bool GoesOn(std::int64_t now, Sign sign) {
    if (sign != sign_) {
      sign_ = std::move(sign);
      ++turns_;
      deadline_ = now + patience_;
    }
    return now < deadline_ && now < last_;
  }

  // Milliseconds until the next try.
  int Pause() const { return longestPause >> std::min(turns_, mostHalvings); }

 private:
  static constexpr int longestPause = 16;
  static constexpr int mostHalvings = 4;
  static constexpr int mostWaits = 10;  // nobody goes beyond so many times the patience

  std::int64_t patience_;
  std::int64_t deadline_;
  std::int64_t last_;
  int turns_ = 0;
  Sign sign_;
};

}  // namespace set32
