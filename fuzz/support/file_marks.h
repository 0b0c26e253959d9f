// How one input holds several files: before each stand a byte that text files don't hold, and the letter of its role.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "apps/driver/module_files.h"

namespace set32::fuzz {

inline constexpr char fileMark = '\x1E';
inline constexpr std::pair<char, ModuleFile> markedRoles[] = {{'m', ModuleFile::module},
                                                              {'h', ModuleFile::hardware},
                                                              {'o', ModuleFile::options},
                                                              {'p', ModuleFile::profile},
                                                              {'l', ModuleFile::list}};

inline std::optional<ModuleFile> FileOfMark(char letter) {
  for (const auto& [mark, file] : markedRoles) {
    if (mark == letter) return file;
  }
  return {};
}

inline std::string Marked(ModuleFile file, std::string_view bytes) {
  for (const auto& [mark, role] : markedRoles) {
    if (role == file) return std::string{fileMark, mark}.append(bytes);
  }
  return {};
}

}  // namespace set32::fuzz
