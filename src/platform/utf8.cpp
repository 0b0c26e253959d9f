#include "platform/utf8.h"

#include <cstdint>

namespace set32::utf8 {

namespace {

std::uint8_t ByteAt(std::string_view text, std::size_t index) {
  return static_cast<std::uint8_t>(text[index]);
}

// Length that a lead byte announces, 0 for a byte that leads nothing.
std::size_t AnnouncedLength(std::uint8_t lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

// The second byte rules out overlong forms, surrogates and what lies past U+10FFFF.
bool IsSecondByte(std::uint8_t lead, std::uint8_t second) {
  switch (lead) {
    case 0xE0:
      return second >= 0xA0 && second <= 0xBF;
    case 0xED:
      return second >= 0x80 && second <= 0x9F;
    case 0xF0:
      return second >= 0x90 && second <= 0xBF;
    case 0xF4:
      return second >= 0x80 && second <= 0x8F;
    default:
      return second >= 0x80 && second <= 0xBF;
  }
}

// Length of the well-formed character at the start, 0 when there is none.
std::size_t WellFormedLength(std::string_view text) {
  if (text.empty()) return 0;
  const std::uint8_t lead = ByteAt(text, 0);
  const std::size_t length = AnnouncedLength(lead);
  if (length == 0 || length > text.size()) return 0;
  if (length > 1 && !IsSecondByte(lead, ByteAt(text, 1))) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if ((ByteAt(text, i) & 0xC0) != 0x80) return 0;
  }
  return length;
}

}  // namespace

std::size_t CharacterLength(std::string_view text) {
  if (text.empty()) return 0;
  const std::size_t length = WellFormedLength(text);
  return length == 0 ? 1 : length;
}

bool IsCharacter(std::string_view text) {
  return WellFormedLength(text) != 0;
}

std::string Mend(std::string_view text) {
  std::string mended;
  mended.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = WellFormedLength(text);
    if (length == 0) {
      mended += "\xEF\xBF\xBD";
      text.remove_prefix(1);
    } else {
      mended += text.substr(0, length);
      text.remove_prefix(length);
    }
  }
  return mended;
}

}  // namespace set32::utf8
