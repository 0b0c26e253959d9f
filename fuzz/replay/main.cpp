// TARGET FOLDER: plays every file of a folder through a fuzz target, where there is no fuzzing engine.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int count, char** values) {
  if (count != 2) {
    std::fprintf(stderr, "%s FOLDER\n", values[0]);
    return 2;
  }
  int played = 0;
  for (const auto& entry : std::filesystem::directory_iterator(values[1])) {
    std::ifstream file(entry.path(), std::ios::binary);
    const std::vector<char> bytes(std::istreambuf_iterator<char>(file), {});
    std::printf("%s\n", entry.path().c_str());
    std::fflush(stdout);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    ++played;
  }
  return played > 0 ? 0 : 1;
}
