#include "apps/driver/module_files.h"

#include <array>
#include <utility>

#include "apps/driver/not_possible.h"
#include "profile/options.h"

namespace set32 {

namespace {

constexpr std::array<std::pair<std::string_view, ModuleFile>, 5> roles = {{
    {"module", ModuleFile::module},
    {"hardware", ModuleFile::hardware},
    {"options", ModuleFile::options},
    {"profile", ModuleFile::profile},
    {"list", ModuleFile::list},
}};

constexpr std::size_t listHeaderSize = 4;
constexpr std::size_t listRecordSize = 92;

std::vector<std::string> TextLines(std::string_view content) {
  std::vector<std::string> lines;
  while (!content.empty()) {
    const std::size_t end = content.find('\n');
    std::string_view line = content.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.emplace_back(line);
    if (end == std::string_view::npos) break;
    content.remove_prefix(end + 1);
  }
  return lines;
}

std::string HexadecimalBytes(std::string_view bytes) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  for (const char byte : bytes) {
    text += digits[static_cast<unsigned char>(byte) >> 4];
    text += digits[static_cast<unsigned char>(byte) & 15];
  }
  return text;
}

std::vector<std::string> ListLines(std::string_view content) {
  std::vector<std::string> lines;
  for (std::size_t size = listHeaderSize; !content.empty(); size = listRecordSize) {
    lines.push_back(HexadecimalBytes(content.substr(0, size)));
    content.remove_prefix(std::min(size, content.size()));
  }
  return lines;
}

}  // namespace

std::vector<std::string> ModuleFileNames() {
  std::vector<std::string> names;
  names.reserve(roles.size());
  for (const auto& [name, file] : roles) names.emplace_back(name);
  return names;
}

std::optional<ModuleFile> FindModuleFile(std::string_view role) {
  for (const auto& [name, file] : roles) {
    if (name == role) return file;
  }
  return {};
}

std::string ModuleFiles::ModuleFolder() const {
  const std::string file = platform_.paths.ModuleFile();
  return file.substr(0, file.find_last_of("/\\") + 1);
}

FileNames ModuleFiles::ReadNames() const {
  return ModuleSettings(platform_.profiles, platform_.system, ModuleFolder() + "QUIRNMFP.ini").Names();
}

void ModuleFiles::OnModuleLoaded() {
  if (!loaded_) loaded_ = ReadNames();
}

std::string ModuleFiles::PathOf(ModuleFile file) const {
  if (file == ModuleFile::module) return ModuleFolder() + "QUIRNMFP.ini";
  if (file == ModuleFile::hardware) return ModuleFolder() + "QUIRNHW.ini";
  const FileNames names = loaded_ ? *loaded_ : ReadNames();
  const std::string folder = platform_.paths.TemporaryFolder();
  if (file == ModuleFile::options) return folder + names.runtimeOptions;
  return folder + (file == ModuleFile::profile ? names.profile : names.scannerList);
}

void ModuleFiles::WriteKey(ModuleFile file, const std::string& section, const std::string& key,
                           const std::string& value) const {
  const std::string path = PathOf(file);
  if (!platform_.profiles.WriteString(section.c_str(), key.c_str(), value.c_str(), path.c_str())) {
    throw NotPossible("can't write " + path);
  }
}

void ModuleFiles::WriteBytes(ModuleFile file, std::span<const std::uint8_t> bytes) const {
  const std::string path = PathOf(file);
  const auto opened = platform_.files.OpenToWrite(path);
  if (opened == nullptr || opened->Write(bytes) != bytes.size()) throw NotPossible("can't write " + path);
}

std::vector<std::string> ModuleFiles::Lines(ModuleFile file) const {
  const auto opened = platform_.files.OpenToRead(PathOf(file));
  if (opened == nullptr) return {};
  std::string content;
  std::array<std::uint8_t, 4096> piece;
  while (const std::size_t size = opened->Read(piece)) {
    content.append(reinterpret_cast<const char*>(piece.data()), size);
  }
  return file == ModuleFile::list ? ListLines(content) : TextLines(content);
}

}  // namespace set32
