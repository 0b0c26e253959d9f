// Resolution: which entries the list holds, what `dpi` and `resolutionId` become, which typed numbers are good.
//
// Free functions over values; no window, no state, any thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "panel/rules/face_rules.h"
#include "set32/host_records.h"

namespace set32 {

struct ResolutionEntry {
  int stringId;
  std::uint32_t resolutionId;  // resolution::, the entry's data and its bit in DeviceLimits::resolutionMask
  std::int32_t dpi;            // 0 for the user-defined entry
};

// The dpi that a code stands for; 0 for the user-defined one and for a code that is none.
std::int32_t DpiOfCode(std::uint32_t resolutionId);

// What the resolution rules read.
struct ResolutionInput {
  std::uint32_t mode = mode::colour;
  std::uint32_t resolutionId = resolution::dpi100;
  std::int32_t dpi = 100;
  std::uint32_t highBitDepth = 0;
  std::uint32_t descreen = 0;
  std::uint32_t pageSource = paper_source::flatbed;
  std::uint32_t resolutionMask = 0;
  std::uint32_t restrictedMaxDpi = 0;
};

ResolutionInput MakeResolutionInput(const ScanSettings& settings, std::uint32_t pageSource,
                                    std::uint32_t resolutionMask, std::uint32_t restrictedMaxDpi);

// Whether the list is held to `restrictedMaxDpi`, and whether a typed number is held to 600.
bool ListTest(const ResolutionInput& input);
bool EditTest(const ResolutionInput& input);

struct ResolutionList {
  static constexpr std::size_t capacity = 14;

  std::array<ResolutionEntry, capacity> entries;
  std::size_t count = 0;
  int selected = -1;      // position in `entries`, -1 for none
  std::int32_t low = 75;  // typing range of the edit, dpi
  std::int32_t high = 19200;
  std::int32_t dpi = 0;  // what the record is to hold
  std::uint32_t resolutionId = 0;

  std::span<const ResolutionEntry> Entries() const { return {entries.data(), count}; }
};

ResolutionList ComputeResolutionList(const ResolutionInput& input, const FaceRules& rules);

struct DpiLimits {
  std::int32_t low;
  std::int32_t high;

  constexpr bool Contain(std::int32_t dpi) const { return dpi >= low && dpi <= high; }
};

// From where to where a typed dpi is good; also the two numbers of the message about one that isn't.
DpiLimits TypedDpiLimits(const ResolutionInput& input, std::uint16_t minDpi, std::uint16_t maxDpi);

}  // namespace set32
