#include "platform/dib_handles.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace set32 {

static_assert(sizeof(PaletteEntry) == sizeof(PALETTEENTRY));

void* MakeLogicalPalette(std::span<const PaletteEntry> entries) {
  const std::size_t count = std::min<std::size_t>(entries.size(), 0xFFFF);
  // LOGPALETTE: version and count, then the entries.
  const WORD head[2] = {0x300, static_cast<WORD>(count)};
  std::vector<std::uint8_t> block(sizeof(LOGPALETTE) + count * sizeof(PALETTEENTRY));
  std::memcpy(block.data(), head, sizeof(head));
  if (count) std::memcpy(block.data() + sizeof(head), entries.data(), count * sizeof(PALETTEENTRY));
  return CreatePalette(reinterpret_cast<const LOGPALETTE*>(block.data()));
}

std::size_t LogicalPaletteEntries(void* palette, std::span<PaletteEntry> into) {
  if (!palette || into.empty()) return 0;
  return GetPaletteEntries(static_cast<HPALETTE>(palette), 0, static_cast<UINT>(into.size()),
                           reinterpret_cast<PALETTEENTRY*>(into.data()));
}

void ReleaseLogicalPalette(void* palette) {
  if (palette) DeleteObject(static_cast<HGDIOBJ>(palette));
}

void ReleaseBitmapHandle(void* bitmap) {
  if (bitmap) DeleteObject(static_cast<HGDIOBJ>(bitmap));
}

void ReleaseGlobalMemory(void* memory) {
  if (!memory) return;
  GlobalUnlock(memory);
  GlobalFree(memory);
}

}  // namespace set32
