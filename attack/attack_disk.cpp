// A disk of some kilobytes, in a mount namespace of its own: rows are saved until it is full. What stood before a
// save that failed stands after it, byte for byte, and once there is room again the next save is stored.
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include "apps/driver/choices.h"
#include "attack/profile_look.h"
#include "attack/verdict.h"
#include "platform/posix/posix_files.h"
#include "profile/config_store.h"
#include "tests/support/scratch_folder.h"

namespace set32 {
namespace {

bool WriteText(const char* path, const std::string& text) {
  std::ofstream file(path);
  file << text;
  file.close();
  return !file.fail();
}

// Mounts are this process's own from here on, as the same user. Result: empty, or what isn't allowed.
std::string EnterOwnMounts() {
  const std::string user = std::to_string(geteuid());
  const std::string group = std::to_string(getegid());
  if (unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0) {
    WriteText("/proc/self/setgroups", "deny");
    if (!WriteText("/proc/self/uid_map", user + " " + user + " 1") ||
        !WriteText("/proc/self/gid_map", group + " " + group + " 1")) {
      return "a user namespace that knows its user";
    }
  } else if (unshare(CLONE_NEWNS) != 0) {
    return "a mount namespace";
  }
  return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 ? "" : "mounts of its own";
}

// A disk in memory over a folder, and the folder to work in.
class SmallDisk {
 public:
  explicit SmallDisk(int pages) {
    isThere_ = mount("attack", folder_.Path("").c_str(), "tmpfs", 0, Size(pages).c_str()) == 0;
    std::filesystem::current_path(folder_.Path(""));
    std::filesystem::create_directories("temp");
  }
  ~SmallDisk() {
    std::filesystem::current_path(std::filesystem::temp_directory_path());
    if (isThere_) umount2(folder_.Path("").c_str(), MNT_DETACH);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

  bool IsThere() const { return isThere_; }
  bool MakeRoom() const {
    constexpr int enough = 64;
    return mount("attack", folder_.Path("").c_str(), "tmpfs", MS_REMOUNT, Size(enough).c_str()) == 0;
  }

 private:
  static std::string Size(int pages) { return "size=" + std::to_string(pages * sysconf(_SC_PAGESIZE)); }

  ScratchFolder folder_;
  bool isThere_ = false;
};

class FullDisks {
 public:
  explicit FullDisks(std::uint32_t seed) : dice_(seed) {}

  AttackOutcome Go(const AttackOrder& order) {
    const std::string forbidden = EnterOwnMounts();
    if (!forbidden.empty()) return NotTried("this machine doesn't allow " + forbidden);
    std::string why;
    do {
      const SmallDisk disk(1 + dice_.Below(7));
      if (!disk.IsThere()) return NotTried("this machine doesn't allow a disk in memory");
      ++disks_;
      why = FillUp(disk);
    } while (why.empty() && order.GoesOn());
    const std::string figures = std::to_string(disks_) + " disks, " + std::to_string(saves_) + " saves stored, " +
                                std::to_string(refused_) + " for which there was no room";
    if (why.empty() && (saves_ == 0 || refused_ == 0)) why = "no disk was ever full";
    return why.empty() ? Held(figures) : Fell(figures, why);
  }

 private:
  std::string FillUp(const SmallDisk& disk) {
    PosixFiles files;
    ProfilePanel panel(files);
    if (!panel.Open()) return "no panel stands";
    constexpr int mostRows = CConfigStore::mostRows - 1;
    int refused = 0;
    for (int save = 0; save < mostRows && refused < 3; ++save) {
      const bool changes = dice_.OneIn(3);
      std::string fault = changes ? Change(files, panel) : Save(files, panel, save, refused);
      if (!fault.empty()) return fault;
    }
    refused_ += refused;
    if (!disk.MakeRoom()) return "no room could be made";
    return GoOn(files, panel);
  }

  std::string Save(Files& files, ProfilePanel& panel, int save, int& refused) {
    const std::string before = ContentOf(files);
    auto rows = RowsOf(files);
    const std::string name =
        "row " + std::to_string(save) + std::string(static_cast<std::size_t>(dice_.Below(60)), '-');
    if (!SaveFromLastRow(panel, name)) return {};
    const auto rowsNow = RowsOf(files);
    if (!rowsNow.contains(name)) {
      ++refused;
      return ContentOf(files) == before ? "" : "a save that found no room changed the profile";
    }
    ++saves_;
    rows.insert(name);
    return rowsNow == rows ? "" : "a save took other rows away";
  }

  // Stored by itself or not: the person's choice counts, and no row is lost.
  std::string Change(Files& files, ProfilePanel& panel) {
    const auto rows = RowsOf(files);
    auto& resolutions = panel.page->Get<Combo>(id::resolutionCombo);
    const int entry = dice_.Below(std::max(1, resolutions.Count()));
    panel.Hands().PickEntry(resolutions, entry);
    if (RowsOf(files) != rows) return "a change took rows away";
    if (panel.host.record->resolutionId != resolutions.Data(entry)) return "the record isn't as the person set it";
    return {};
  }

  std::string GoOn(Files& files, ProfilePanel& panel) {
    auto rows = RowsOf(files);
    const std::string name = "with room";
    if (!SaveFromLastRow(panel, name)) {
      panel.host.End();
      ProfilePanel next(files);
      if (!next.Open() || !SaveFromLastRow(next, name)) return "the next panel can't save";
      rows.merge(RowsOf(files));
    }
    rows.insert(name);
    if (RowsOf(files) != rows) return "with room again the next save isn't stored, or took rows away";
    return NewFilesOf(files).empty() ? "" : "a new file outlived the next save";
  }

  Dice dice_;
  long disks_ = 0;
  long saves_ = 0;
  long refused_ = 0;
};

}  // namespace
}  // namespace set32

int main(int count, char** words) {
  return set32::RunAttack("disk", count, words,
                          [](const set32::AttackOrder& order) { return set32::FullDisks(order.seed).Go(order); });
}
