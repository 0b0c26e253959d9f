#include "apps/scan-desk/pixels/true_colour.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <memory>
#include <new>
#include <span>
#include <utility>
#include <vector>

namespace scan_desk {

using set32::BitmapInfoHeader;
using set32::CDib;
using set32::ColourEntry;

namespace {

constexpr std::uint32_t uncompressed = 0, runLength8 = 1, runLength4 = 2, bitFields = 3;  // compressions
constexpr std::size_t bytesAPixel = 3;

using Palette = std::array<ColourEntry, 256>;

Palette PaletteOf(const CDib& held) {
  Palette palette{};
  const std::size_t count = std::min<std::size_t>(held.colourCount, palette.size());
  if (held.colourTable != nullptr) std::copy_n(held.colourTable, count, palette.begin());
  return palette;
}

// One band of a pixel of bit fields, as a byte.
class Band {
 public:
  explicit Band(std::uint32_t mask) : mask_(mask), shift_(mask == 0 ? 0 : std::countr_zero(mask)) {}

  std::uint8_t Of(std::uint32_t pixel) const {
    const std::uint64_t most = mask_ >> shift_;
    const std::uint64_t value = (pixel & mask_) >> shift_;
    return static_cast<std::uint8_t>(most == 0 ? 0 : value * 255 / most);
  }

 private:
  std::uint32_t mask_;
  int shift_;
};

std::array<Band, 3> BandsOf(const CDib& held) {
  std::array<std::uint32_t, 3> masks{};  // red, green, blue
  if (held.header->compression == bitFields) {
    std::memcpy(masks.data(), held.header + 1, sizeof masks);  // CDib::Read holds them there
  } else if (held.header->bitCount == 16) {
    masks = {0x7C00, 0x03E0, 0x001F};
  } else {
    masks = {0xFF0000, 0xFF00, 0xFF};
  }
  return {Band(masks[0]), Band(masks[1]), Band(masks[2])};
}

// A value of 1, 4 or 8 bits in a row, the leftmost in the highest bits.
std::uint8_t IndexAt(const std::uint8_t* row, std::size_t x, unsigned bits) {
  const std::size_t bit = x * bits;
  return static_cast<std::uint8_t>(row[bit / 8] >> (8 - bits - bit % 8) & ((1U << bits) - 1));
}

void TurnIndices(const std::uint8_t* row, unsigned bits, const Palette& palette, std::span<std::uint8_t> out) {
  for (std::size_t x = 0; x < out.size() / bytesAPixel; ++x) {
    const ColourEntry& colour = palette[IndexAt(row, x, bits)];
    std::memcpy(&out[x * bytesAPixel], &colour, bytesAPixel);
  }
}

void TurnBands(const std::uint8_t* row, std::size_t pixelBytes, const std::array<Band, 3>& bands,
               std::span<std::uint8_t> out) {
  for (std::size_t x = 0; x < out.size() / bytesAPixel; ++x) {
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, row + x * pixelBytes, pixelBytes);
    for (std::size_t band = 0; band < bands.size(); ++band)
      out[x * bytesAPixel + band] = bands[bands.size() - 1 - band].Of(pixel);
  }
}

// Run-length encoded rows as one byte a pixel, bottom-up. Whatever the codes say stays inside the picture.
class RunLengthReader {
 public:
  RunLengthReader(std::span<const std::uint8_t> codes, std::size_t width, std::size_t height, bool ofHalves)
      : codes_(codes), width_(width), height_(height), ofHalves_(ofHalves), indices_(width * height) {}

  std::vector<std::uint8_t> Read() {
    while (y_ < height_ && at_ + 1 < codes_.size()) {
      const std::uint8_t count = codes_[at_++];
      const std::uint8_t value = codes_[at_++];
      if (count != 0) {
        for (unsigned i = 0; i < count; ++i) Put(ofHalves_ ? HalfOf(value, i) : value);
      } else if (value >= 3) {
        Copy(value);
      } else if (!Obey(value)) {
        break;
      }
    }
    return std::move(indices_);
  }

 private:
  static std::uint8_t HalfOf(std::uint8_t value, unsigned index) {
    return static_cast<std::uint8_t>(index % 2 == 0 ? value >> 4 : value & 15);
  }

  void Put(std::uint8_t index) {
    if (x_ < width_) indices_[y_ * width_ + x_] = index;
    ++x_;
  }

  // So many pixels as they stand, filled up to an even number of bytes.
  void Copy(unsigned count) {
    for (unsigned i = 0; i < count; ++i) {
      const std::size_t from = at_ + (ofHalves_ ? i / 2 : i);
      if (from >= codes_.size()) break;
      Put(ofHalves_ ? HalfOf(codes_[from], i) : codes_[from]);
    }
    const std::size_t bytes = ofHalves_ ? (count + 1) / 2 : count;
    at_ += bytes + bytes % 2;
  }

  // The end of a row, the end of the picture, or a step to the right and up. False at the end.
  bool Obey(std::uint8_t code) {
    if (code == 1) return false;
    if (code == 0) {
      x_ = 0;
      ++y_;
    } else if (at_ + 1 < codes_.size()) {
      x_ += codes_[at_++];
      y_ += codes_[at_++];
    }
    return true;
  }

  std::span<const std::uint8_t> codes_;
  std::size_t width_, height_;
  bool ofHalves_;
  std::vector<std::uint8_t> indices_;
  std::size_t at_ = 0, x_ = 0, y_ = 0;
};

// A few codes can't claim gigabytes: at the most a picture is as empty as this.
bool IsInProportion(const CDib& held) {
  constexpr std::uint64_t base = 1 << 20, mostPixelsAByte = 1024;
  const std::uint64_t pixels =
      std::uint64_t{static_cast<std::uint32_t>(held.header->width)} * static_cast<std::uint32_t>(held.header->height);
  return pixels <= base + mostPixelsAByte * held.imageSize;
}

bool IsKnownKind(const CDib& held) {
  const BitmapInfoHeader& header = *held.header;
  switch (header.compression) {
    case uncompressed:
      return header.bitCount == 1 || header.bitCount == 4 || header.bitCount == 8 || header.bitCount == 16 ||
             header.bitCount == 24 || header.bitCount == 32;
    case runLength8:
      return header.bitCount == 8 && header.height > 0 && IsInProportion(held);
    case runLength4:
      return header.bitCount == 4 && header.height > 0 && IsInProportion(held);
    case bitFields:
      return header.bitCount == 16 || header.bitCount == 32;
    default:
      return false;
  }
}

// White, as large as the picture, with room for what is shown.
bool MakeRoom(const CDib& held, CDib& into) {
  constexpr std::uint64_t largest = 0x7FFFFFFF;
  const std::uint64_t stride =
      (std::uint64_t{bytesAPixel} * static_cast<std::uint32_t>(held.header->width) + 3) / 4 * 4;
  if (stride * static_cast<std::uint32_t>(held.header->height) > largest) return false;
  std::unique_ptr<std::uint8_t[]> block(new (std::nothrow) std::uint8_t[sizeof(BitmapInfoHeader)]);
  if (block == nullptr) return false;
  BitmapInfoHeader header{};
  header.headerSize = sizeof header;
  header.width = held.header->width;
  header.height = held.header->height;
  header.planes = 1;
  header.bitCount = bytesAPixel * 8;
  header.pixelsPerMetreX = held.header->pixelsPerMetreX;
  header.pixelsPerMetreY = held.header->pixelsPerMetreY;
  std::memcpy(block.get(), &header, sizeof header);
  into.header = reinterpret_cast<BitmapInfoHeader*>(block.release());
  into.headerOwner = set32::header_owner::object;
  into.ComputeMetrics();
  return into.AllocatePixels(true) && into.displayPixels != nullptr && into.savedPixels != nullptr;
}

void TurnRows(const CDib& held, CDib& into) {
  const BitmapInfoHeader& header = *held.header;
  const auto width = static_cast<std::size_t>(header.width), height = static_cast<std::size_t>(header.height);
  const Palette palette = PaletteOf(held);
  const std::array<Band, 3> bands = BandsOf(held);
  std::vector<std::uint8_t> indices;
  const bool isRunLength = header.compression == runLength8 || header.compression == runLength4;
  if (isRunLength) {
    indices =
        RunLengthReader({held.sourcePixels, held.imageSize}, width, height, header.compression == runLength4).Read();
  }
  for (std::size_t y = 0; y < height; ++y) {
    const std::span<std::uint8_t> out(into.sourcePixels + y * into.stride, width * bytesAPixel);
    const std::uint8_t* row = isRunLength ? indices.data() + y * width : held.sourcePixels + y * held.stride;
    if (isRunLength) {
      TurnIndices(row, 8, palette, out);
    } else if (header.bitCount <= 8) {
      TurnIndices(row, header.bitCount, palette, out);
    } else if (header.bitCount == 24) {
      std::memcpy(out.data(), row, out.size());
    } else {
      TurnBands(row, header.bitCount / 8, bands, out);
    }
  }
}

}  // namespace

TrueColour MakeTrueColour(const CDib& held, CDib& into) {
  if (held.header == nullptr || held.sourcePixels == nullptr || !IsKnownKind(held)) return TrueColour::unknownKind;
  try {
    if (MakeRoom(held, into)) {
      TurnRows(held, into);
      // Until the panel's first refresh the picture is shown as it was scanned.
      std::memcpy(into.displayPixels, into.sourcePixels, into.imageSize);
      return TrueColour::made;
    }
  } catch (const std::bad_alloc&) {
    // Answered below.
  }
  into.Empty();
  return TrueColour::noRoom;
}

void HandOver(CDib& from, CDib& to) {
  to.Empty();
  to.header = std::exchange(from.header, nullptr);
  to.headerOwner = std::exchange(from.headerOwner, set32::header_owner::nobody);
  to.colourTable = std::exchange(from.colourTable, nullptr);
  to.colourCount = std::exchange(from.colourCount, 0);
  to.sourcePixels = std::exchange(from.sourcePixels, nullptr);
  to.displayPixels = std::exchange(from.displayPixels, nullptr);
  to.savedPixels = std::exchange(from.savedPixels, nullptr);
  to.pixelOwner = std::exchange(from.pixelOwner, 0);
  to.ownsDisplay = from.ownsDisplay;
  to.imageSize = std::exchange(from.imageSize, 0);
  to.stride = std::exchange(from.stride, 0);
}

}  // namespace scan_desk
