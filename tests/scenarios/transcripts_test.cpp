// Every script in data/scripts prints what lies beside it.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "apps/driver/script_text.h"
#include "tests/support/script_run.h"

namespace set32 {
namespace {

namespace fs = std::filesystem;

std::string WholeFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<fs::path> Scripts() {
  std::vector<fs::path> scripts;
  for (const auto& entry : fs::directory_iterator(fs::path(SET32_TEST_DATA) / "scripts")) {
    if (entry.path().extension() == ".scn") scripts.push_back(entry.path());
  }
  std::sort(scripts.begin(), scripts.end());
  return scripts;
}

std::vector<std::string> RawWords(const std::string& line) {
  std::vector<std::string> words;
  for (const Word& word : SplitWords(line)) words.push_back(line.substr(word.begin, word.end - word.begin));
  return words;
}

// These lines depend on more than what a script is about, so its transcript leaves them out.
bool IsLeftOut(const std::string& line) {
  const auto words = RawWords(line);
  if (words.empty()) return false;
  return words[0] == "repaint" || words[0] == "beep" ||
         (words[0] == "dialog" && words.size() > 1 && (words[1] == "115" || words[1] == "120"));
}

// '*' stands for any word; a word may hold one as well ("index=*").
bool WordFits(std::string_view expected, std::string_view seen) {
  const std::size_t star = expected.find('*');
  if (star == std::string_view::npos) return expected == seen;
  return seen.size() + 1 >= expected.size() && seen.starts_with(expected.substr(0, star)) &&
         seen.ends_with(expected.substr(star + 1));
}

bool LineFits(const std::string& expected, const std::string& seen) {
  const auto expectedWords = RawWords(expected);
  const auto seenWords = RawWords(seen);
  return std::equal(expectedWords.begin(), expectedWords.end(), seenWords.begin(), seenWords.end(), WordFits);
}

class Transcripts : public testing::TestWithParam<fs::path> {};

TEST_P(Transcripts, PrintWhatLiesBeside) {
  const fs::path script = GetParam();
  const ScriptRun run = RunScript(WholeFile(script), script.parent_path().string() + '/');
  EXPECT_EQ(run.complaints, std::vector<std::string>{});

  std::vector<std::string> seen;
  std::remove_copy_if(run.printed.begin(), run.printed.end(), std::back_inserter(seen), IsLeftOut);
  std::vector<std::string> expected;
  std::istringstream transcript(WholeFile(fs::path(script).replace_extension(".out")));
  for (std::string line; std::getline(transcript, line);) expected.push_back(line);
  ASSERT_FALSE(expected.empty());

  for (std::size_t i = 0; i < std::max(expected.size(), seen.size()); ++i) {
    const std::string want = i < expected.size() ? expected[i] : "(nothing)";
    const std::string got = i < seen.size() ? seen[i] : "(nothing)";
    EXPECT_TRUE(LineFits(want, got)) << "line " << i + 1 << "\n  want " << want << "\n  got  " << got;
  }
}

std::string NameOf(const testing::TestParamInfo<fs::path>& script) {
  std::string name = script.param.stem().string();
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c == '-'; }, '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(All, Transcripts, testing::ValuesIn(Scripts()), NameOf);

}  // namespace
}  // namespace set32
