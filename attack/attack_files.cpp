// Each file operation of an opening, a save, a change, a delete and a close fails, once in turn and all from there
// on, on files in memory and on real ones. The profile is the old or the new one, whole; no panel is missing, what
// the person set stays set, and once the files work again the panel goes on and clears away what was left.
#include <algorithm>
#include <filesystem>
#include <set>
#include <span>
#include <sstream>
#include <string>

#include "apps/driver/choices.h"
#include "attack/profile_look.h"
#include "attack/verdict.h"
#include "platform/posix/posix_files.h"
#include "tests/support/faulty_files.h"
#include "tests/support/memory_files.h"
#include "tests/support/scratch_folder.h"

namespace set32 {
namespace {

constexpr const char* profile = MemoryWorld::profilePath;
constexpr const char* afterwards = "afterwards";

void SetContent(Files& files, const std::string& text) {
  for (const std::string& ending : NewFilesOf(files)) files.Remove(profile + ending);
  files.Remove(profile);
  if (text.empty()) return;
  files.OpenToWrite(profile)->Write({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

std::multiset<std::string> LinesOf(const std::string& text) {
  std::multiset<std::string> lines;
  std::istringstream rest(text);
  for (std::string line; std::getline(rest, line);) lines.insert(line);
  return lines;
}

bool IsSame(const ScanSettings& one, const ScanSettings& other) {
  return std::ranges::equal(std::as_bytes(std::span(&one, 1)), std::as_bytes(std::span(&other, 1)));
}

// What a work does where nothing fails.
struct Course {
  std::string before, after;
  ScanSettings record{};
};

class FailingFiles {
 public:
  explicit FailingFiles(std::uint32_t seed) : dice_(seed) {}

  AttackOutcome Go(const AttackOrder& order) {
    do {
      MemoryFiles memory;
      Round(memory, "in memory");
      if (!why_.empty()) break;
      const ScratchFolder folder;
      std::filesystem::create_directories(folder.Path("temp"));
      std::filesystem::current_path(folder.Path(""));
      PosixFiles real;
      Round(real, "on disk");
      std::filesystem::current_path(std::filesystem::temp_directory_path());
    } while (why_.empty() && order.GoesOn());
    const std::string figures = std::to_string(failures_) + " failures, " + std::to_string(oldOnes_) +
                                " left the old file, " + std::to_string(leftBehind_) + " a new one beside it";
    return why_.empty() ? Held(figures) : Fell(figures, why_);
  }

 private:
  void Round(Files& files, const char* where) {
    SetContent(files, "");
    {
      ProfilePanel panel(files);
      panel.Open();
      static constexpr const char* names[] = {"a", "Zwei W\xC3\xB6rter", "\xE4\xB8\x80", "x=y", "1", "r s t"};
      for (int rows = dice_.Below(6); rows > 0; --rows) {
        panel.host.record->jpegQuality = dice_.Below(100);
        panel.SaveAs(dice_.OneOf(names));
      }
      panel.SaveAs("mine");
    }
    prepared_ = ContentOf(files);
    for (const ProfileWork& work : ProfileWorks()) {
      const Course course = CourseOf(files, work);
      for (const bool goesOn : {false, true}) {
        for (int operation = 0; why_.empty() && Fail(files, work, course, operation, goesOn); ++operation) continue;
        if (why_.empty()) continue;
        why_ = std::string(work.name) + ' ' + where + (goesOn ? ", all fails from " : ", failing alone ") + why_;
        return;
      }
    }
  }

  Course CourseOf(Files& files, const ProfileWork& work) {
    SetContent(files, work.opensFirst ? prepared_ : "");
    ProfilePanel panel(files);
    if (work.opensFirst) panel.Open();
    Course course;
    course.before = ContentOf(files);
    work.act(panel);
    course.after = ContentOf(files);
    if (panel.host.record != nullptr) course.record = *panel.host.record;
    return course;
  }

  // False once the work is over before so many operations.
  bool Fail(Files& files, const ProfileWork& work, const Course& course, int operation, bool goesOn) {
    SetContent(files, work.opensFirst ? prepared_ : "");
    FaultyFiles faulty(files);
    {
      ProfilePanel panel(faulty);
      if (work.opensFirst) panel.Open();
      if (goesOn)
        faulty.FailFrom(operation);
      else
        faulty.FailAt(operation);
      work.act(panel);
      faulty.FailAt(-1);
      if (!faulty.HasFailed()) return false;
      ++failures_;
      std::string fault = FaultInFile(files, work, course);
      if (fault.empty()) fault = FaultInPanel(files, work, course, panel);
      if (!fault.empty()) why_ = std::to_string(operation) + ": " + fault;
    }
    return why_.empty();
  }

  std::string FaultInFile(Files& files, const ProfileWork& work, const Course& course) {
    const std::string now = ContentOf(files);
    if (now == course.before) ++oldOnes_;
    leftBehind_ += NewFilesOf(files).empty() ? 0 : 1;
    if (now == course.before || now == course.after) return {};
    if (work.writes == 1) return "neither the old profile nor the new one";
    const auto before = LinesOf(course.before);
    const auto after = LinesOf(course.after);
    const auto lines = LinesOf(now);
    const bool isEither = std::ranges::all_of(
        lines, [&](const std::string& line) { return before.contains(line) || after.contains(line); });
    return isEither && lines.size() == before.size() ? ""
                                                     : "a line that is neither of the old profile nor of the new";
  }

  std::string FaultInPanel(Files& files, const ProfileWork& work, const Course& course, ProfilePanel& panel) {
    if (panel.page == nullptr) return "no panel stands";
    const bool isChange = std::string_view(work.name).starts_with("change");
    if (isChange && !IsSame(*panel.host.record, course.record)) return "the record isn't as the person set it";
    auto rows = RowsOf(files);
    if (panel.host.record == nullptr || !SaveFromLastRow(panel, afterwards)) {
      panel.host.End();
      ProfilePanel next(files);
      if (!next.Open() || !SaveFromLastRow(next, afterwards)) return "the next panel can't save";
    }
    rows.insert(afterwards);
    const auto rowsNow = RowsOf(files);
    for (const std::string& row : rows) {
      if (!rowsNow.contains(row)) return "row " + row + " isn't stored after the next save";
    }
    return NewFilesOf(files).empty() ? "" : "a new file outlived the next save";
  }

  Dice dice_;
  std::string prepared_;
  std::string why_;
  long failures_ = 0;
  long oldOnes_ = 0;
  long leftBehind_ = 0;
};

}  // namespace
}  // namespace set32

int main(int count, char** words) {
  return set32::RunAttack("files", count, words,
                          [](const set32::AttackOrder& order) { return set32::FailingFiles(order.seed).Go(order); });
}
