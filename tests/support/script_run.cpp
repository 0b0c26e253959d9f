#include "tests/support/script_run.h"

#include <sstream>

#include "apps/driver/interpreter.h"
#include "apps/driver/session_folder.h"

namespace set32 {

ScriptRun RunScript(std::string_view text, const std::string& folder, bool echo) {
  const SessionFolder place;
  ScriptRun run;
  InterpreterOptions options;
  options.echo = echo;
  options.scriptFolder = folder;
  Interpreter interpreter({.folder = place.Path(), .quickFiles = true}, options,
                          {[&run](const std::string& line) { run.printed.push_back(line); },
                           [&run](const std::string& line) { run.complaints.push_back(line); }});
  std::istringstream lines{std::string(text)};
  int number = 0;
  run.status = interpreter.Run([&](const std::string&) -> std::optional<SourceLine> {
    SourceLine line;
    if (!std::getline(lines, line.text)) return {};
    line.number = ++number;
    return line;
  });
  return run;
}

}  // namespace set32
