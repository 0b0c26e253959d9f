// What the fuzz targets begin with: a folder of inputs and a dictionary a target, written by the product's own
// writers, so that they follow when a format changes.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace set32::fuzz {

// ROOT/TARGET/ holds the inputs, ROOT/TARGET.dict the words, in the form that the fuzzing engine reads.
class Seeds {
 public:
  explicit Seeds(std::filesystem::path root) : root_(std::move(root)) {}

  void Add(std::string_view target, std::string_view bytes);
  void AddWords(std::string_view target, const std::vector<std::string>& words);
  // Long inputs without a meaning, for a target that takes each byte as a choice; always the same ones.
  void AddChoices(std::string_view target, std::size_t size);

 private:
  std::filesystem::path root_;
  int count_ = 0;
};

// Bytes of a record as they lie in memory.
template <typename T>
std::string BytesIn(const T& record) {
  return {reinterpret_cast<const char*>(&record), sizeof(record)};
}

void AddPictures(Seeds& seeds);
void AddProfiles(Seeds& seeds);
void AddScanners(Seeds& seeds);
void AddPanels(Seeds& seeds);
// `scripts` is a folder with some.
void AddScripts(Seeds& seeds, const std::filesystem::path& scripts);

}  // namespace set32::fuzz
