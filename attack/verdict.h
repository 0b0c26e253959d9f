// What every part of the attack has in common: how it is started, how long it goes on, and what it says in the end.
//
//   attack_NAME SECONDS [SEED]
//
// runs for about that long and ends with one line on the standard output:
//
//   NAME: FIGURES - held                  exit status 0
//   NAME: FIGURES - FELL: WHY             1; what repeats it stands on the standard error output
//   NAME: not tried: WHY                  77; the machine doesn't allow it
//
// Wrong arguments: the usage on the standard error output, 2. A part that crashes, or goes on for three times its
// seconds and half a minute, tells its seed as well.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

namespace set32 {

struct AttackOrder {
  std::chrono::steady_clock::time_point end;
  std::uint32_t seed = 0;

  bool GoesOn() const { return std::chrono::steady_clock::now() < end; }
};

struct AttackOutcome {
  enum class Verdict { held, fell, notTried };
  Verdict verdict = Verdict::held;
  std::string figures;  // "12 kills, 340 saves"; unused when not tried
  std::string why;      // unused when held
};

inline AttackOutcome Held(std::string figures) {
  return {AttackOutcome::Verdict::held, std::move(figures), {}};
}
inline AttackOutcome Fell(std::string figures, std::string why) {
  return {AttackOutcome::Verdict::fell, std::move(figures), std::move(why)};
}
inline AttackOutcome NotTried(std::string why) {
  return {AttackOutcome::Verdict::notTried, {}, std::move(why)};
}

// A part that goes in rounds, each with a seed of its own, says so before each: whatever falls is then repeated by
// that round alone.
void NoteSeed(std::uint32_t seed);

// The whole of a part's main(). `name` is the program's without "attack_". An exception that leaves the part is a
// fall.
int RunAttack(const std::string& name, int count, char** words,
              const std::function<AttackOutcome(const AttackOrder&)>& part);

}  // namespace set32
