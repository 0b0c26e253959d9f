#include "apps/driver/interpreter.h"

#include <utility>

#include "apps/driver/not_possible.h"
#include "apps/driver/statement_table.h"

namespace set32 {

namespace {

constexpr char boxPlace[] = "box";

// Puts a value back when a run inside a dialog is over.
template <typename T>
class Kept {
 public:
  explicit Kept(T& value) : value_(value), kept_(value) {}
  ~Kept() { value_ = kept_; }
  Kept(const Kept&) = delete;
  Kept& operator=(const Kept&) = delete;

 private:
  T& value_;
  T kept_;
};

std::vector<Word> WordsOrNone(std::string_view line) {
  try {
    return SplitWords(line);
  } catch (const NotPossible&) {
    return {};
  }
}

bool IsWord(const std::vector<Word>& words, std::size_t index, std::string_view text) {
  return index < words.size() && !words[index].quoted && words[index].text == text;
}

// Whether a line begins lines that end with `end`.
bool OpensBlock(const std::vector<Word>& words) {
  return IsWord(words, 0, "when") || (IsWord(words, 0, "expect") && IsWord(words, 1, "heard") && words.size() == 2);
}

}  // namespace

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
  if (statement->isAct && depth_ == 0) session_.Host().ForgetHeard();
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

std::optional<Interpreter::Block> Interpreter::TakeBlock(const std::string& place) {
  const auto queue = blocks_.find(place);
  if (queue == blocks_.end() || queue->second.empty()) return {};
  Block block = std::move(queue->second.front());
  queue->second.pop_front();
  return block;
}

Interpreter::Block Interpreter::ReadBlock() {
  Block block;
  int open = 1;
  while (true) {
    auto line = (*lines_)("... ");
    if (!line) throw NotPossible("`end` is missing");
    const std::vector<Word> words = WordsOrNone(line->text);
    if (OpensBlock(words)) ++open;
    if (IsWord(words, 0, "end") && words.size() == 1 && --open == 0) {
      block.endLine = line->number;
      return block;
    }
    block.lines.push_back(*std::move(line));
  }
}

void Interpreter::OnModalOpened(Dialog& dialog) {
  const WindowHandle window = dialog.Handle();
  const int id = dialog.TemplateId();
  const Inside inside{"dialog " + std::to_string(id), std::to_string(id) + "> ", id,
                      [this, window] { return session_.IsClosed(window); }};
  int line = current_.number;
  if (!Stopped()) {
    auto block = TakeBlock(std::to_string(id));
    if (block) line = block->endLine;
    if (!block && !options_.interactive) {
      Fail(line, inside.name + " opens and no `when` block waits for it");
    } else {
      RunInside(inside, block ? &*block : nullptr);
    }
  }
  if (inside.closed()) return;
  if (!Stopped()) Fail(line, "the `when` block ends while " + inside.name + " is open");
  dialog.EndModal(dialog_result::cancel);
}

void Interpreter::OnModelessOpened(Dialog& dialog) {
  if (Stopped()) return;
  const int id = dialog.TemplateId();
  auto block = TakeBlock(std::to_string(id));
  if (!block) return;
  const WindowHandle window = dialog.Handle();
  const Inside inside{"dialog " + std::to_string(id), {}, id, [this, window] { return session_.IsClosed(window); }};
  RunInside(inside, &*block);
}

BoxAnswer Interpreter::OnBox(const ShownBox& box) {
  if (Stopped()) return FirstAnswer(box.style);
  OpenBox open{box.style, {}};
  const Kept keptBox(box_);
  box_ = &open;
  auto block = TakeBlock(boxPlace);
  if (block || options_.interactive) {
    RunInside({"the box", "box> ", session_.TheDesk().DefaultDialog(), [&open] { return open.answer.has_value(); }},
              block ? &*block : nullptr);
  }
  return open.answer.value_or(FirstAnswer(box.style));
}

void Interpreter::RunInside(const Inside& inside, Block* block) {
  Desk& desk = session_.TheDesk();
  const int outerDialog = desk.DefaultDialog();
  const Kept keptDepth(depth_);
  const Kept keptCurrent(current_);
  ++depth_;
  desk.SetDefaultDialog(inside.defaultDialog);
  if (block != nullptr) RunBlock(inside, *block);
  if (options_.interactive && !inside.prompt.empty()) RunPrompt(inside);
  desk.SetDefaultDialog(outerDialog);
}

void Interpreter::RunBlock(const Inside& inside, Block& block) {
  RunLines([&](const std::string&) -> std::optional<SourceLine> {
    if (block.lines.empty()) return {};
    SourceLine line = std::move(block.lines.front());
    block.lines.pop_front();
    if (inside.closed() && !WordsOrNone(line.text).empty()) {
      Fail(line.number, inside.name + " is closed already");
      return {};
    }
    return line;
  });
}

void Interpreter::RunPrompt(const Inside& inside) {
  RunLines([&](const std::string& prompt) -> std::optional<SourceLine> {
    if (inside.closed()) return {};
    auto line = (*outermost_)(prompt == "> " ? inside.prompt : prompt);
    if (!line) quit_ = true;
    return line;
  });
}

void Interpreter::When(Words words) {
  const Word& where = words[0];
  std::string place = where.text;
  if (where.text != boxPlace) {
    const int id = RequireInt(where);
    if (id == dialog::message || id == dialog::searching) {
      throw NotPossible("dialog " + where.text + " takes no statements");
    }
    if (id != dialog::gamma && id != dialog::saveConfig && id != dialog::addScanner) {
      throw NotPossible("no dialog " + where.text);
    }
    place = std::to_string(id);
  }
  blocks_[place].push_back(ReadBlock());
}

void Interpreter::Restart(Words) {
  blocks_.clear();
  session_.Restart();
}

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

void Interpreter::Quit(Words) {
  quit_ = true;
}

}  // namespace set32
