// Somebody in the other network who floods a searcher: answers, noise and datagrams of every length, from addresses
// that nobody has.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "apps/driver/choices.h"
#include "platform/posix/file_handle.h"

namespace set32 {

class Flooder {
 public:
  enum class Kind { answers, noise, mixed };
  Flooder(Kind kind, std::uint32_t target, std::uint32_t seed) : kind_(kind), target_(target), dice_(seed) {}

  // False where the system doesn't let it send what it likes.
  bool Open();
  // Without end, at the port of a search and at those from which requests come.
  [[noreturn]] void Flood();

 private:
  std::vector<std::uint8_t> Next();
  void Send(std::uint16_t port);
  void LearnPort();

  Kind kind_;
  std::uint32_t target_;  // in host order
  Dice dice_;
  FileHandle listening_, sending_;
  std::uint16_t askedFrom_ = 0;
};

}  // namespace set32
