// What comes from a host, from other programs and from a network that keep no promise but those about memory: a
// pointer leads to what it says, and a picture's buffers are as long as its image. All else is any number.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "apps/driver/choices.h"
#include "set32/dib.h"

namespace set32 {

// Writes over a few places of a plain record.
void Bend(void* record, std::size_t size, Choices& choices);
template <typename Record>
void Bend(Record& record, Choices& choices) {
  static_assert(std::is_trivially_copyable_v<Record>);
  Bend(&record, sizeof record, choices);
}

// A picture that its host filled by hand.
class WildPicture {
 public:
  explicit WildPicture(Choices& choices);
  CDib& Dib() { return dib_; }
  // The host scans anew: other pixels, other adjustments, in the same buffers.
  void Change(Choices& choices);

 private:
  BitmapInfoHeader header_{};
  std::vector<std::uint8_t> source_, display_, saved_;
  CDib dib_;
};

// Text of an INI file: sections and keys that the module knows, with any values; now and then any bytes.
std::string WildIniText(Choices& choices);
// Up to `most` bytes, which begin as a scanner's answer in some of the cases.
std::vector<std::uint8_t> WildBytes(Choices& choices, int most);

}  // namespace set32
