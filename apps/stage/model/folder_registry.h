// A registry that is a folder: a folder for each key, a file for each value. A person can lay it out and look at it.
//
// Names match without regard to ASCII letter case. Links are never followed: one that lies in a key is no key and no
// value, and goes when its key is deleted. Needs the file system library, so it stays out of the module that ships.
#pragma once

#include <string>
#include <string_view>

#include "platform/registry.h"

namespace set32 {

class FolderRegistry : public Registry {
 public:
  // The folder needn't exist; then there are no keys.
  explicit FolderRegistry(std::string folder) : folder_(std::move(folder)) {}

  std::unique_ptr<RegistryKey> CurrentUser() override;

  // Lays a value, and the keys above it. `path` is separated by '\' or '/'. False for a name that can't be a file's,
  // and when it can't be written.
  bool SetString(std::string_view path, std::string_view name, std::string_view value);

 private:
  std::string folder_;
};

}  // namespace set32
