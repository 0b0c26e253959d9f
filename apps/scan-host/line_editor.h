// Lines from a person at a terminal. Which of the two kinds is built depends on whether the system has a library for
// it: with editing, history and completion by Tab (libedit/), or plain lines (plain/).
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "apps/driver/completion.h"

namespace set32::scan_host {

class LineEditor {
 public:
  // Gets the line up to the cursor.
  using Completer = std::function<Completion(const std::string& line)>;

  explicit LineEditor(Completer complete);
  ~LineEditor();
  LineEditor(const LineEditor&) = delete;
  LineEditor& operator=(const LineEditor&) = delete;

  // A line without its end; empty for one that was abandoned; nothing at the end of input.
  std::optional<std::string> Read(const std::string& prompt);

 private:
  struct Terminal;
  std::unique_ptr<Terminal> terminal_;
};

}  // namespace set32::scan_host
