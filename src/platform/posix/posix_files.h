// Files on a POSIX system.
//
// Only regular files are read. A file that replaces another takes over its permissions; a new one belongs to its user
// alone. A lock is one on a byte of PATH.lock that belongs to an open file, so it ends with its process. Any thread.
#pragma once

#include "platform/files.h"

namespace set32 {

class PosixFiles : public Files {
 public:
  Presence PresenceOf(std::string_view path) override;
  std::optional<std::string> PlaceToReplace(std::string_view path) override;
  std::vector<std::string> EndingsBeside(std::string_view path) override;
  std::unique_ptr<File> OpenToRead(std::string_view path) override;
  std::unique_ptr<File> OpenToWrite(std::string_view path) override;
  bool Replace(std::string_view from, std::string_view to) override;
  bool Remove(std::string_view path) override;
  std::unique_ptr<FileLock> Lock(std::string_view path, int milliseconds) override;
};

}  // namespace set32
