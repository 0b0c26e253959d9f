// One run of the panel, in a folder of its own, that a walk leads along.
#pragma once

#include <string>

#include "apps/driver/interpreter.h"
#include "apps/driver/session_folder.h"
#include "apps/driver/walk_acts.h"
#include "apps/driver/walk_checks.h"

namespace set32 {

class Walker {
 public:
  // What becomes of `when` blocks that a chunk laid and didn't use. A script keeps them for later.
  enum class Blocks { forgotten, kept };
  explicit Walker(Blocks unused = Blocks::forgotten);

  Session& TheSession() { return interpreter_.TheSession(); }

  enum class Result { held, notPossible, failed };
  struct Outcome {
    Result result = Result::held;
    std::string why;
  };

  // Does what the chunk says, and checks what must always hold.
  Outcome Do(const Chunk& chunk);

 private:
  AssemblyOptions Outside() const;

  Blocks unused_;
  SessionFolder folder_;
  std::string complaint_;
  Interpreter interpreter_;
  WalkChecks checks_;
};

}  // namespace set32
