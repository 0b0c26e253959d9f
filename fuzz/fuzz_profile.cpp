// Whole files through the profile engine: no content leads a reader out of it, and a write changes what was asked for
// and nothing else.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "platform/profile_engine.h"
#include "profile/profile_file.h"
#include "tests/support/memory_files.h"

namespace {

using namespace set32;

void Check(bool holds) {
  if (!holds) std::abort();
}

// The input's first line gives section, key and value, separated by tabs; the file is the rest.
struct Input {
  std::string section;
  std::string key;
  std::string value;
  std::string file;
};

Input Split(std::string_view data) {
  const auto take = [&data](char end) {
    const std::size_t at = std::min(data.find(end), data.size());
    const std::string_view part = data.substr(0, std::min(data.substr(0, at).find('\0'), at));
    data.remove_prefix(std::min(at + 1, data.size()));
    return std::string(part);
  };
  Input input;
  input.section = take('\t');
  input.key = take('\t');
  input.value = take('\n');
  input.file = data;
  return input;
}

// Every name of the section leads to a value of its own.
void ReadAll(const CProfileFile& profile, const char* section) {
  std::vector<std::string> names;
  profile.GetKeyNames(section, &names);
  std::size_t total = 0;
  for (const std::string& name : names) total += name.size() + 1;
  Check(profile.GetKeyList(section, {}) == total);
  for (const std::string& name : names) profile.ReadValue(section, name.c_str(), nullptr);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Input input = Split({reinterpret_cast<const char*>(data), size});
  const char* const section = input.section.c_str();
  const char* const key = input.key.c_str();
  MemoryFiles files;
  files.content["f"] = input.file;
  ProfileEngine engine(files);
  CProfileFile profile(engine);
  profile.SetFileName("f");
  ReadAll(profile, section);
  profile.GetInteger(section, key, 1, 16);
  profile.GetDouble(section, key, 1.0);

  // A small buffer stays within itself and is terminated.
  std::array<char, 9> small{};
  small.back() = '?';
  const std::span<char> out = std::span(small).first(size % 9);
  const std::size_t count = engine.GetSection(section, out, "f");
  Check(out.empty() ? count == 0 : count < out.size() && out[count] == '\0');
  Check(small.back() == '?');

  const bool written = engine.WriteString(section, key, input.value.c_str(), "f");
  Check(files.content.size() == 1);
  if (!written) {
    Check(files.content["f"] == input.file);
    return 0;
  }
  std::string asRead(input.value.size() + 2, '\0');
  asRead.resize(engine.GetString(section, key, "missing", asRead, "f"));
  // Blanks and quotes at the ends are the only things that a value may lose.
  Check(input.value.find(asRead) != std::string::npos);
  const std::string after = files.content["f"];
  Check(after.size() + input.file.size() >= input.value.size());

  // Writing it again changes nothing; what is removed is gone or a later one of its name, and the file only shrinks.
  Check(engine.WriteString(section, key, input.value.c_str(), "f") && files.content["f"] == after);
  Check(engine.WriteString(section, key, nullptr, "f") && files.content["f"].size() < after.size());
  for (std::size_t left = files.content["f"].size(); left > 0;) {
    Check(engine.WriteString(section, nullptr, nullptr, "f"));
    const std::size_t now = files.content["f"].size();
    if (now == left) break;
    left = now;
  }
  Check(engine.GetSection(section, asRead, "f") == 0);
  return 0;
}
