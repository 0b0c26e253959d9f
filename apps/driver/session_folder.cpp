#include "apps/driver/session_folder.h"

#include <filesystem>
#include <random>
#include <system_error>

#include "apps/driver/not_possible.h"

namespace set32 {

namespace {

namespace fs = std::filesystem;

// Only the one who creates it has the name, so two hosts that start at once never share a folder.
std::string MakeFresh() {
  constexpr int tries = 100;
  std::error_code trouble;
  const fs::path above = fs::temp_directory_path(trouble);
  std::random_device random;
  for (int i = 0; i < tries && !trouble; ++i) {
    const fs::path folder = above / ("scan-host-" + std::to_string(random()));
    if (!fs::create_directory(folder, trouble) || trouble) continue;
    fs::permissions(folder, fs::perms::owner_all, trouble);
    return folder.string();
  }
  throw NotPossible("can't make a folder in " + above.string());
}

}  // namespace

SessionFolder::SessionFolder(const std::string& given)
    : path_(given.empty() ? MakeFresh() : given), fresh_(given.empty()) {
  for (const char* name : {"module", "temp", "registry"}) {
    std::error_code trouble;
    fs::create_directories(fs::path(path_) / name, trouble);
    if (trouble) throw NotPossible("can't make " + path_ + "/" + name + ": " + trouble.message());
  }
}

SessionFolder::~SessionFolder() {
  std::error_code ignored;
  if (fresh_) fs::remove_all(path_, ignored);
}

}  // namespace set32
