// Every script in data/scripts is played. FILE.out beside it holds what it prints. FILE.err holds how it fails: each
// of its parts, between lines of "#----", is a script of its own and ends with one of the lines, and with the hint
// where one stands under it, behind blanks. A script with neither proves itself by its `expect` lines.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
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

// Lines that depend on more than what most scripts are about. A transcript that holds one of a kind holds all of
// them.
std::string KindLeftOut(const std::string& line) {
  const auto words = RawWords(line);
  if (words.empty()) return {};
  if (words[0] == "repaint" || words[0] == "beep") return words[0];
  if (words[0] != "dialog" || words.size() < 2) return {};
  return words[1] == "115" || words[1] == "120" ? words[1] : std::string();
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream rest(text);
  for (std::string line; std::getline(rest, line);) lines.push_back(line);
  return lines;
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

void ExpectTranscript(const std::vector<std::string>& expected, const std::vector<std::string>& printed) {
  ASSERT_FALSE(expected.empty());
  std::set<std::string> kinds = {""};
  for (const std::string& line : expected) kinds.insert(KindLeftOut(line));
  std::vector<std::string> seen;
  std::copy_if(printed.begin(), printed.end(), std::back_inserter(seen),
               [&](const std::string& line) { return kinds.contains(KindLeftOut(line)); });
  for (std::size_t i = 0; i < std::max(expected.size(), seen.size()); ++i) {
    const std::string want = i < expected.size() ? expected[i] : "(nothing)";
    const std::string got = i < seen.size() ? seen[i] : "(nothing)";
    ASSERT_TRUE(LineFits(want, got)) << "line " << i + 1 << "\n  want " << want << "\n  got  " << got;
  }
}

// The parts of a script that fails, each behind as many empty lines as keep its line numbers.
std::vector<std::string> PartsOf(const std::string& script) {
  std::vector<std::string> parts(1);
  std::string above;
  for (const std::string& line : LinesOf(script)) {
    above += '\n';
    if (line == "#----") {
      parts.push_back(above);
    } else {
      parts.back() += line + '\n';
    }
  }
  return parts;
}

// Each failure, with the hint that it is told with.
std::vector<std::string> FailuresOf(const std::vector<std::string>& lines) {
  std::vector<std::string> failures;
  for (const std::string& line : lines) {
    if (line.starts_with(' ') && !failures.empty()) {
      failures.back() += '\n' + line;
    } else {
      failures.push_back(line);
    }
  }
  return failures;
}

void ExpectFailures(const std::string& script, const std::vector<std::string>& expected, const std::string& folder) {
  const std::vector<std::string> parts = PartsOf(script);
  ASSERT_EQ(parts.size(), expected.size());
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const ScriptRun run = RunScript(parts[i], folder);
    ASSERT_EQ(run.complaints.size(), 1U) << expected[i];
    const bool tellsHint = LinesOf(expected[i]).size() > 1;
    EXPECT_EQ(tellsHint ? run.complaints.front() : LinesOf(run.complaints.front()).front(), expected[i]);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(std::ranges::count(run.printed, "dpi=100"), 0) << "what stands behind the failure was played";
  }
}

class Transcripts : public testing::TestWithParam<fs::path> {
 protected:
  static std::string Beside(const char* extension) {
    const fs::path file = fs::path(GetParam()).replace_extension(extension);
    return fs::exists(file) ? WholeFile(file) : std::string();
  }
};

TEST_P(Transcripts, Hold) {
  const std::string script = WholeFile(GetParam());
  const std::string folder = GetParam().parent_path().string() + '/';
  const std::vector<std::string> transcript = LinesOf(Beside(".out"));
  if (const std::vector<std::string> failures = FailuresOf(LinesOf(Beside(".err"))); !failures.empty()) {
    return ExpectFailures(script, failures, folder);
  }
  const bool echo = !transcript.empty() && transcript.front().starts_with("> ");
  const ScriptRun run = RunScript(script, folder, echo);
  ASSERT_EQ(run.complaints, std::vector<std::string>{});
  EXPECT_EQ(run.status, 0);
  if (transcript.empty()) {
    EXPECT_NE(script.find("\nexpect "), std::string::npos) << "it proves nothing";
  } else {
    ExpectTranscript(transcript, run.printed);
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
