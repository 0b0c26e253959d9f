// A folder on the disk that goes with its object.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace set32 {

namespace fs = std::filesystem;

class Folder {
 public:
  Folder() {
    for (int i = 0; !fs::create_directory(path_); ++i)
      path_ = fs::temp_directory_path() / ("s32_" + std::to_string(i));
  }
  ~Folder() { fs::remove_all(path_); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  fs::path operator/(const char* name) const { return path_ / name; }
  std::string Text() const { return path_.string(); }

 private:
  fs::path path_ = fs::temp_directory_path();
};

inline void WriteText(const fs::path& file, const std::string& content) {
  fs::create_directories(file.parent_path());
  std::ofstream(file) << content;
}

}  // namespace set32
