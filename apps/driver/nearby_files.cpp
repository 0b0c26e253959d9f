#include "apps/driver/nearby_files.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "apps/driver/suggestions.h"

namespace set32 {

namespace {

namespace fs = std::filesystem;

fs::path PathOf(std::string_view text) {
  return {std::u8string(text.begin(), text.end())};
}

std::string TextOf(const fs::path& path) {
  const std::u8string text = path.generic_u8string();
  return {text.begin(), text.end()};
}

}  // namespace

std::vector<std::string> FilesBeginning(std::string_view path) {
  const std::size_t slash = path.find_last_of("/\\");
  const std::string folder(path.substr(0, slash == std::string_view::npos ? 0 : slash + 1));
  const std::string_view begin = path.substr(folder.size());
  std::vector<std::string> found;
  std::error_code trouble;
  for (fs::directory_iterator file(PathOf(folder.empty() ? "." : folder), trouble), end; !trouble && file != end;
       file.increment(trouble)) {
    std::string name = TextOf(file->path().filename());
    if (!name.starts_with(begin) || (name.starts_with('.') && begin.empty())) continue;
    std::error_code ignored;
    found.push_back(folder + name + (file->is_directory(ignored) ? "/" : ""));
  }
  std::sort(found.begin(), found.end());
  return found;
}

namespace {

std::vector<std::string> FilesOfKind(const std::string& folder, std::string_view extension) {
  std::vector<std::string> found = FilesBeginning(folder);
  std::erase_if(found, [extension](const std::string& name) {
    return name.size() < extension.size() || !SameWord(name.substr(name.size() - extension.size()), extension);
  });
  return found;
}

}  // namespace

std::vector<std::string> PicturesIn(const std::string& folder) {
  return FilesOfKind(folder, ".bmp");
}

std::vector<std::string> ScriptsNear(const std::string& path) {
  return FilesOfKind(path.substr(0, path.find_last_of("/\\") + 1), ".scn");
}

}  // namespace set32
