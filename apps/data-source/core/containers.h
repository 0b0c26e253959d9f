// The containers in which values of capabilities travel, from and to bytes that an application laid.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "apps/data-source/twain_protocol.h"

namespace data_source {

twain::Fixed ToFixed(double number);  // the nearest; one that can't be told is 0
double FromFixed(twain::Fixed fixed);

struct Values {
  std::uint16_t container = twain::container::oneValue;
  std::uint16_t type = twain::type::uint16;
  // The items, of which a frame takes four (left, top, right, bottom). Of a range: low, high, step, standard,
  // current.
  std::vector<double> numbers;
  std::uint32_t current = 0, standard = 0;  // items of an enumeration

  // Numbers of one item.
  std::size_t ItemLength() const { return type == twain::type::frame ? 4 : 1; }
};

std::vector<std::uint8_t> Encode(const Values& values);
// Nothing for a container or type that isn't known, for bytes that are too few for what they announce, and for an
// enumeration whose current item isn't in it.
std::optional<Values> Decode(std::uint16_t container, std::span<const std::uint8_t> bytes);

}  // namespace data_source
