// The console host: the terminal and the script's file; apps/driver does the rest.
#include <cstdio>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <unistd.h>
#endif

#include "apps/driver/interpreter.h"
#include "apps/driver/nearby_files.h"
#include "apps/driver/not_possible.h"
#include "apps/driver/random_walk.h"
#include "apps/driver/recorded_walk.h"
#include "apps/driver/session_folder.h"
#include "apps/driver/suggestions.h"
#include "apps/scan-host/command_line.h"
#include "apps/scan-host/line_editor.h"

namespace {

using set32::scan_host::CommandLine;

constexpr int exitUsage = 2;
// Where the prompt looks for pictures beside the working folder.
constexpr char samplesFolder[] = "samples/";

bool IsTerminal() {
#ifdef _WIN32
  return _isatty(_fileno(stdin)) != 0 && _isatty(_fileno(stdout)) != 0;
#else
  return isatty(STDIN_FILENO) == 1 && isatty(STDOUT_FILENO) == 1;
#endif
}

// Line ends as everywhere, and no byte of a piped script that ends it.
void UseBytes() {
#ifdef _WIN32
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  if (!IsTerminal()) _setmode(_fileno(stdin), _O_BINARY);
#endif
}

// A line that is longer than any statement is kept as far as that shows.
std::optional<std::string> ReadLine(std::istream& stream) {
  std::string line;
  std::streambuf& bytes = *stream.rdbuf();
  constexpr int end = std::char_traits<char>::eof();
  int byte = bytes.sbumpc();
  if (byte == end) return {};
  for (; byte != end && byte != '\n'; byte = bytes.sbumpc()) {
    if (line.size() <= set32::longestLine) line += static_cast<char>(byte);
  }
  return line;
}

set32::LineReader ReaderOf(std::istream& stream) {
  return [&stream, number = 0](const std::string&) mutable -> std::optional<set32::SourceLine> {
    auto text = ReadLine(stream);
    if (!text) return {};
    set32::SourceLine line{++number, *std::move(text)};
    if (number == 1 && line.text.starts_with("\xEF\xBB\xBF")) line.text.erase(0, 3);
    return line;
  };
}

// Whoever listens at the other end of a pipe sees each line at its moment.
void Print(const std::string& text) {
  std::cout << text << '\n' << std::flush;
}

void Complain(const std::string& text) {
  std::cerr << text << '\n';
}

// With what would help under it, where there is something.
void Complain(const set32::NotPossible& trouble) {
  Complain(std::string("scan-host: ") + trouble.what());
  if (!trouble.Hint().empty()) Complain("    " + trouble.Hint());
}

int RunSession(const CommandLine& line, const set32::LineReader& statements) {
  const set32::SessionFolder folder(line.folder);
  set32::InterpreterOptions options;
  options.echo = line.echo;
  options.scriptFolder = line.script.substr(0, line.script.find_last_of("/\\") + 1);
  set32::Interpreter interpreter({folder.Path(), line.language, line.realNetwork}, options,
                                 {Print, [](const std::string& text) { Complain(text); }});
  return interpreter.Run(statements);
}

int RunPrompt(const CommandLine& line) {
  const set32::SessionFolder folder(line.folder);
  set32::InterpreterOptions options;
  options.echo = line.echo;
  options.interactive = true;
  options.scriptFolder = samplesFolder;
  set32::Interpreter interpreter({folder.Path(), line.language, line.realNetwork}, options,
                                 {Print, [](const std::string& text) { Complain(text); }});
  set32::scan_host::LineEditor editor([&](const std::string& text) { return interpreter.Complete(text); });
  Print("`open` opens the panel, `show page` draws it, `help` lists the statements; Tab completes, `quit` ends.");
  return interpreter.Run([&, number = 0](const std::string& prompt) mutable -> std::optional<set32::SourceLine> {
    auto text = editor.Read(prompt);
    if (!text) return {};
    return set32::SourceLine{++number, *std::move(text)};
  });
}

int RunScript(const CommandLine& line) {
  std::ifstream script(line.script, std::ios::binary);
  // A folder opens, and can't be read.
  if (!script || (script.peek() == std::char_traits<char>::eof() && script.bad())) {
    throw set32::NotPossible(std::string(script.is_open() ? "can't read " : "can't open ") + line.script,
                             set32::Suggest(line.script, set32::ScriptsNear(line.script)));
  }
  script.clear();
  return RunSession(line, ReaderOf(script));
}

int Run(const CommandLine& line) {
  if (line.walk)
    return line.recordsWalk ? set32::RecordWalk(*line.walk, Print) : set32::WalkAtRandom(*line.walk, Print);
  if (!line.script.empty()) return RunScript(line);
  return IsTerminal() ? RunPrompt(line) : RunSession(line, ReaderOf(std::cin));
}

}  // namespace

int main(int count, char** values) {
  UseBytes();
  CommandLine line;
  try {
    line = set32::scan_host::ParseCommandLine({values + 1, values + count});
  } catch (const set32::NotPossible& trouble) {
    Complain(trouble);
    std::cerr << '\n' << set32::scan_host::usage;
    return exitUsage;
  }
  if (line.help) {
    std::cout << set32::scan_host::usage;
    return 0;
  }
  try {
    return Run(line);
  } catch (const set32::NotPossible& trouble) {
    Complain(trouble);  // the folder or the script
    return exitUsage;
  }
}
