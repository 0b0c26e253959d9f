// What may stand where a person at a prompt is writing.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace set32 {

struct Candidate {
  std::string text;  // as it is written, quotes included
  std::string note;  // what it is, for a list; may be empty
  bool ends = true;  // a blank may follow; what ends with '=' or a folder's '/' goes on
};

struct Completion {
  std::size_t begin = 0;  // where the word stands that the candidates replace, in bytes of the line
  std::vector<Candidate> candidates;

  // What all candidates begin with, at most whole characters.
  std::string Common() const;
};

}  // namespace set32
