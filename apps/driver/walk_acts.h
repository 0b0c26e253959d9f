// What a person or a host might do next, as statements of a script.
#pragma once

#include <random>
#include <string>
#include <vector>

#include "apps/driver/session.h"

namespace set32 {

// Statements that belong together: an act with the blocks that it may need.
using Chunk = std::vector<std::string>;

// Looks at what stands and picks an act; the same seed gives the same acts on the same panel.
class WalkActs {
 public:
  enum class Face { sheet, inlinePage };
  WalkActs(std::uint32_t seed, Face face) : random_(seed), face_(face) {}

  // What a walk begins with.
  Chunk First() const;
  Chunk Next(Session& session);

 private:
  int Below(int limit) { return static_cast<int>(random_() % static_cast<std::uint32_t>(limit)); }
  template <typename T, std::size_t N>
  const T& OneOf(const T (&choices)[N]) {
    return choices[Below(static_cast<int>(N))];
  }

  Chunk ByPerson(Session& session, const Dialog& place);
  Chunk AtControl(const Dialog& page, const Control& control);
  Chunk AtBar(const std::string& name, bool isSlider);
  Chunk InEdit(const std::string& name);
  Chunk ByKey();
  Chunk ByHost();
  Chunk BetweenOpenings(int kind);
  Chunk BesideTheInlinePage();
  Chunk InsideAMessage();
  std::string Report();
  std::string NumberText();

  std::mt19937 random_;
  Face face_;
};

}  // namespace set32
