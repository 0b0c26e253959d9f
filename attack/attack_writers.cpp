// Processes that write one profile at the same time: eight that save rows of their own, and panels that open at once
// where there is no profile yet and save a row each. No write fails, and every one that was confirmed is there.
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "apps/driver/choices.h"
#include "attack/processes.h"
#include "attack/profile_look.h"
#include "attack/verdict.h"
#include "platform/posix/posix_files.h"
#include "profile/config_items.h"
#include "tests/support/scratch_folder.h"

namespace set32 {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr int writers = 8;
constexpr int mostSaves = 1000;  // of one writer
constexpr int names = 5;         // of one writer
constexpr int failed = -1;

std::string NameOf(int writer, int save) {
  return "writer " + std::to_string(writer) + " name " + std::to_string(save % names);
}

ScanConfigItem ItemOf(int save) {
  ScanConfigItem item{};
  item.settings.dpi = item.settings.jpegQuality = save;
  item.editable = item.deletable = 1;
  return item;
}

class Writers {
 public:
  explicit Writers(std::uint32_t seed) : dice_(seed) {}

  AttackOutcome Go(const AttackOrder& order) {
    std::string why;
    do {
      why = SaveAtOnce(milliseconds(500 + dice_.Below(2000)));
      if (why.empty()) why = OpenAtOnce(2 + dice_.Below(writers - 1));
    } while (why.empty() && order.GoesOn());
    const std::string figures = std::to_string(saves_) + " saves of " + std::to_string(writers) +
                                " writers at once, " + std::to_string(openings_) + " openings in " +
                                std::to_string(starts_) + " fresh folders";
    return why.empty() ? Held(figures) : Fell(figures, why);
  }

 private:
  std::string SaveAtOnce(milliseconds lasts) {
    const ScratchFolder folder;
    const std::string path = folder.Path("profile.ini");
    const auto end = steady_clock::now() + lasts;
    Tellings confirmed;
    std::vector<Child> children;
    children.reserve(writers);
    for (int writer = 0; writer < writers; ++writer) {
      children.emplace_back([&, writer] {
        PosixFiles files;
        ProfileEngine profiles(files);
        for (int save = 0; save < mostSaves && steady_clock::now() < end; ++save) {
          const bool isStored =
              StoreConfigItem(profiles, path, NameOf(writer, save), ItemOf(save)) == Stored::written;
          confirmed.Tell(isStored ? writer * mostSaves + save : failed);
          if (!isStored) return 1;
        }
        return 0;
      });
    }
    confirmed.CloseTelling();
    std::map<std::string, int> rows;
    bool hasFailed = false;
    for (int told = 0; confirmed.Hear(told); ++saves_) {
      hasFailed = hasFailed || told == failed;
      if (told != failed) rows[NameOf(told / mostSaves, told % mostSaves)] = told % mostSaves;
    }
    for (Child& child : children) hasFailed = child.Wait() != 0 || hasFailed;
    if (hasFailed) return "a write failed";
    const std::string fault = FaultInRows(path, rows);
    return fault.empty() && folder.Names().size() != 1 ? "a new file stayed" : fault;
  }

  std::string FaultInRows(const std::string& path, const std::map<std::string, int>& rows) {
    PosixFiles files;
    ProfileEngine profiles(files);
    for (const auto& [name, save] : rows) {
      ScanConfigItem item{};
      if (ReadStoredItem(profiles, path, name, item) != sizeof item) return "row " + name + " is missing";
      if (item.settings.dpi != save || item.settings.jpegQuality != save)
        return "row " + name + " holds save " + std::to_string(item.settings.dpi) + " and not " +
               std::to_string(save);
    }
    return {};
  }

  // Each host opens the panel as soon as all are there; whoever lays the profile must not take another's row away.
  std::string OpenAtOnce(int hosts) {
    const ScratchFolder folder;
    std::filesystem::create_directories(folder.Path("temp"));
    std::filesystem::current_path(folder.Path(""));
    ++starts_;
    Tellings start;
    std::vector<Child> children;
    children.reserve(static_cast<std::size_t>(hosts));
    for (int host = 0; host < hosts; ++host) {
      const int delay = dice_.Below(3000);
      children.emplace_back([&, host, delay] {
        PosixFiles files;
        ProfilePanel panel(files);
        start.CloseTelling();
        int now = 0;
        start.Hear(now);  // ends for all at once
        std::this_thread::sleep_for(std::chrono::microseconds(delay));
        if (!panel.Open()) return 1;
        const std::string name = "host " + std::to_string(host);
        return SaveFromLastRow(panel, name) && RowsOf(files).contains(name) ? 0 : 1;
      });
    }
    start.CloseTelling();
    openings_ += hosts;
    bool hasFailed = false;
    for (Child& child : children) hasFailed = child.Wait() != 0 || hasFailed;
    std::string fault = hasFailed ? "a panel that started with others has no rows or couldn't save" : "";
    if (fault.empty()) fault = FaultInFreshProfile(hosts);
    std::filesystem::current_path(std::filesystem::temp_directory_path());
    return fault;
  }

  static std::string FaultInFreshProfile(int hosts) {
    PosixFiles files;
    ProfileEngine profiles(files);
    for (int host = 0; host < hosts; ++host) {
      ScanConfigItem item{};
      const std::string name = "host " + std::to_string(host);
      if (ReadStoredItem(profiles, MemoryWorld::profilePath, name, item) != sizeof item)
        return "row " + name + " of " + std::to_string(hosts) + " is missing";
    }
    ConfigEntries entries(profiles, MemoryWorld::profilePath);
    int rows = 0;
    for (ConfigEntry entry; entries.Next(entry); ++rows) {
      if (entry.item.size() != sizeof(ScanConfigItem)) return "row " + std::string(entry.name) + " isn't whole";
    }
    constexpr int factoryRows = 10;
    return rows == factoryRows + hosts ? "" : "the fresh profile has " + std::to_string(rows) + " rows";
  }

  Dice dice_;
  long saves_ = 0;
  long openings_ = 0;
  long starts_ = 0;
};

}  // namespace
}  // namespace set32

int main(int count, char** words) {
  return set32::RunAttack("writers", count, words,
                          [](const set32::AttackOrder& order) { return set32::Writers(order.seed).Go(order); });
}
