// Random calls of the two functions, life after life of the module.
#include "apps/driver/random_calls.h"
#include "attack/verdict.h"

int main(int count, char** words) {
  return set32::RunAttack("calls", count, words, [](const set32::AttackOrder& order) {
    set32::CallFigures figures;
    std::string why;
    std::uint32_t seed = order.seed;
    do {
      set32::NoteSeed(seed);
      why = set32::PlayRandomCalls(seed++, figures);
    } while (why.empty() && order.GoesOn());
    const std::string told = std::to_string(figures.calls) + " calls, " + std::to_string(figures.openings) +
                             " openings, " + std::to_string(figures.acts) + " acts, " +
                             std::to_string(figures.messages) + " messages, " + std::to_string(figures.lives) +
                             " lives";
    return why.empty() ? set32::Held(told) : set32::Fell(told, why);
  });
}
