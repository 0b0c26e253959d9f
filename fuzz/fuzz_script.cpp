// Any text as a script of scan-host. It ends, with at most one error that names a line of it; played again it prints
// the same; and no file is touched beside those of the module.
#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "apps/driver/interpreter.h"
#include "apps/driver/not_possible.h"
#include "apps/driver/session_folder.h"
#include "fuzz/support/choices.h"
#include "tests/support/memory_files.h"

namespace {

using namespace set32;
using set32::fuzz::Require;
namespace fs = std::filesystem;

// The module's files live in memory, so that nothing that a script names is read from a disk. The registry's stand-in
// is a folder of its own.
class FencedFiles : public MemoryFiles {
 public:
  explicit FencedFiles(std::string folder) : folder_(std::move(folder)) {}
  std::unique_ptr<File> OpenToWrite(std::string_view path) override {
    RequireInside(path);
    return MemoryFiles::OpenToWrite(path);
  }
  bool Replace(std::string_view from, std::string_view to) override {
    RequireInside(to);
    return MemoryFiles::Replace(from, to);
  }
  bool Remove(std::string_view path) override {
    RequireInside(path);
    return MemoryFiles::Remove(path);
  }

 private:
  void RequireInside(std::string_view path) const {
    Require(path.starts_with(folder_));
    path.remove_prefix(folder_.size());
    Require(path.starts_with("/module/") || path.starts_with("/temp/"));
    Require(path.find_first_of("/\\:", path.find('/', 1) + 1) == path.npos);
  }

  std::string folder_;
};

class Place {
 public:
  const std::string& Path() const { return folder_.Path(); }
  // Nothing but what the registry's stand-in holds.
  void EmptyRegistry() const {
    for (const char* name : {"module", "temp"}) Require(fs::is_empty(fs::path(Path()) / name));
    for (const auto& entry : fs::directory_iterator(fs::path(Path()) / "registry")) fs::remove_all(entry);
  }

 private:
  SessionFolder folder_;
};

// White pictures of the size of a page take longer than all the rest.
bool IsLargePicture(const std::string& line) {
  constexpr std::int64_t mostPixels = 10000;
  try {
    const std::vector<Word> words = SplitWords(line);
    if (words.size() != 5 || words[0].text != "preview") return false;
    return ParseInteger(words[2].text).value_or(0) * ParseInteger(words[3].text).value_or(0) > mostPixels;
  } catch (const NotPossible&) {
    return false;
  }
}

std::vector<std::string> Play(const std::string& script, const Place& place) {
  FencedFiles files(place.Path());
  AssemblyOptions outside{.folder = place.Path()};
  outside.files = &files;
  std::vector<std::string> lines;
  int complaints = 0;
  Interpreter interpreter(outside, {},
                          {[&](const std::string& line) { lines.push_back(line); },
                           [&](const std::string& line) { lines.push_back(line), ++complaints; }});
  interpreter.TheSession().Host().Preview().MakeBlank({40, 30}, 100);
  std::istringstream rest(script);
  int number = 0;
  const int status = interpreter.Run([&](const std::string&) -> std::optional<SourceLine> {
    SourceLine line;
    do {
      ++number;
      if (!std::getline(rest, line.text)) return {};
    } while (IsLargePicture(line.text));
    line.number = number;
    return line;
  });
  Require(complaints == status && (status == 0 || status == 1));
  return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t twiceEvery = 4;
  static const Place place;
  const std::string script(reinterpret_cast<const char*>(data), size);
  const std::vector<std::string> lines = Play(script, place);
  place.EmptyRegistry();
  if (size % twiceEvery != 0) return 0;
  Require(Play(script, place) == lines);
  place.EmptyRegistry();
  return 0;
}
