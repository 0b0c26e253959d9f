#include "apps/driver/random_walk.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <system_error>
#include <vector>

#include "apps/driver/walk_acts.h"
#include "apps/driver/walker.h"

namespace set32 {

namespace {

constexpr int stepsALeg = 500;

std::optional<std::string> Replay(const std::vector<Chunk>& chunks) {
  Walker walker;
  for (const Chunk& chunk : chunks) {
    const Walker::Outcome outcome = walker.Do(chunk);
    if (outcome.result == Walker::Result::failed) return outcome.why;
    if (outcome.result == Walker::Result::notPossible) return {};  // a script would end here
  }
  return {};
}

// Takes away ever smaller runs of chunks as long as what is left still fails in the same way.
std::vector<Chunk> Shrink(std::vector<Chunk> chunks, const std::string& why) {
  const std::string kind = why.substr(0, why.find('"'));
  const auto stillFails = [&kind](const std::vector<Chunk>& candidate) {
    const auto seen = Replay(candidate);
    return seen && seen->starts_with(kind);
  };
  for (std::size_t run = std::max<std::size_t>(1, chunks.size() / 2); run > 0;) {
    const std::size_t before = chunks.size();
    for (std::size_t at = 0; at < chunks.size();) {
      std::vector<Chunk> candidate = chunks;
      const auto first = candidate.begin() + static_cast<std::ptrdiff_t>(at);
      candidate.erase(first, first + static_cast<std::ptrdiff_t>(std::min(run, chunks.size() - at)));
      if (!candidate.empty() && stillFails(candidate)) {
        chunks = std::move(candidate);
      } else {
        at += run;
      }
    }
    if (run > 1 || chunks.size() == before) run /= 2;
  }
  return chunks;
}

void Write(std::ostream& file, const Chunk& chunk) {
  for (const std::string& line : chunk) file << line << '\n';
  file.flush();
}

}  // namespace

int WalkAtRandom(const WalkOptions& options, const std::function<void(const std::string&)>& print) {
  WalkActs acts(options.seed, options.face);
  int done = 0;
  while (done < options.steps) {
    std::vector<Chunk> chunks;
    std::string why;
    {
      Walker walker;
      std::ofstream file(options.scriptPath, std::ios::binary);
      for (int step = 0; step < stepsALeg && done < options.steps && why.empty(); ++step, ++done) {
        const Chunk chunk = step == 0 ? acts.First() : acts.Next(walker.TheSession());
        Write(file, chunk);
        const Walker::Outcome outcome = walker.Do(chunk);
        if (outcome.result != Walker::Result::notPossible) chunks.push_back(chunk);
        if (outcome.result == Walker::Result::failed) why = outcome.why;
      }
    }
    if (why.empty()) continue;
    print("step " + std::to_string(done) + ": " + why);
    chunks = Shrink(std::move(chunks), why);
    std::ofstream file(options.scriptPath, std::ios::binary);
    file << "# " << why << '\n';
    for (const Chunk& chunk : chunks) Write(file, chunk);
    print("the shortest script that shows it is in " + options.scriptPath);
    return 1;
  }
  std::error_code ignored;
  std::filesystem::remove(options.scriptPath, ignored);
  print(std::to_string(done) + " steps, all held");
  return 0;
}

}  // namespace set32
