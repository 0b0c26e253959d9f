#include "apps/driver/recorded_walk.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <vector>

#include "apps/driver/walker.h"
#include "resources/ids.h"

namespace set32 {

namespace {

constexpr int stepsALook = 8;

// What hangs on how large the system's font makes the page.
bool HangsOnTheFont(int dialogId, int controlId) {
  return dialogId == dialog::advanced && (controlId == id148::xValue || controlId == id148::yValue);
}

Chunk LookAtEverything(Session& session) {
  Chunk look{"show focus", "show file profile"};
  for (const int dialogId : {dialog::general, dialog::advanced, dialog::gamma}) {
    const Dialog* page = session.TheScene().Find(dialogId);
    if (page == nullptr) continue;
    for (const auto& control : page->Controls()) {
      if (!HangsOnTheFont(dialogId, control->Id()))
        look.push_back("show " + std::to_string(dialogId) + ':' + std::to_string(control->Id()));
    }
  }
  return look;
}

// What of it can be done when it is played without what couldn't.
std::vector<Chunk> Playable(const std::vector<Chunk>& chunks) {
  std::vector<Chunk> held;
  Walker walker(Walker::Blocks::kept);
  std::copy_if(chunks.begin(), chunks.end(), std::back_inserter(held),
               [&](const Chunk& chunk) { return walker.Do(chunk).result == Walker::Result::held; });
  return held;
}

}  // namespace

int RecordWalk(const WalkOptions& options, const std::function<void(const std::string&)>& print) {
  std::vector<Chunk> chunks;
  {
    WalkActs acts(options.seed, options.face);
    Walker walker;
    for (int step = 0; step < options.steps; ++step) {
      const Chunk chunk = step == 0 ? acts.First() : acts.Next(walker.TheSession());
      const Walker::Outcome outcome = walker.Do(chunk);
      if (outcome.result == Walker::Result::failed) {
        print("step " + std::to_string(step) + ": " + outcome.why);
        return 1;
      }
      if (outcome.result == Walker::Result::notPossible) continue;
      chunks.push_back(chunk);
      chunks.push_back({"show settings"});
      if (step % stepsALook == 0) chunks.push_back(LookAtEverything(walker.TheSession()));
    }
  }
  for (std::size_t before = 0; before != chunks.size();) {
    before = chunks.size();
    chunks = Playable(chunks);
  }
  std::ofstream file(options.scriptPath, std::ios::binary);
  for (const Chunk& chunk : chunks) {
    for (const std::string& line : chunk) file << line << '\n';
  }
  file.flush();
  if (!file) {
    print("can't write " + options.scriptPath);
    return 1;
  }
  return 0;
}

}  // namespace set32
