// Processes that are killed at random points of a loop that saves. After each the profile is whole and holds every
// save that was confirmed, and the next write takes away what the killed one left.
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <thread>

#include "apps/driver/choices.h"
#include "attack/processes.h"
#include "attack/verdict.h"
#include "platform/posix/posix_files.h"
#include "platform/profile_engine.h"
#include "profile/config_items.h"
#include "tests/support/scratch_folder.h"

namespace set32 {
namespace {

constexpr int names = 20;
constexpr int failed = -1;
constexpr const char* lastName = "after the kill";

std::string NameOf(int number) {
  return "name " + std::to_string(number % names);
}

ScanConfigItem ItemOf(int number) {
  ScanConfigItem item{};
  item.settings.dpi = number;
  item.settings.jpegQuality = number;
  item.editable = item.deletable = 1;
  return item;
}

// Saves from `first` on, each number under one of the names, and tells each that is done.
int SaveOnAndOn(const std::string& path, int first, const Tellings& tellings) {
  PosixFiles files;
  ProfileEngine profiles(files);
  for (int number = first;; ++number) {
    const bool isStored = StoreConfigItem(profiles, path, NameOf(number), ItemOf(number)) == Stored::written;
    if (!tellings.Tell(isStored ? number : failed) || !isStored) return 1;
  }
}

class Kills {
 public:
  explicit Kills(std::uint32_t seed) : dice_(seed) {}

  AttackOutcome Go(const AttackOrder& order) {
    std::string why;
    do {
      why = Round();
      if (why.empty()) why = FaultInRows();
      if (why.empty()) why = FaultInFolder();
    } while (why.empty() && order.GoesOn());
    if (why.empty() && (kills_ == 0 || done_ < 0)) why = "nothing was killed, or nothing saved";
    const std::string figures = std::to_string(kills_) + " kills, " + std::to_string(done_ + 1) +
                                " saves confirmed, " + std::to_string(leftBehind_) + " left a new file behind";
    return why.empty() ? Held(figures) : Fell(figures, why);
  }

 private:
  // Most rounds wait for the first save, so that the kill falls into the loop and not into its start.
  std::string Round() {
    Tellings saved;
    Child child([&] { return SaveOnAndOn(path_, done_ + 1, saved); });
    if (!child.IsRunning()) return "no process";
    saved.CloseTelling();
    if (!dice_.OneIn(8)) Hear(saved);
    std::this_thread::sleep_for(std::chrono::microseconds(dice_.Below(6000)));
    child.Kill();
    if (child.Wait() == -SIGKILL) ++kills_;
    while (Hear(saved)) continue;
    return hasFailed_ ? "a save failed that nobody else was in the way of" : "";
  }

  // One more save that was done; false at the end of them.
  bool Hear(const Tellings& saved) {
    int number = 0;
    if (!saved.Hear(number)) return false;
    hasFailed_ = hasFailed_ || number == failed;
    if (number != failed) done_ = number;
    return true;
  }

  // Each row holds the last save of its name that was confirmed, or the one that was done and not told any more.
  std::string FaultInRows() {
    ConfigEntries entries(profiles_, path_);
    int rows = 0;
    for (ConfigEntry entry; entries.Next(entry);) {
      const std::string name(entry.name);
      if (name == lastName) continue;
      ++rows;
      ScanConfigItem item{};
      if (CopyStoredItem(entry, item) != sizeof item) return "row " + name + " isn't whole";
      const int number = item.settings.dpi;
      if (item.settings.jpegQuality != number || name != NameOf(number))
        return "row " + name + " is none that was saved";
      if (number + names <= done_ || number > done_ + 1)
        return "row " + name + " holds save " + std::to_string(number) + " after " + std::to_string(done_);
    }
    if (rows < std::min(done_ + 1, names))
      return "only " + std::to_string(rows) + " rows of " + std::to_string(names);
    return {};
  }

  std::string FaultInFolder() {
    if (folder_.Names().size() > 1) ++leftBehind_;
    if (StoreConfigItem(profiles_, path_, lastName, ItemOf(kills_)) != Stored::written)
      return "the next write failed";
    return folder_.Names().size() == 1 ? "" : "a new file outlived the next write";
  }

  Dice dice_;
  ScratchFolder folder_;
  const std::string path_ = folder_.Path("profile.ini");
  PosixFiles files_;
  ProfileEngine profiles_{files_};
  int kills_ = 0;
  int done_ = -1;  // the last save that was confirmed
  bool hasFailed_ = false;
  int leftBehind_ = 0;
};

}  // namespace
}  // namespace set32

int main(int count, char** words) {
  return set32::RunAttack("kills", count, words,
                          [](const set32::AttackOrder& order) { return set32::Kills(order.seed).Go(order); });
}
