#include "apps/scan-host/command_line.h"

#include <array>
#include <limits>

#include "apps/driver/not_possible.h"
#include "apps/driver/script_text.h"
#include "apps/driver/suggestions.h"

namespace set32::scan_host {

const char usage[] =
    "usage: scan-host [--dir DIR] [--language LANGID] [--network simulated|real] [--echo] [SCRIPT]\n"
    "       scan-host --random SEED STEPS [--face sheet|inline] [--record SCRIPT]\n"
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
    "script\n"
    "  --help           this text\n";

namespace {

std::vector<std::string> Options() {
  return {"--dir", "--language", "--network", "--echo", "--random", "--face", "--record", "--help"};
}

// The arguments one after the other.
class Arguments {
 public:
  explicit Arguments(const std::vector<std::string_view>& words) : words_(words) {}

  bool AtEnd() const { return next_ == words_.size(); }
  std::string_view Next() { return words_[next_++]; }

  // What follows an option.
  std::string_view Value(std::string_view option, std::string_view what) {
    if (!AtEnd() && !words_[next_].empty()) return Next();
    throw NotPossible(std::string(option) + " takes " + std::string(what));
  }

  std::int64_t Number(std::string_view option, std::string_view what, std::int64_t low, std::int64_t high) {
    const auto number = ParseInteger(Value(option, what));
    if (number && *number >= low && *number <= high) return *number;
    throw NotPossible(std::string(option) + " takes " + std::string(what),
                      "a number from " + std::to_string(low) + " to " + std::to_string(high));
  }

  // One of two words. Result: whether it is the second.
  bool IsSecond(std::string_view option, std::string_view first, std::string_view second) {
    const std::string what = std::string(first) + " or " + std::string(second);
    const std::string_view word = Value(option, what);
    if (word != first && word != second) throw NotPossible(std::string(option) + " takes " + what);
    return word == second;
  }

 private:
  const std::vector<std::string_view>& words_;
  std::size_t next_ = 0;
};

WalkOptions ReadWalk(Arguments& arguments) {
  constexpr std::string_view what = "SEED STEPS";
  const auto seed = arguments.Number("--random", what, 0, std::numeric_limits<std::uint32_t>::max());
  const auto steps = arguments.Number("--random", what, 1, std::numeric_limits<int>::max());
  return {static_cast<std::uint32_t>(seed), static_cast<int>(steps), "random-" + std::to_string(seed) + ".scn"};
}

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string_view>& words) {
  CommandLine line;
  std::optional<WalkActs::Face> face;
  std::string record;
  for (Arguments arguments(words); !arguments.AtEnd();) {
    const std::string_view argument = arguments.Next();
    if (argument == "--echo") {
      line.echo = true;
    } else if (argument == "--help") {
      line.help = true;
    } else if (argument == "--random") {
      line.walk = ReadWalk(arguments);
    } else if (argument == "--record") {
      record = arguments.Value(argument, "a file to write");
    } else if (argument == "--dir") {
      line.folder = arguments.Value(argument, "a folder");
    } else if (argument == "--language") {
      line.language = static_cast<std::uint16_t>(arguments.Number(argument, "a language id", 0, 0xFFFF));
    } else if (argument == "--network") {
      line.realNetwork = arguments.IsSecond(argument, "simulated", "real");
    } else if (argument == "--face") {
      face = arguments.IsSecond(argument, "sheet", "inline") ? WalkActs::Face::inlinePage : WalkActs::Face::sheet;
    } else if (argument.starts_with('-')) {
      throw NotPossible("no option " + std::string(argument), Suggest(argument, Options()));
    } else if (argument.empty() || !line.script.empty()) {
      throw NotPossible("one script at a time, not also " + Quote(argument));
    } else {
      line.script = argument;
    }
  }
  if (!line.walk && (face || !record.empty())) throw NotPossible("--face and --record belong to --random");
  if (line.walk && !line.script.empty()) throw NotPossible("--random plays no script", "--record writes one");
  if (face) line.walk->face = *face;
  line.recordsWalk = !record.empty();
  if (line.recordsWalk) line.walk->scriptPath = record;
  return line;
}

}  // namespace set32::scan_host
