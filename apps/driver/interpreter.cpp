#include "apps/driver/interpreter.h"

#include <utility>

#include "apps/driver/kept.h"
#include "apps/driver/not_possible.h"
#include "apps/driver/statement_table.h"

namespace set32 {

Interpreter::Interpreter(const AssemblyOptions& outside, InterpreterOptions options, InterpreterOutput output)
    : options_(std::move(options)), output_(std::move(output)), session_(outside, *this) {}

int Interpreter::Run(const LineReader& lines) {
  outermost_ = &lines;
  RunLines(lines);
  return failed_ ? 1 : 0;
}

bool Interpreter::Forgive() {
  blocks_.clear();
  return std::exchange(failed_, false);
}

void Interpreter::RunLines(const LineReader& lines) {
  const Kept keptLines(lines_);
  lines_ = &lines;
  while (!Stopped()) {
    const auto line = lines("> ");
    if (!line) return;
    Execute(*line);
  }
}

void Interpreter::Execute(const SourceLine& line) {
  const Kept keptCurrent(current_);
  current_ = line;
  try {
    Perform(line);
  } catch (const NotPossible& trouble) {
    Fail(line.number, trouble.what());
  }
}

void Interpreter::Perform(const SourceLine& line) {
  const std::vector<Word> words = SplitWords(line.text);
  if (words.empty()) return;
  if (options_.echo) Print("> " + std::string(WithoutComment(line.text)));
  const Statement* statement = words[0].quoted ? nullptr : FindStatement(words[0].text);
  if (statement == nullptr) throw NotPossible("no statement " + Quote(words[0].text));
  const std::size_t arguments = words.size() - 1;
  if (arguments < statement->least || arguments > statement->most) {
    throw NotPossible("the form is: " + std::string(statement->form));
  }
  if (statement->isAct && inside_ == nullptr) session_.Host().ForgetHeard();
  (this->*statement->run)(Words(words).subspan(1));
}

void Interpreter::Fail(int line, const std::string& why) {
  if (failed_) return;
  output_.complain("error " + std::to_string(line) + ": " + why);
  failed_ = !options_.interactive;
}

// What happens while a failed script comes to its end is no part of it.
void Interpreter::Print(const std::string& line) {
  if (!failed_) output_.print(line);
}

void Interpreter::OnLine(const std::string& line) {
  Print(line);
}

void Interpreter::Quit(Words) {
  quit_ = true;
}

}  // namespace set32
