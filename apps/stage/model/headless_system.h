// The system of scripts and tests: language as told, simulated time, UTF-8, beeps heard by whoever asks.
#pragma once

#include <functional>
#include <utility>

#include "apps/stage/model/simulated_clock.h"
#include "platform/system.h"

namespace set32 {

class HeadlessSystem : public System {
 public:
  HeadlessSystem(SimulatedClock& clock, std::uint16_t language) : clock_(clock), language_(language) {}

  void OnBeep(std::function<void()> heard) { heard_ = std::move(heard); }

  std::uint16_t DefaultLanguage() override { return language_; }
  std::uint64_t Milliseconds() override { return clock_.Now(); }
  int SecondsOfHour() override { return static_cast<int>(clock_.Now() / 1000 % 3600); }
  void Beep() override {
    if (heard_) heard_();
  }
  std::string FromUtf8(std::string_view text) override { return std::string(text); }
  std::string ToUtf8(std::string_view text) override;
  std::size_t CharacterLength(std::string_view text) override;

 private:
  SimulatedClock& clock_;
  const std::uint16_t language_;
  std::function<void()> heard_;
};

}  // namespace set32
