#include "attack/verdict.h"

#include <signal.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <exception>
#include <optional>
#include <random>
#include <string_view>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>
#endif

namespace set32 {

namespace {

constexpr int heldStatus = 0;
constexpr int fellStatus = 1;
constexpr int usageStatus = 2;
constexpr int notTriedStatus = 77;
constexpr std::uint32_t longest = 7 * 24 * 3600;  // seconds

std::optional<std::uint32_t> ParseNumber(std::string_view text, std::uint32_t highest) {
  std::uint32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || value > highest) return {};
  return value;
}

// What a crash still says: nothing is allocated then.
char again[100];
char hung[100];
std::string partName;

void SetAgain(std::uint32_t seconds, std::uint32_t seed) {
  std::snprintf(again, sizeof again, "repeat: attack_%s %u %u\n", partName.c_str(), seconds, seed);
}

void TellAgain() {
  [[maybe_unused]] const auto written = write(STDERR_FILENO, again, std::strlen(again));
}

// Somebody waits for ever. The time that is left to a part which is merely slow is generous.
constexpr std::uint32_t secondsOver = 30;

void EndHung(int) {
  TellAgain();
  [[maybe_unused]] const auto written = write(STDOUT_FILENO, hung, std::strlen(hung));
  _exit(fellStatus);
}

void TellHangs(std::uint32_t seconds) {
  std::snprintf(hung, sizeof hung, "%s: cut short - FELL: hung\n", partName.c_str());
  signal(SIGALRM, EndHung);
  alarm(seconds * 3 + secondsOver);
}

void TellCrashes() {
#ifdef __SANITIZE_ADDRESS__
  __sanitizer_set_death_callback(TellAgain);
#endif
  signal(SIGABRT, [](int) { TellAgain(); });
}

AttackOutcome Run(const std::function<AttackOutcome(const AttackOrder&)>& part, const AttackOrder& order) {
  try {
    return part(order);
  } catch (const std::exception& error) {
    return Fell("cut short", std::string("an exception: ") + error.what());
  }
}

}  // namespace

void NoteSeed(std::uint32_t seed) {
  SetAgain(1, seed);
}

int RunAttack(const std::string& name, int count, char** words,
              const std::function<AttackOutcome(const AttackOrder&)>& part) {
  const std::uint32_t seconds = count >= 2 ? ParseNumber(words[1], longest).value_or(0) : 0;
  const auto seed = count >= 3 ? ParseNumber(words[2], UINT32_MAX) : std::random_device()();
  if (seconds == 0 || !seed || count > 3) {
    std::fprintf(stderr, "Usage: attack_%s SECONDS [SEED]\n", name.c_str());
    return usageStatus;
  }
  partName = name;
  SetAgain(seconds, *seed);
  TellCrashes();
  TellHangs(seconds);
  const AttackOutcome outcome = Run(part, {std::chrono::steady_clock::now() + std::chrono::seconds(seconds), *seed});
  switch (outcome.verdict) {
    case AttackOutcome::Verdict::held:
      std::printf("%s: %s - held\n", name.c_str(), outcome.figures.c_str());
      return heldStatus;
    case AttackOutcome::Verdict::fell:
      TellAgain();
      std::printf("%s: %s - FELL: %s\n", name.c_str(), outcome.figures.c_str(), outcome.why.c_str());
      return fellStatus;
    default:
      std::printf("%s: not tried: %s\n", name.c_str(), outcome.why.c_str());
      return notTriedStatus;
  }
}

}  // namespace set32
