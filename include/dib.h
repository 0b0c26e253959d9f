// CDib: the picture that host and panel share.
//
// The record crosses the boundary between modules that different compilers built: standard layout, the fields in a
// fixed order, no virtual operations, opaque handles. The host owns every object and everything in it; the panel
// reads and writes the fields and the pixels and never allocates or frees. Reading, writing and emptying are
// functions that the host links statically (adjust/dib_file).
//
// Pixels are 24 bits, three bytes in the order blue, green, red, rows bottom-up, one stride apart. A caller that
// meets another depth leaves the picture alone.
//
// Threads: none of its own; an object is used on its owner's thread.
#pragma once

#include <cstddef>
#include <cstdint>

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

class DibFile;
class DibTrouble;

struct CDib {
  ColourEntry* colourTable;  // inside the header block, 40 bytes behind its start
  void* bitmapHandle;        // released by Empty if set
  std::uint8_t* sourcePixels;
  std::uint8_t* displayPixels;
  std::uint8_t* savedPixels;
  BitmapInfoHeader* header;  // followed by the colour table
  std::int32_t brightness;   // -100 to 100
  std::int32_t contrast;     // -100 to 100
  std::uint32_t kind;        // written by the host; 3: ApplyToneTables keeps a copy in savedPixels
  std::uint32_t padding;
  double gammaRed;
  double gammaGreen;
  double gammaBlue;
  std::uint8_t toneRed[256];
  std::uint8_t toneGreen[256];
  std::uint8_t toneBlue[256];
  void* headerMemory;
  std::uint32_t headerOwner;  // one of header_owner::
  std::uint32_t pixelOwner;   // 1: the pixel buffers were allocated by this object
  std::uint32_t imageSize;    // bytes of one picture
  std::uint32_t stride;       // bytes from one row to the next
  std::uint32_t colourCount;  // entries in the colour table
  std::uint32_t padding2;
  void* palette;
  std::uint8_t ownsDisplay;  // 1: displayPixels and savedPixels belong to the object too

  CDib();
  ~CDib();
  CDib(const CDib&) = delete;
  CDib& operator=(const CDib&) = delete;
};

}  // namespace set32
