#include "attack/verdict.h"

#include <charconv>
#include <cstdio>
#include <exception>
#include <optional>
#include <random>
#include <string_view>

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

AttackOutcome Run(const std::function<AttackOutcome(const AttackOrder&)>& part, const AttackOrder& order) {
  try {
    return part(order);
  } catch (const std::exception& error) {
    return Fell("cut short", std::string("an exception: ") + error.what());
  }
}

}  // namespace

int RunAttack(const std::string& name, int count, char** words,
              const std::function<AttackOutcome(const AttackOrder&)>& part) {
  const auto seconds = count >= 2 ? ParseNumber(words[1], longest) : std::nullopt;
  const auto seed = count >= 3 ? ParseNumber(words[2], UINT32_MAX) : std::random_device()();
  if (!seconds || *seconds == 0 || !seed || count > 3) {
    std::fprintf(stderr, "Usage: attack_%s SECONDS [SEED]\n", name.c_str());
    return usageStatus;
  }
  const std::string again = "attack_" + name + " " + words[1] + " " + std::to_string(*seed);
  std::fprintf(stderr, "%s\n", again.c_str());
  const AttackOutcome outcome = Run(part, {std::chrono::steady_clock::now() + std::chrono::seconds(*seconds), *seed});
  std::fflush(stderr);
  switch (outcome.verdict) {
    case AttackOutcome::Verdict::held:
      std::printf("%s: %s - held\n", name.c_str(), outcome.figures.c_str());
      return heldStatus;
    case AttackOutcome::Verdict::fell:
      std::fprintf(stderr, "repeat: %s\n", again.c_str());
      std::printf("%s: %s - FELL: %s\n", name.c_str(), outcome.figures.c_str(), outcome.why.c_str());
      return fellStatus;
    default:
      std::printf("%s: not tried: %s\n", name.c_str(), outcome.why.c_str());
      return notTriedStatus;
  }
}

}  // namespace set32
