// Any bytes as all of the module's files together, then an opening of either face, a few changes, a close, and the
// same in the next process. Nothing is written but the three files in the temporary folder and the place of the
// advanced dialog, under names that lead nowhere else.
//
// An input is the files, each behind a byte of its own (file_mark), and before them the acts.
#include <algorithm>
#include <string>
#include <string_view>

#include "apps/driver/module_files.h"
#include "boundary/option_keys.h"
#include "fuzz/support/file_marks.h"
#include "fuzz/support/panel.h"
#include "resources/ids.h"

namespace {

using namespace set32;
using namespace set32::fuzz;

constexpr std::string_view moduleFolder = "module/";
constexpr std::string_view temporaryFolder = "temp/";

class Run {
 public:
  explicit Run(std::string_view input)
      : files_(input.substr(std::min(input.find(fileMark), input.size()))),
        panel_(BytesOf(input.substr(0, input.find(fileMark)))) {
    panel_.files.content.clear();
    LayFiles();
  }

  void Go() {
    constexpr int processes = 3;
    const std::string settings = panel_.files.content[MemoryWorld::modulePath];
    for (int process = 0; process < processes; ++process) {
      if (process > 0 && choices_.Maybe()) panel_.ChooseFace(choices_.Maybe() ? Face::inlinePage : Face::sheet);
      if (panel_.Open()) Change();
      if (Dialog* page = panel_.Page()) panel_.world.screen.input.SendClose(*page);
      panel_.EndProcess();
    }
    Require(panel_.files.content[MemoryWorld::modulePath] == settings);
    for (const auto& [path, bytes] : panel_.files.content) RequireInItsFolder(path);
  }

 private:
  // The settings first: they name the others.
  void LayFiles() {
    const ModuleFiles roles(panel_.world.platform);
    while (!files_.empty()) {
      const char role = files_.size() > 1 ? files_[1] : '\0';
      files_.remove_prefix(std::min<std::size_t>(2, files_.size()));
      const std::string_view bytes = files_.substr(0, files_.find(fileMark));
      files_.remove_prefix(bytes.size());
      if (const auto file = FileOfMark(role)) roles.WriteBytes(*file, BytesOf(bytes));
    }
    panel_.files.content.try_emplace(MemoryWorld::modulePath, "[RunTime]\nDriverType=0\n");
  }

  void Change() {
    for (int left = choices_.Below(12); left > 0; --left) {
      Dialog* page = panel_.Page();
      if (page == nullptr) return;
      if (Dialog* advanced = panel_.Find(dialog::gamma)) page = advanced;
      choices_.Below(4) == 0 ? panel_.ActAnywhere() : panel_.ActAt(*page, Panel::Hands::person);
    }
  }

  static void RequireInItsFolder(std::string_view path) {
    const std::string_view folder = path.starts_with(moduleFolder) ? moduleFolder : temporaryFolder;
    Require(path.starts_with(folder) && path.find_first_of("/\\:", folder.size()) == path.npos);
    Require(!path.ends_with(".tmp") && path.size() > folder.size());
    if (folder == moduleFolder)
      Require(path == MemoryWorld::modulePath || path.substr(folder.size()) == module_file::hardwareOptions);
  }

  std::string_view files_;
  Panel panel_;
  Choices& choices_ = panel_.choices;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Run({reinterpret_cast<const char*>(data), size}).Go();
  return 0;
}
