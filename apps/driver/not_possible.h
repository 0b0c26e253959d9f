// What a script's statement, or a scenario's act, could not do, and why.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace set32 {

class NotPossible : public std::runtime_error {
 public:
  explicit NotPossible(const std::string& why, std::string hint = {})
      : std::runtime_error(why), hint_(std::move(hint)) {}

  // What would be possible; empty when there is nothing to say.
  const std::string& Hint() const { return hint_; }

 private:
  std::string hint_;
};

// A line that is no text, wherever it is read.
class BadLine : public NotPossible {
 public:
  BadLine(int number, const std::string& why) : NotPossible(why), number_(number) {}
  int Number() const { return number_; }

 private:
  int number_;
};

}  // namespace set32
