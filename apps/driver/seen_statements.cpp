// What is seen, and what must be.
#include "apps/driver/interpreter.h"
#include "apps/driver/not_possible.h"
#include "apps/driver/statement_table.h"

namespace set32 {

void Interpreter::ExpectHeard() {
  std::vector<std::string> expected;
  for (const SourceLine& line : ReadBlock().lines) {
    std::string words = Normalised(line.text);
    if (!words.empty()) expected.push_back(std::move(words));
  }
  const std::vector<std::string>& heard = session_.Host().Heard();
  if (expected == heard) return;
  std::string why = "heard otherwise:";
  for (const std::string& line : heard) why += "\n  " + line;
  throw NotPossible(why);
}

void Interpreter::Expect(Words words) {
  if (words.size() == 1 && !words[0].quoted && words[0].text == "heard") return ExpectHeard();
  if (words[0].text == "show") words = words.subspan(1);
  std::size_t is = 0;
  while (is < words.size() && (words[is].quoted || words[is].text != "is")) ++is;
  if (is == words.size()) throw NotPossible("`is` is missing");
  const Shown shown = session_.Eye().Show(words.first(is));
  if (!shown.oneLine) throw NotPossible("what prints many lines can't be expected");
  const std::string seen = Normalised(std::string_view(shown.lines.front()).substr(shown.headLength));
  const std::string_view line = current_.text;
  const std::size_t begin = words[is].end;
  const std::string expected = Normalised(line.substr(begin));
  if (expected != seen) throw NotPossible("expected " + expected + ", saw " + seen);
}

void Interpreter::Show(Words words) {
  for (const std::string& line : session_.Eye().Show(words).lines) Print(line);
}

void Interpreter::Help(Words words) {
  for (const Statement& statement : Statements()) {
    if (words.empty() || words[0].text == statement.name) {
      Print(std::string(statement.form) + "\n    " + std::string(statement.meaning));
    }
  }
}

}  // namespace set32
