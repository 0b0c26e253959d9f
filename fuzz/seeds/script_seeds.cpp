#include <fstream>
#include <iterator>
#include <sstream>

#include "apps/driver/script_text.h"
#include "apps/driver/settings_fields.h"
#include "apps/driver/walker.h"
#include "fuzz/seeds/seeds.h"
#include "tests/support/script_run.h"

namespace set32::fuzz {

namespace {

constexpr std::size_t largest = 2500;

// What a person could do at random, as a script.
std::string RandomWalk(std::uint32_t seed, WalkActs::Face face) {
  constexpr int steps = 40;
  WalkActs acts(seed, face);
  Walker walker;
  std::string script;
  for (int step = 0; step < steps; ++step) {
    const Chunk chunk = step == 0 ? acts.First() : acts.Next(walker.TheSession());
    if (walker.Do(chunk).result != Walker::Result::held) continue;
    for (const std::string& line : chunk) script += line + '\n';
  }
  return script;
}

// The statements with their words, as `help` lists them, and the fields of the record.
std::vector<std::string> WordsOfTheLanguage() {
  std::vector<std::string> words = {"\n", "when ", "\nend\n", "expect ", " is ", " #1", "103:", "148:", "when box\n"};
  for (const std::string& line : RunScript("help\n").printed) {
    std::istringstream rest(line.substr(0, line.find("  ")));
    for (std::string word; rest >> word;) {
      if (word.front() >= 'a' && word.front() <= 'z') words.push_back(word + ' ');
    }
  }
  std::istringstream fields(AllFields({}));
  for (std::string field; fields >> field;) words.push_back(field.substr(0, field.find('=') + 1));
  return words;
}

}  // namespace

void AddScripts(Seeds& seeds, const std::filesystem::path& scripts) {
  for (const auto& entry : std::filesystem::directory_iterator(scripts)) {
    if (entry.path().extension() != ".scn" || entry.file_size() > largest) continue;
    std::ifstream file(entry.path(), std::ios::binary);
    seeds.Add("fuzz_script", std::string(std::istreambuf_iterator<char>(file), {}));
  }
  constexpr std::uint32_t walks = 6;
  for (std::uint32_t seed = 1; seed <= walks; ++seed) {
    seeds.Add("fuzz_script", RandomWalk(seed, WalkActs::Face::sheet));
    seeds.Add("fuzz_script", RandomWalk(seed, WalkActs::Face::inlinePage));
  }
  seeds.AddWords("fuzz_script", WordsOfTheLanguage());
}

}  // namespace set32::fuzz
