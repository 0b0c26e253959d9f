#include "fuzz/seeds/seeds.h"

#include <fstream>
#include <random>
#include <stdexcept>

namespace set32::fuzz {

namespace {

namespace fs = std::filesystem;

void Write(const fs::path& path, std::string_view bytes, std::ios::openmode how = std::ios::out) {
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary | how);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw std::runtime_error("can't write " + path.string());
}

std::string QuotedWord(std::string_view word) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text = "\"";
  for (const char c : word) {
    const auto byte = static_cast<unsigned char>(c);
    const bool isPlain = byte >= ' ' && byte < 0x7F && c != '"' && c != '\\';
    text += isPlain ? std::string{c} : std::string{'\\', 'x', digits[byte >> 4], digits[byte & 15]};
  }
  return text + "\"\n";
}

}  // namespace

void Seeds::Add(std::string_view target, std::string_view bytes) {
  Write(root_ / target / std::to_string(++count_), bytes);
}

void Seeds::AddWords(std::string_view target, const std::vector<std::string>& words) {
  for (const std::string& word : words) {
    if (!word.empty()) Write(root_ / (std::string(target) + ".dict"), QuotedWord(word), std::ios::app);
  }
}

void Seeds::AddChoices(std::string_view target, std::size_t size) {
  constexpr int inputs = 8;
  std::mt19937 random;
  for (int input = 0; input < inputs; ++input) {
    std::string bytes(size, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    Add(target, bytes);
  }
}

}  // namespace set32::fuzz
