// The script language of scan-host.
//
// A script drives one session: what the host holds, what host and person do, what is to be seen. Statements inside
// `when` run while a dialog or a box of the panel stands, or while the panel waits for the host's answer to a
// message, called from inside it, so the interpreter is re-entrant: a failure there is noted, the dialog is ended,
// and the script stops as soon as the panel has returned.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "apps/driver/completion.h"
#include "apps/driver/script_text.h"
#include "apps/driver/session.h"

namespace set32 {

// A longer line is no statement. Whoever reads lines need keep no more than one byte above.
inline constexpr std::size_t longestLine = 0x40000;

struct SourceLine {
  int number = 0;
  std::string text;
};

// Where statements come from, line by line; the prompt is for a terminal.
using LineReader = std::function<std::optional<SourceLine>(const std::string& prompt)>;

struct InterpreterOptions {
  bool echo = false;
  bool interactive = false;  // a terminal: errors don't end it, and dialogs without a block are handed to the person
  std::string scriptFolder;  // where a preview's file is looked for after the working folder; with its separator
};

struct InterpreterOutput {
  std::function<void(const std::string& line)> print;
  std::function<void(const std::string& line)> complain;
};

class Interpreter : private SessionListener {
 public:
  Interpreter(const AssemblyOptions& outside, InterpreterOptions options, InterpreterOutput output);
  ~Interpreter() override = default;

  // Runs to the end of the lines or to the first failure. Result: the exit status, 0 or 1.
  int Run(const LineReader& lines);

  // What may stand where the line ends, for a person at a prompt.
  Completion Complete(std::string_view line);

  // Goes on after a failure. Result: whether there was one.
  bool Forgive();

  Session& TheSession() { return session_; }

 private:
  using Words = std::span<const Word>;
  struct Statement;
  static std::span<const Statement> Statements();
  // Without regard to letter case; also by another usual name.
  static const Statement* FindStatement(std::string_view name);
  static std::vector<std::string> StatementNames();

  // The lines of a `when`, with the number of its `end`.
  struct Block {
    std::deque<SourceLine> lines;
    int endLine = 0;
  };

  void OnLine(const std::string& line) override;
  void OnModalOpened(Dialog& dialog) override;
  void OnModelessOpened(Dialog& dialog) override;
  BoxAnswer OnBox(const ShownBox& box) override;
  void OnHostMessage(std::uint32_t message) override;

  // Statements inside a dialog, a box or a message to the host run in a place of their own.
  struct Inside {
    std::string name;                     // "dialog 104", "the box", "message 0x403"
    std::string prompt;                   // "104> "
    int defaultDialog = 0;                // whose controls need no number
    std::function<bool()> closed;         // whether it is gone, and nothing can be done in it any more
    std::function<std::string()> wayOut;  // what a person at the prompt is told of how to leave
  };
  void RunInside(const Inside& inside, Block* block);
  void RunBlock(const Inside& inside, Block& block);
  void RunPrompt(const Inside& inside);
  void RunLines(const LineReader& lines);
  static std::optional<SourceLine> NextLine(const LineReader& lines, const std::string& prompt);

  void Execute(const SourceLine& line);
  void Perform(const SourceLine& line);
  void Fail(int line, const std::string& why, const std::string& hint = {});
  void Print(const std::string& line);
  bool Stopped() const { return failed_ || quit_; }

  std::optional<Block> TakeBlock(const std::string& place);
  Block ReadBlock();

  // What the host holds.
  void Set(Words words);
  void Limits(Words words);
  void Caps(Words words);
  void Preview(Words words);
  std::vector<std::string> PicturesNearby() const;
  void Rectangle(Words words);
  void Arguments(Words words);
  void Ini(Words words);
  void Usb(Words words);
  void Net(Words words);
  void Bytes(Words words);
  void RegistryValue(Words words);
  void Restart(Words words);
  void Record(Words words);
  void Stores(Words words);
  void Answers(Words words);

  // What host and person do.
  void Open(Words words);
  void Close(Words words);
  void EnablePage(Words words);
  void Report(Words words);
  void Send(Words words);
  void Pick(Words words);
  void Click(Words words);
  void Row(Words words);
  void Arrow(Words words);
  void Focus(Words words);
  void Leave(Words words);
  void Type(Words words);
  void Append(Words words);
  void Paste(Words words);
  void Erase(Words words);
  void FillAddress(Words words);
  void Caret(Words words);
  void Drop(Words words);
  void Top(Words words);
  void PressKey(Words words);
  void Scroll(Words words);
  void Spin(Words words);
  void PointAt(Words words);
  void Page(Words words);
  void Resize(Words words);
  void Poke(Words words);
  void Release(Words words);
  void When(Words words);
  void Answer(Words words);

  // What is seen.
  void Show(Words words);
  void Expect(Words words);
  void ExpectHeard();
  void Help(Words words);
  void HelpFor(const std::string& word);
  void ListStatements();
  void ListControls(Dialog& dialog);
  void Quit(Words words);

  InterpreterOptions options_;
  InterpreterOutput output_;
  Session session_;
  bool failed_ = false;
  bool quit_ = false;
  const Inside* inside_ = nullptr;  // the innermost run inside a dialog, a box or a message
  int depth_ = 0;                   // of runs inside one another

  // The statement that runs, where the next line comes from, and where the outermost ones come from.
  SourceLine current_;
  const LineReader* lines_ = nullptr;
  const LineReader* outermost_ = nullptr;

  std::map<std::string, std::deque<Block>> blocks_;  // by dialog's number, "box", or "host" and the message

  struct OpenBox {
    std::uint32_t style = 0;
    std::optional<BoxAnswer> answer;
  };
  OpenBox* box_ = nullptr;  // the box that stands
};

}  // namespace set32
