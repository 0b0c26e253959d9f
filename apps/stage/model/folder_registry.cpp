#include "apps/stage/model/folder_registry.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <system_error>
#include <vector>

#include "platform/letter_case.h"

namespace set32 {

namespace {

namespace fs = std::filesystem;

enum class EntryKind { key, value };

// A name that stays inside its folder.
bool IsPlainName(std::string_view name) {
  return !name.empty() && name != "." && name != ".." &&
         name.find_first_of(std::string_view("/\\:\0", 4)) == name.npos;
}

bool IsKind(const fs::directory_entry& entry, EntryKind kind) {
  std::error_code error;
  const fs::file_type type = entry.symlink_status(error).type();
  return !error && type == (kind == EntryKind::key ? fs::file_type::directory : fs::file_type::regular);
}

// Names of a folder's keys or values, sorted: a folder lists them in any order.
std::vector<std::string> Names(const fs::path& folder, EntryKind kind) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    if (IsKind(*at, kind)) names.push_back(at->path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::optional<fs::path> Entry(const fs::path& folder, std::string_view name, EntryKind kind) {
  if (!IsPlainName(name)) return {};
  std::error_code error;
  const fs::directory_entry exact(folder / name, error);
  if (!error && IsKind(exact, kind)) return exact.path();
  for (const std::string& candidate : Names(folder, kind)) {
    if (EqualFolded(candidate, name)) return folder / candidate;
  }
  return {};
}

std::vector<std::string_view> Split(std::string_view path) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = path.find_first_of("\\/");
    parts.push_back(path.substr(0, end));
    if (end == path.npos) return parts;
    path.remove_prefix(end + 1);
  }
}

std::optional<fs::path> FindKey(fs::path folder, std::string_view path) {
  for (const std::string_view part : Split(path)) {
    const std::optional<fs::path> inner = Entry(folder, part, EntryKind::key);
    if (!inner) return {};
    folder = *inner;
  }
  return folder;
}

class FolderKey : public RegistryKey {
 public:
  explicit FolderKey(fs::path folder) : folder_(std::move(folder)) {}

  std::uint32_t ReadString(std::string_view name, std::size_t maxBytes, std::string& value) override {
    value.clear();
    const std::optional<fs::path> path = Entry(folder_, name, EntryKind::value);
    if (!path) return registry_result::fileNotFound;
    std::ifstream file(*path, std::ios::binary);
    if (!file) return registry_result::accessDenied;
    value.resize(maxBytes);
    file.read(value.data(), static_cast<std::streamsize>(value.size()));
    value.resize(static_cast<std::size_t>(file.gcount()));
    return registry_result::success;
  }

  std::uint32_t SubKeyName(std::uint32_t index, std::string& name) override {
    if (!keys_) keys_ = Names(folder_, EntryKind::key);
    if (index >= keys_->size()) return registry_result::noMoreItems;
    name = (*keys_)[index];
    return registry_result::success;
  }

  std::unique_ptr<RegistryKey> Open(std::string_view path, RegistryAccess access, std::uint32_t& result) override {
    (void)access;
    const std::optional<fs::path> found = FindKey(folder_, path);
    result = found ? registry_result::success : registry_result::fileNotFound;
    return found ? std::make_unique<FolderKey>(*found) : nullptr;
  }

  std::uint32_t DeleteSubKey(std::string_view path) override {
    const std::optional<fs::path> found = FindKey(folder_, path);
    if (!found) return registry_result::fileNotFound;
    if (!Names(*found, EntryKind::key).empty()) return registry_result::accessDenied;
    std::error_code error;
    std::vector<fs::path> values;
    for (fs::directory_iterator at(*found, error), end; !error && at != end; at.increment(error)) {
      values.push_back(at->path());
    }
    for (const fs::path& value : values) fs::remove(value, error);  // a link itself, not what it names
    if (!fs::remove(*found, error) || error) return registry_result::accessDenied;
    if (keys_ && found->parent_path() == folder_) std::erase(*keys_, found->filename().string());
    return registry_result::success;
  }

 private:
  fs::path folder_;
  // As the folder was when it was first enumerated: reading it at each index would cost the square of it.
  std::optional<std::vector<std::string>> keys_;
};

}  // namespace

std::unique_ptr<RegistryKey> FolderRegistry::CurrentUser() {
  return std::make_unique<FolderKey>(folder_);
}

bool FolderRegistry::SetString(std::string_view path, std::string_view name, std::string_view value) {
  fs::path folder(folder_);
  std::error_code error;
  for (const std::string_view part : Split(path)) {
    if (!IsPlainName(part)) return false;
    folder = Entry(folder, part, EntryKind::key).value_or(folder / part);
    fs::create_directories(folder, error);
    if (error) return false;
  }
  if (!IsPlainName(name)) return false;
  const fs::path target = Entry(folder, name, EntryKind::value).value_or(folder / name);
  std::ofstream file(target, std::ios::binary);
  file.write(value.data(), static_cast<std::streamsize>(value.size()));
  file.close();
  return !file.fail();
}

}  // namespace set32
