// CDib: the picture that host and panel share.
//
// The record crosses the boundary between modules that different compilers built: standard layout, the fields in a
// fixed order at fixed places, no virtual operations, opaque handles. The host owns every object and everything in
// it; the panel reads and writes the fields and the pixels and never allocates or frees. The operations below are
// linked into the host's program (adjust/dib).
//
// The preview's pixels are 24 bits, three bytes in the order blue, green, red, rows bottom-up, one stride apart. The
// panel leaves a picture of any other kind alone. Files of every depth can be held.
//
// A host that fills the object itself says by the owner fields what Empty frees: headers and pixels that the object
// is to free are arrays of bytes made with new std::uint8_t[].
//
// Threads: none of its own; an object is used on its owner's thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace set32 {

// The 40-byte header of a Windows bitmap, as it stands in files and in memory.
struct BitmapInfoHeader {
  std::uint32_t headerSize;
  std::int32_t width;
  std::int32_t height;  // negative: rows top-down
  std::uint16_t planes;
  std::uint16_t bitCount;
  std::uint32_t compression;
  std::uint32_t imageSize;
  std::int32_t pixelsPerMetreX;
  std::int32_t pixelsPerMetreY;
  std::uint32_t coloursUsed;
  std::uint32_t coloursImportant;
};

static_assert(sizeof(BitmapInfoHeader) == 40);

// One entry of a colour table, in file order.
struct ColourEntry {
  std::uint8_t blue;
  std::uint8_t green;
  std::uint8_t red;
  std::uint8_t reserved;
};

static_assert(sizeof(ColourEntry) == 4);

// CDib::headerOwner
namespace header_owner {
inline constexpr std::uint32_t nobody = 0;
inline constexpr std::uint32_t object = 1;        // the header was allocated by Read
inline constexpr std::uint32_t globalMemory = 2;  // it lies in locked global memory, headerMemory
}  // namespace header_owner

struct DibDimensions {
  std::int32_t width = 0;
  std::int32_t height = 0;
};

class DibFile;     // adjust/dib/dib_file.h
class DibTrouble;  // adjust/dib/dib_file.h

struct CDib {
  ColourEntry* colourTable;  // inside the header block, 40 bytes behind its start
  void* bitmapHandle;        // released by Empty if set
  std::uint8_t* sourcePixels;
  std::uint8_t* displayPixels;
  std::uint8_t* savedPixels;
  BitmapInfoHeader* header;  // followed by the colour table
  std::int32_t brightness;   // -100 to 100
  std::int32_t contrast;     // -100 to 100
  std::uint32_t kind;        // written by the host; 3: the toned picture is kept in savedPixels too
  std::uint32_t padding;
  alignas(8) double gammaRed;
  alignas(8) double gammaGreen;
  alignas(8) double gammaBlue;
  std::uint8_t toneRed[256];
  std::uint8_t toneGreen[256];
  std::uint8_t toneBlue[256];
  void* headerMemory;         // the header's global memory with header_owner::globalMemory
  std::uint32_t headerOwner;  // one of header_owner::
  std::uint32_t pixelOwner;   // 1: the pixel buffers were allocated by this object
  std::uint32_t imageSize;    // bytes of one picture
  std::uint32_t stride;       // bytes from one row to the next
  std::uint32_t colourCount;  // entries in the colour table; 0 for 16, 24 and 32 bits per pixel
  std::uint32_t padding2;
  void* palette;             // a logical palette made from the colour table
  std::uint8_t ownsDisplay;  // 1: displayPixels and savedPixels belong to the object too

  // Gammas 1, brightness, contrast and kind 0, ownsDisplay 1, and empty.
  CDib();
  ~CDib();
  CDib(const CDib&) = delete;
  CDib& operator=(const CDib&) = delete;

  // As the header tells them (a negative height: top-down rows); 0 and 0 when there is no header.
  DibDimensions GetDimensions() const {
    return header ? DibDimensions{header->width, header->height} : DibDimensions{};
  }
  std::uint32_t GetImageSize() const { return imageSize; }
  std::uint32_t GetStride() const { return stride; }

  // A whole bitmap file into the object, which is emptied first. On failure the text was said, the result is false,
  // and the object may be partly filled: Empty frees what there is. adjust/dib/dib_file.h tells what is taken.
  bool Read(DibFile& file, DibTrouble& trouble);
  // The picture as scanned, without the adjustments. On failure the text was said and the result is false.
  bool Write(DibFile& file, DibTrouble& trouble) const;
  bool WriteHeader(DibFile& file, DibTrouble& trouble) const;

  // Frees what the owner fields say and forgets the picture. The adjustment values, kind and ownsDisplay stay.
  void Empty();
  // White source pixels, imageSize and two strides long; with the flag display and saved pixels too. Nothing happens
  // when there are source pixels already. Result: whether there are source pixels; none of more than 2^31 - 1 bytes.
  bool AllocatePixels(bool withDisplay);
  // stride, imageSize and colourTable from the header; a header without an image size gets it.
  void ComputeMetrics();
  void SetColourCount(std::uint32_t bitsPerPixel);
  // False when there are no colours.
  bool MakePalette();
};

static_assert(std::is_standard_layout_v<CDib>);
static_assert(alignof(CDib) == 8);

// The places of the fields behind the six leading pointers, for pointers of 4 and of 8 bytes.
namespace dib_layout {
inline constexpr std::size_t pointer = sizeof(void*);
inline constexpr std::size_t values = 6 * pointer;
inline constexpr std::size_t gammas = values + 16;
inline constexpr std::size_t tables = gammas + 24;
inline constexpr std::size_t owners = tables + 768 + pointer;
inline constexpr std::size_t palette = owners + 24;
}  // namespace dib_layout

static_assert(offsetof(CDib, colourTable) == 0);
static_assert(offsetof(CDib, bitmapHandle) == dib_layout::pointer);
static_assert(offsetof(CDib, sourcePixels) == 2 * dib_layout::pointer);
static_assert(offsetof(CDib, displayPixels) == 3 * dib_layout::pointer);
static_assert(offsetof(CDib, savedPixels) == 4 * dib_layout::pointer);
static_assert(offsetof(CDib, header) == 5 * dib_layout::pointer);
static_assert(offsetof(CDib, brightness) == dib_layout::values);
static_assert(offsetof(CDib, contrast) == dib_layout::values + 4);
static_assert(offsetof(CDib, kind) == dib_layout::values + 8);
static_assert(offsetof(CDib, gammaRed) == dib_layout::gammas);
static_assert(offsetof(CDib, gammaGreen) == dib_layout::gammas + 8);
static_assert(offsetof(CDib, gammaBlue) == dib_layout::gammas + 16);
static_assert(offsetof(CDib, toneRed) == dib_layout::tables);
static_assert(offsetof(CDib, toneGreen) == dib_layout::tables + 256);
static_assert(offsetof(CDib, toneBlue) == dib_layout::tables + 512);
static_assert(offsetof(CDib, headerMemory) == dib_layout::tables + 768);
static_assert(offsetof(CDib, headerOwner) == dib_layout::owners);
static_assert(offsetof(CDib, pixelOwner) == dib_layout::owners + 4);
static_assert(offsetof(CDib, imageSize) == dib_layout::owners + 8);
static_assert(offsetof(CDib, stride) == dib_layout::owners + 12);
static_assert(offsetof(CDib, colourCount) == dib_layout::owners + 16);
static_assert(offsetof(CDib, palette) == dib_layout::palette);
static_assert(offsetof(CDib, ownsDisplay) == dib_layout::palette + dib_layout::pointer);
static_assert(sizeof(CDib) == (dib_layout::pointer == 4 ? 872 : 904));

}  // namespace set32
