// A fresh folder that goes with its object, for tests that need real files.
#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace set32 {

class ScratchFolder {
 public:
  ScratchFolder() {
    static std::atomic<int> counter{0};
    const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
    folder_ = std::filesystem::temp_directory_path() /
              ("set32-test-" + std::to_string(ticks) + "-" + std::to_string(counter++));
    std::filesystem::create_directories(folder_);
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  std::string Path(std::string_view name) const { return (folder_ / name).string(); }

  std::string Write(std::string_view name, std::string_view bytes) const {
    std::ofstream(Path(name), std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return Path(name);
  }

  std::string Read(std::string_view name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  // Names of the files, locks left out.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
      if (entry.path().extension() != ".lock") names.push_back(entry.path().filename().string());
    }
    return names;
  }

 private:
  std::filesystem::path folder_;
};

}  // namespace set32
