#include "platform/posix/posix_paths.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <string_view>

#include "platform/posix/file_handle.h"

namespace set32 {

namespace {

constexpr mode_t ownerFolder = 0700;
constexpr mode_t permissionBits = 0777;

// Any address inside this module tells which file it was loaded from.
const char anchor = 0;

std::string SharedFolder() {
  const char* const folder = std::getenv("TMPDIR");
  return folder != nullptr && folder[0] == '/' ? folder : "/tmp";
}

// Whether the folder is the user's own and closed to others; one that is merely too open is closed.
bool IsOwnFolder(const std::string& path) {
  const FileHandle folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  struct stat status = {};
  if (!folder.IsOpen() || fstat(folder.Get(), &status) != 0 || status.st_uid != geteuid()) return false;
  return (status.st_mode & permissionBits) == ownerFolder || fchmod(folder.Get(), ownerFolder) == 0;
}

std::string ProgramFile() {
  char path[PATH_MAX];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof(path));
  if (length <= 0 || static_cast<std::size_t>(length) == sizeof(path)) return {};
  return std::string(path, static_cast<std::size_t>(length));
}

}  // namespace

std::string PosixPaths::ModuleFile() {
  Dl_info info = {};
  const bool known = dladdr(&anchor, &info) != 0 && info.dli_fname != nullptr;
  // A program's own file is told as it was called, which may be a bare name; a library's has its folder.
  if (known && info.dli_fname[0] == '/') return info.dli_fname;
  return ProgramFile();
}

std::string PosixPaths::TemporaryFolder() {
  const std::string folder =
      (sharedFolder_.empty() ? SharedFolder() : sharedFolder_) + "/set32-" + std::to_string(geteuid());
  mkdir(folder.c_str(), ownerFolder);
  return IsOwnFolder(folder) ? folder + "/" : std::string();
}

}  // namespace set32
