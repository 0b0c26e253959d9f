// A system without palettes and global memory: a palette is a list of its entries, global memory a block of malloc.
#include "platform/dib_handles.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

namespace set32 {

namespace {

using Palette = std::vector<PaletteEntry>;

}  // namespace

void* MakeLogicalPalette(std::span<const PaletteEntry> entries) {
  const auto taken = entries.first(std::min<std::size_t>(entries.size(), 0xFFFF));
  return std::make_unique<Palette>(taken.begin(), taken.end()).release();
}

std::size_t LogicalPaletteEntries(void* palette, std::span<PaletteEntry> into) {
  if (!palette) return 0;
  const Palette& held = *static_cast<const Palette*>(palette);
  const std::size_t count = std::min(held.size(), into.size());
  std::copy_n(held.begin(), count, into.begin());
  return count;
}

void ReleaseLogicalPalette(void* palette) {
  std::unique_ptr<Palette>(static_cast<Palette*>(palette)).reset();
}

// Nothing on such a system makes a bitmap handle, so there is nothing to give back.
void ReleaseBitmapHandle(void*) {}

void ReleaseGlobalMemory(void* memory) {
  std::free(memory);  // NOLINT(cppcoreguidelines-owning-memory): a host allocated it, in another module
}

}  // namespace set32
