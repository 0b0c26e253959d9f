#include "resources/picture_reader.h"

#include <cstddef>
#include <cstdlib>
#include <optional>

#include "set32/dib.h"

namespace set32 {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t fileHeaderSize = 14;
constexpr std::size_t iconHeaderSize = 6;
constexpr std::size_t iconEntrySize = 16;
constexpr std::int32_t largestSide = 1024;

// Little-endian numbers; what lies past the end reads as 0, which every caller takes for damage or tests beforehand.
std::uint32_t Number(Bytes bytes, std::size_t at, std::size_t size) {
  std::uint32_t number = 0;
  for (std::size_t i = size; i-- > 0;) {
    number = number << 8 | (at + i < bytes.size() ? bytes[at + i] : 0U);
  }
  return number;
}

std::uint32_t U16(Bytes bytes, std::size_t at) {
  return Number(bytes, at, 2);
}
std::uint32_t U32(Bytes bytes, std::size_t at) {
  return Number(bytes, at, 4);
}

Bytes From(Bytes bytes, std::size_t at) {
  return at <= bytes.size() ? bytes.subspan(at) : Bytes{};
}

// Rows of whole 32-bit words.
std::size_t StrideOf(int width, unsigned bits) {
  return (static_cast<std::size_t>(width) * bits + 31) / 32 * 4;
}

// What a bitmap's header says, checked for all that the reading of pixels leans on.
struct Header {
  int width;
  int height;  // rows stored, so twice the picture's in an icon
  bool topDown;
  unsigned bits;
  std::size_t tableAt;  // from the header's start
  std::size_t colours;

  std::size_t End() const { return tableAt + colours * sizeof(ColourEntry); }
};

std::optional<Header> ReadHeader(Bytes dib) {
  const std::uint32_t size = U32(dib, 0);
  const auto width = static_cast<std::int32_t>(U32(dib, 4));
  const auto height = static_cast<std::int32_t>(U32(dib, 8));
  const std::uint32_t bits = U16(dib, 14);
  const std::uint32_t compression = U32(dib, 16);
  const std::uint32_t coloursUsed = U32(dib, 32);
  if (size < sizeof(BitmapInfoHeader) || size > dib.size() || compression != 0) return {};
  if (width < 1 || width > largestSide) return {};
  if (height == 0 || height < -largestSide || height > 2 * largestSide) return {};
  if (bits != 4 && bits != 8 && bits != 24) return {};
  const std::uint32_t most = bits == 24 ? 0 : 1U << bits;
  if (bits != 24 && coloursUsed > most) return {};
  const Header header{
      width, std::abs(height), height < 0, bits, size, coloursUsed != 0 && most != 0 ? coloursUsed : most};
  if (header.End() > dib.size()) return {};
  return header;
}

// Rows of one size in a file; row 0 is the picture's uppermost.
class Rows {
 public:
  Rows(Bytes bytes, std::size_t stride, int height, bool topDown)
      : bytes_(bytes), stride_(stride), height_(height), topDown_(topDown) {}

  std::size_t Size() const { return stride_ * static_cast<std::size_t>(height_); }
  bool AreWhole() const { return bytes_.size() >= Size(); }
  Bytes Row(int y) const {
    return bytes_.subspan(stride_ * static_cast<std::size_t>(topDown_ ? y : height_ - 1 - y), stride_);
  }

 private:
  Bytes bytes_;
  std::size_t stride_;
  int height_;
  bool topDown_;
};

// The pixel's place in the colour table.
std::size_t IndexAt(Bytes row, int x, unsigned bits) {
  const auto column = static_cast<std::size_t>(x);
  if (bits == 8) return row[column];
  return column % 2 == 0 ? row[column / 2] >> 4U : row[column / 2] & 0x0FU;
}

bool MaskedOut(Bytes row, int x) {
  const auto column = static_cast<std::size_t>(x);
  return (row[column / 8] >> (7 - column % 8) & 1U) != 0;
}

// `mask` is null for a picture that is opaque all over.
Picture Decode(Bytes dib, const Header& header, const Rows& colours, const Rows* mask, Size size) {
  Picture picture{{}, size, {}};
  picture.pixels.reserve(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) * 4);
  for (int y = 0; y < size.height; ++y) {
    const Bytes row = colours.Row(y);
    for (int x = 0; x < size.width; ++x) {
      Bytes pixel;
      if (header.bits == 24) {
        pixel = row.subspan(static_cast<std::size_t>(x) * 3, 3);
      } else {
        const std::size_t index = IndexAt(row, x, header.bits);
        if (index >= header.colours) return {};
        pixel = dib.subspan(header.tableAt + index * sizeof(ColourEntry), 3);
      }
      const bool transparent = mask != nullptr && MaskedOut(mask->Row(y), x);
      picture.pixels.insert(picture.pixels.end(), pixel.begin(), pixel.end());
      picture.pixels.push_back(transparent ? 0 : 255);
    }
  }
  return picture;
}

Picture ReadBitmap(Bytes file) {
  const Bytes dib = From(file, fileHeaderSize);
  const auto header = ReadHeader(dib);
  if (!header || header->height > largestSide) return {};
  const std::size_t pixelsAt = U32(file, 10);
  if (pixelsAt < fileHeaderSize + header->End()) return {};
  const Rows rows(From(file, pixelsAt), StrideOf(header->width, header->bits), header->height, header->topDown);
  if (!rows.AreWhole()) return {};
  return Decode(dib, *header, rows, nullptr, {header->width, header->height});
}

// An icon holds a bitmap without file header; its rows are followed by those of a mask, where 1 is transparent.
Picture ReadIcon(Bytes file) {
  if (U16(file, 4) == 0 || file.size() < iconHeaderSize + iconEntrySize) return {};
  const Bytes dib = From(file, U32(file, iconHeaderSize + 12));
  const auto header = ReadHeader(dib);
  if (!header || header->height % 2 != 0) return {};
  const Size size{header->width, header->height / 2};
  const Rows colours(From(dib, header->End()), StrideOf(size.width, header->bits), size.height, header->topDown);
  const Rows mask(From(dib, header->End() + colours.Size()), StrideOf(size.width, 1), size.height, header->topDown);
  if (!mask.AreWhole()) return {};
  return Decode(dib, *header, colours, &mask, size);
}

}  // namespace

Picture ReadPicture(Bytes file) {
  if (file.size() >= 2 && file[0] == 'B' && file[1] == 'M') return ReadBitmap(file);
  if (U32(file, 0) == 0x00010000) return ReadIcon(file);
  return {};
}

}  // namespace set32
