#include "apps/data-source/core/containers.h"

#include <cmath>
#include <cstring>

namespace data_source {

namespace {

constexpr std::size_t rangeLength = 5;
constexpr std::size_t slot = 4;  // bytes of an item in one value and in a range, at the least

std::size_t ItemSize(std::uint16_t type) {
  switch (type) {
    case twain::type::int8:
    case twain::type::uint8:
      return 1;
    case twain::type::int16:
    case twain::type::uint16:
    case twain::type::boolean:
      return 2;
    case twain::type::int32:
    case twain::type::uint32:
    case twain::type::fixed:
      return 4;
    case twain::type::frame:
      return 16;
    default:
      return 0;
  }
}

std::uint32_t BitsOf(std::uint16_t type, double number) {
  std::uint32_t bits = 0;
  if (type == twain::type::fixed || type == twain::type::frame) {
    const twain::Fixed fixed = ToFixed(number);
    std::memcpy(&bits, &fixed, sizeof fixed);
  } else {
    bits = static_cast<std::uint32_t>(std::llround(number));
  }
  return bits;
}

double NumberOf(std::uint16_t type, std::uint32_t bits) {
  switch (type) {
    case twain::type::int8:
      return static_cast<std::int8_t>(bits);
    case twain::type::uint8:
      return static_cast<std::uint8_t>(bits);
    case twain::type::int16:
      return static_cast<std::int16_t>(bits);
    case twain::type::uint16:
    case twain::type::boolean:
      return static_cast<std::uint16_t>(bits);
    case twain::type::int32:
      return static_cast<std::int32_t>(bits);
    case twain::type::uint32:
      return bits;
    default:
      twain::Fixed fixed;
      std::memcpy(&fixed, &bits, sizeof fixed);
      return FromFixed(fixed);
  }
}

class Writer {
 public:
  explicit Writer(std::uint16_t type) : type_(type) { Bits(type, 2); }

  void Word(std::uint32_t word) { Bits(word, 4); }
  void Numbers(std::span<const double> numbers, std::size_t size) {
    for (const double number : numbers) Bits(BitsOf(type_, number), size);
  }
  std::vector<std::uint8_t> Done() { return std::move(bytes_); }

 private:
  void Bits(std::uint32_t bits, std::size_t size) {
    for (; size > 0; --size, bits >>= 8) bytes_.push_back(static_cast<std::uint8_t>(bits));
  }

  std::uint16_t type_;
  std::vector<std::uint8_t> bytes_;
};

std::uint32_t WordAt(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t size) {
  std::uint32_t word = 0;
  std::memcpy(&word, bytes.data() + at, size);
  return word;
}

// The numbers of so many items from a place on. False where the bytes end before.
bool TakeItems(std::span<const std::uint8_t> bytes, std::size_t at, std::uint32_t count, std::size_t itemSize,
               Values& values) {
  if (bytes.size() < at || (bytes.size() - at) / itemSize < count) return false;
  const std::size_t size = itemSize / values.ItemLength();
  for (std::size_t i = 0; i < count * values.ItemLength(); ++i)
    values.numbers.push_back(NumberOf(values.type, WordAt(bytes, at + i * size, size)));
  return true;
}

}  // namespace

twain::Fixed ToFixed(double number) {
  constexpr double parts = 65536;
  if (!(std::abs(number) < 32767)) return {};
  const auto bits = static_cast<std::int32_t>(std::lround(number * parts));
  return {static_cast<std::int16_t>(bits >> 16), static_cast<std::uint16_t>(bits & 0xFFFF)};
}

double FromFixed(twain::Fixed fixed) {
  return fixed.whole + fixed.fraction / 65536.0;
}

std::vector<std::uint8_t> Encode(const Values& values) {
  Writer writer(values.type);
  const auto count = static_cast<std::uint32_t>(values.numbers.size() / values.ItemLength());
  const std::size_t size = ItemSize(values.type) / values.ItemLength();
  switch (values.container) {
    case twain::container::oneValue:
    case twain::container::range:
      writer.Numbers(values.numbers, slot);
      break;
    case twain::container::enumeration:
      writer.Word(count);
      writer.Word(values.current);
      writer.Word(values.standard);
      writer.Numbers(values.numbers, size);
      break;
    default:
      writer.Word(count);
      writer.Numbers(values.numbers, size);
      break;
  }
  return writer.Done();
}

std::optional<Values> Decode(std::uint16_t container, std::span<const std::uint8_t> bytes) {
  if (bytes.size() < sizeof(std::uint16_t)) return {};
  Values values{container, static_cast<std::uint16_t>(WordAt(bytes, 0, 2)), {}};
  const std::size_t itemSize = ItemSize(values.type);
  if (itemSize == 0) return {};
  switch (container) {
    case twain::container::oneValue:
      if (!TakeItems(bytes, 2, 1, itemSize, values)) return {};
      return values;
    case twain::container::range:
      if (values.ItemLength() != 1 || bytes.size() < sizeof(twain::Range)) return {};
      for (std::size_t i = 0; i < rangeLength; ++i)
        values.numbers.push_back(NumberOf(values.type, WordAt(bytes, 2 + i * slot, slot)));
      return values;
    case twain::container::array:
      if (bytes.size() < sizeof(twain::Array) ||
          !TakeItems(bytes, sizeof(twain::Array), WordAt(bytes, 2, 4), itemSize, values))
        return {};
      return values;
    case twain::container::enumeration:
      if (bytes.size() < sizeof(twain::Enumeration)) return {};
      values.current = WordAt(bytes, 6, 4);
      values.standard = WordAt(bytes, 10, 4);
      if (!TakeItems(bytes, sizeof(twain::Enumeration), WordAt(bytes, 2, 4), itemSize, values)) return {};
      if (values.current >= values.numbers.size() / values.ItemLength()) return {};
      return values;
    default:
      return {};
  }
}

}  // namespace data_source
