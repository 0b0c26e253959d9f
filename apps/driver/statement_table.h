// One row a statement: its name, how many words follow, what runs it, and what `help` says.
#pragma once

#include "apps/driver/interpreter.h"

namespace set32 {

struct Interpreter::Statement {
  std::string_view name;
  std::size_t least, most;  // words behind the name
  bool isAct;               // what host or person do: the outermost one begins what `expect heard` looks at
  void (Interpreter::*run)(Words);
  std::string_view form, meaning;
};

}  // namespace set32
