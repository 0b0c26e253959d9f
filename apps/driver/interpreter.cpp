#include "apps/driver/interpreter.h"

#include <utility>

#include "apps/driver/kept.h"
#include "apps/driver/not_possible.h"
#include "apps/driver/statement_form.h"
#include "apps/driver/statement_table.h"
#include "apps/driver/suggestions.h"

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
    try {
      const auto line = NextLine(lines, "> ");
      if (!line) return;
      Execute(*line);
    } catch (const BadLine& trouble) {
      Fail(trouble.Number(), trouble.what());
    }
  }
}

std::optional<SourceLine> Interpreter::NextLine(const LineReader& lines, const std::string& prompt) {
  auto line = lines(prompt);
  if (line && line->text.size() > longestLine) throw BadLine(line->number, "the line is too long");
  if (line && !IsText(line->text)) throw BadLine(line->number, "the line isn't UTF-8");
  return line;
}

void Interpreter::Execute(const SourceLine& line) {
  const Kept keptCurrent(current_);
  current_ = line;
  try {
    Perform(line);
  } catch (const BadLine& trouble) {
    Fail(trouble.Number(), trouble.what());
  } catch (const NotPossible& trouble) {
    Fail(line.number, trouble.what(), trouble.Hint());
  }
}

void Interpreter::Perform(const SourceLine& line) {
  std::vector<Word> words = SplitWords(line.text);
  if (words.empty()) return;
  if (options_.echo) Print("> " + std::string(WithoutComment(line.text)));
  const Statement* statement = words[0].quoted ? nullptr : FindStatement(words[0].text);
  if (statement == nullptr) {
    const bool isNear = !NearWords(words[0].text, StatementNames()).empty();
    throw NotPossible("no statement " + Quote(words[0].text),
                      isNear ? Suggest(words[0].text, StatementNames()) : "`help` lists the statements");
  }
  FoldKeywords(statement->form, std::span(words).subspan(1));
  const std::size_t arguments = words.size() - 1;
  if (arguments < statement->least || arguments > statement->most) {
    throw NotPossible("the form is: " + std::string(statement->form));
  }
  if (statement->isAct && inside_ == nullptr) session_.Host().ForgetHeard();
  (this->*statement->run)(Words(words).subspan(1));
}

// What would be possible stands on a line of its own, so that the first one is the same for everybody.
void Interpreter::Fail(int line, const std::string& why, const std::string& hint) {
  if (failed_) return;
  output_.complain("error " + std::to_string(line) + ": " + why + (hint.empty() ? "" : "\n    " + hint));
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
