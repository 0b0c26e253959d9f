// A script run in a fresh folder, with what it printed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace set32 {

struct ScriptRun {
  int status = 0;
  std::vector<std::string> printed;
  std::vector<std::string> complaints;
};

// The statements of a text, one a line. `folder` is where a preview's file is looked for, with its separator.
ScriptRun RunScript(std::string_view text, const std::string& folder = {}, bool echo = false);

}  // namespace set32
