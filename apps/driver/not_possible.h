// What a script's statement, or a scenario's act, could not do, and why.
#pragma once

#include <stdexcept>
#include <string>

namespace set32 {

class NotPossible : public std::runtime_error {
 public:
  explicit NotPossible(const std::string& why) : std::runtime_error(why) {}
};

}  // namespace set32
