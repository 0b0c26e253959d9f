// The system's handles that a CDib may hold. They are released where the object lives, in the host's program.
//
// Free functions: an object releases them in its destructor, long after anything was handed to it. Any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace set32 {

// One entry of a logical palette, in the order of the system's own record.
struct PaletteEntry {
  std::uint8_t red;
  std::uint8_t green;
  std::uint8_t blue;
  std::uint8_t flags;
  bool operator==(const PaletteEntry&) const = default;
};

// At most 65535 entries are taken. Null when the system gives none.
void* MakeLogicalPalette(std::span<const PaletteEntry> entries);
// Copies what the palette holds, at most `into.size()` entries. Result: how many were copied; 0 for null.
std::size_t LogicalPaletteEntries(void* palette, std::span<PaletteEntry> into);

// Null is allowed in all of these.
void ReleaseLogicalPalette(void* palette);
void ReleaseBitmapHandle(void* bitmap);
// Locked global memory: unlocked and freed. Where the system has no such thing, a block of std::malloc.
void ReleaseGlobalMemory(void* memory);

}  // namespace set32
