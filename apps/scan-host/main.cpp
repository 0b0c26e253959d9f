// The console host: arguments and the terminal; apps/driver does the rest.
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <limits>
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
#include "apps/driver/not_possible.h"
#include "apps/driver/random_walk.h"
#include "apps/driver/recorded_walk.h"
#include "apps/driver/session_folder.h"

namespace {

constexpr int exitUsage = 2;
constexpr char usage[] =
    "scan-host [--dir DIR] [--language LANGID] [--network simulated|real] [--echo] [SCRIPT]\n"
    "scan-host --random SEED STEPS [--face sheet|inline] [--record SCRIPT]\n"
    "\n"
    "Opens the scan settings panel as a data source does and plays the person at it. Statements come from SCRIPT, "
    "or\n"
    "from standard input; `help` lists them.\n"
    "\n"
    "  --dir DIR        the module's folder, the temporary folder and the registry lie in it; a fresh one otherwise\n"
    "  --language ID    the system's default language id, 0x0404 unless given\n"
    "  --network KIND   simulated: what the script declares (default); real: this machine's network and devices\n"
    "  --echo           prints each statement behind \"> \"\n"
    "  --random         acts at random, checks what must always hold, and writes random-SEED.scn when it doesn't\n"
    "  --face FACE      the face that --random opens: sheet (default) or inline\n"
    "  --record SCRIPT  writes the random acts that could be done, and looks at everything between them, as a "
    "script\n";

struct CommandLine {
  std::string folder;
  std::uint16_t language = 0x0404;
  bool realNetwork = false;
  bool echo = false;
  bool help = false;
  std::optional<set32::WalkActs::Face> face;
  std::optional<set32::WalkOptions> walk;
  std::string record;
  std::string script;
};

std::optional<set32::WalkOptions> ParseWalk(std::string_view seed, std::string_view steps) {
  const auto seedNumber = set32::ParseInteger(seed);
  const auto stepCount = set32::ParseInteger(steps);
  if (!seedNumber || *seedNumber < 0 || *seedNumber > std::numeric_limits<std::uint32_t>::max()) return {};
  if (!stepCount || *stepCount < 1 || *stepCount > std::numeric_limits<int>::max()) return {};
  return set32::WalkOptions{static_cast<std::uint32_t>(*seedNumber), static_cast<int>(*stepCount),
                            "random-" + std::to_string(*seedNumber) + ".scn"};
}

// Nothing when the arguments make no sense.
std::optional<CommandLine> Parse(const std::vector<std::string_view>& arguments) {
  CommandLine line;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view argument = arguments[i];
    const auto value = [&]() -> std::optional<std::string_view> {
      if (i + 1 >= arguments.size()) return {};
      return arguments[++i];
    };
    if (argument == "--echo") {
      line.echo = true;
    } else if (argument == "--help") {
      line.help = true;
    } else if (argument == "--random") {
      const auto seed = value();
      const auto steps = value();
      line.walk = ParseWalk(seed.value_or(""), steps.value_or(""));
      if (!line.walk) return {};
    } else if (argument == "--record") {
      const auto script = value();
      if (!script || script->empty()) return {};
      line.record = *script;
    } else if (argument == "--dir") {
      const auto folder = value();
      if (!folder || folder->empty()) return {};
      line.folder = *folder;
    } else if (argument == "--language") {
      const auto text = value();
      const auto id = text ? set32::ParseInteger(*text) : std::nullopt;
      if (!id || *id < 0 || *id > 0xFFFF) return {};
      line.language = static_cast<std::uint16_t>(*id);
    } else if (argument == "--network") {
      const auto kind = value();
      if (!kind || (*kind != "simulated" && *kind != "real")) return {};
      line.realNetwork = *kind == "real";
    } else if (argument == "--face") {
      const auto face = value();
      if (!face || (*face != "sheet" && *face != "inline")) return {};
      line.face = *face == "inline" ? set32::WalkActs::Face::inlinePage : set32::WalkActs::Face::sheet;
    } else if (argument.starts_with('-') || argument.empty() || !line.script.empty()) {
      return {};
    } else {
      line.script = argument;
    }
  }
  if (!line.record.empty()) {
    if (!line.walk) return {};
    line.walk->scriptPath = line.record;
  }
  if (line.face) {
    if (!line.walk) return {};
    line.walk->face = *line.face;
  }
  return line;
}

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

set32::LineReader ReaderOf(std::istream& stream, bool prompts) {
  return [&stream, prompts, number = 0](const std::string& prompt) mutable -> std::optional<set32::SourceLine> {
    if (prompts) std::cout << prompt << std::flush;
    set32::SourceLine line;
    if (!std::getline(stream, line.text)) {
      if (prompts) std::cout << '\n';
      return {};
    }
    line.number = ++number;
    if (number == 1 && line.text.starts_with("\xEF\xBB\xBF")) line.text.erase(0, 3);
    return line;
  };
}

// Whoever listens at the other end of a pipe sees each line at its moment.
void Print(const std::string& text) {
  std::cout << text << '\n' << std::flush;
}

int RunSession(const CommandLine& line, std::istream& statements, bool interactive) {
  const set32::SessionFolder folder(line.folder);
  set32::InterpreterOptions options;
  options.echo = line.echo;
  options.interactive = interactive;
  options.scriptFolder = line.script.substr(0, line.script.find_last_of("/\\") + 1);
  const auto complain = [](const std::string& text) { std::cerr << text << '\n'; };
  set32::Interpreter interpreter({folder.Path(), line.language, line.realNetwork}, options, {Print, complain});
  if (interactive) Print("`open` opens the panel, `show page` draws it, `help` lists the statements.");
  const int status = interpreter.Run(ReaderOf(statements, interactive));
  if (!statements.bad()) return status;  // as of a folder
  std::cerr << "scan-host: can't read " << line.script << '\n';
  return exitUsage;
}

}  // namespace

int main(int count, char** values) {
  UseBytes();
  const auto line = Parse({values + 1, values + count});
  if (!line) {
    std::cerr << usage;
    return exitUsage;
  }
  if (line->help) {
    std::cout << usage;
    return 0;
  }
  try {
    if (line->walk)
      return line->record.empty() ? set32::WalkAtRandom(*line->walk, Print) : set32::RecordWalk(*line->walk, Print);
    if (line->script.empty()) return RunSession(*line, std::cin, IsTerminal());
    std::ifstream script(line->script, std::ios::binary);
    if (!script) {
      std::cerr << "scan-host: can't open " << line->script << '\n';
      return exitUsage;
    }
    return RunSession(*line, script, false);
  } catch (const set32::NotPossible& trouble) {
    std::cerr << "scan-host: " << trouble.what() << '\n';  // the folder
    return exitUsage;
  }
}
