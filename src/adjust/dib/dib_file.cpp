#include "set32/dib_file.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <vector>

#include "platform/dib_handles.h"

namespace set32 {

static_assert(std::endian::native == std::endian::little, "files and records are little-endian in memory");

namespace {

constexpr std::uint16_t bitmapLetters = 0x4D42;  // "BM"
constexpr std::size_t fileHeaderSize = 14;
constexpr std::size_t infoHeaderSize = sizeof(BitmapInfoHeader);

constexpr std::uint32_t uncompressed = 0;
constexpr std::uint32_t bitFields = 3;
constexpr std::size_t masksSize = 12;  // of bit fields, behind the header

constexpr std::uint64_t mostPixelBytes = 0x7FFFFFFF;

struct FileHeader {
  std::uint16_t letters = bitmapLetters;
  std::uint32_t fileSize = 0;
  std::uint16_t reserved1 = 0;
  std::uint16_t reserved2 = 0;
  std::uint32_t pixelOffset = 0;
};

using FileHeaderBytes = std::array<std::uint8_t, fileHeaderSize>;

FileHeader Decode(const FileHeaderBytes& bytes) {
  FileHeader header;
  std::memcpy(&header.letters, &bytes[0], 2);
  std::memcpy(&header.fileSize, &bytes[2], 4);
  std::memcpy(&header.pixelOffset, &bytes[10], 4);
  return header;
}

FileHeaderBytes Encode(const FileHeader& header) {
  FileHeaderBytes bytes{};
  std::memcpy(&bytes[0], &header.letters, 2);
  std::memcpy(&bytes[2], &header.fileSize, 4);
  std::memcpy(&bytes[10], &header.pixelOffset, 4);
  return bytes;
}

std::uint64_t Stride(const BitmapInfoHeader& header) {
  const std::uint64_t width = static_cast<std::uint64_t>(std::max(header.width, 0));
  return (header.bitCount * width + 31) / 32 * 4;
}

// At most 2^31, whatever the height is.
std::uint64_t RowCount(const BitmapInfoHeader& header) {
  const std::int64_t height = header.height;
  return static_cast<std::uint64_t>(height < 0 ? -height : height);
}

bool HoldsRows(const BitmapInfoHeader& header) {
  return header.compression == uncompressed || header.compression == bitFields;
}

// A size that fits no 32-bit field counts as the largest, which no file can justify.
std::uint32_t Saturated(std::uint64_t size) {
  return static_cast<std::uint32_t>(std::min<std::uint64_t>(size, std::numeric_limits<std::uint32_t>::max()));
}

// What AllocatePixels takes for source and display pixels each.
std::uint64_t BufferSize(std::uint64_t imageSize, std::uint64_t stride) {
  return imageSize + 2 * stride;
}

bool IsReadable(const BitmapInfoHeader& header) {
  return header.headerSize >= infoHeaderSize && header.width > 0 && header.height != 0 &&
         header.height != std::numeric_limits<std::int32_t>::min() && header.bitCount > 0 && header.bitCount <= 32;
}

// Makes a larger header one of 40 bytes. The masks of bit fields lie at that place already.
void MoveColourTable(std::span<std::uint8_t> block, BitmapInfoHeader& header) {
  const std::size_t from = std::min<std::size_t>(header.headerSize, block.size());
  if (header.compression != bitFields) {
    std::memmove(block.data() + infoHeaderSize, block.data() + from, block.size() - from);
    std::memset(block.data() + infoHeaderSize + (block.size() - from), 0, from - infoHeaderSize);
  }
  header.headerSize = infoHeaderSize;
}

void TurnRows(std::uint8_t* pixels, std::uint64_t rows, std::size_t stride) {
  for (std::uint64_t low = 0, high = rows - 1; low < high; ++low, --high) {
    std::swap_ranges(pixels + low * stride, pixels + (low + 1) * stride, pixels + high * stride);
  }
}

// Null where memory is short.
std::uint8_t* NewBytes(std::size_t size) {
  return std::unique_ptr<std::uint8_t[]>(new (std::nothrow) std::uint8_t[size]).release();
}

void DeleteBytes(void* bytes) {
  std::unique_ptr<std::uint8_t[]>(static_cast<std::uint8_t*>(bytes)).reset();
}

// What is written of the header block: bit fields without their masks could not be read again.
std::size_t HeaderBlockSize(const CDib& dib) {
  const std::size_t table = std::size_t{dib.colourCount} * sizeof(ColourEntry);
  return infoHeaderSize + (dib.header->compression == bitFields ? std::max(table, masksSize) : table);
}

// The header block into the object. False when it can't describe a picture that this file might hold.
bool ReadHeaderBlock(CDib& dib, DibFile& file, std::size_t claimed, std::size_t& blockSize) {
  const std::uint64_t remaining = file.Remaining();
  blockSize =
      std::max<std::size_t>(infoHeaderSize, static_cast<std::size_t>(std::min<std::uint64_t>(claimed, remaining)));
  std::uint8_t* block = NewBytes(blockSize);
  if (!block) return false;
  std::memset(block, 0, blockSize);
  dib.header = reinterpret_cast<BitmapInfoHeader*>(block);
  dib.headerOwner = header_owner::object;
  dib.pixelOwner = 1;
  file.Read({block, std::min(blockSize, claimed)});

  BitmapInfoHeader& header = *dib.header;
  if (!IsReadable(header)) return false;
  if (header.compression == bitFields && blockSize < infoHeaderSize + masksSize) return false;
  if (header.headerSize > infoHeaderSize) MoveColourTable({block, blockSize}, header);
  const std::uint64_t needed = Stride(header) * RowCount(header);
  if (HoldsRows(header)) header.imageSize = 0;
  const std::uint64_t size = header.imageSize != 0 ? header.imageSize : needed;
  return std::max(size, Stride(header)) <= MostClaimed(file.Remaining()) &&
         BufferSize(size, Stride(header)) <= mostPixelBytes;
}

void ReadPixels(CDib& dib, DibFile& file) {
  file.Read({dib.sourcePixels, dib.imageSize});
  BitmapInfoHeader& header = *dib.header;
  if (header.height < 0 && HoldsRows(header)) {
    header.height = -header.height;
    TurnRows(dib.sourcePixels, RowCount(header), dib.stride);
  }
  if (dib.displayPixels) std::memcpy(dib.displayPixels, dib.sourcePixels, dib.imageSize);
}

}  // namespace

CDib::CDib()
    : colourTable(nullptr),
      bitmapHandle(nullptr),
      sourcePixels(nullptr),
      displayPixels(nullptr),
      savedPixels(nullptr),
      header(nullptr),
      brightness(0),
      contrast(0),
      kind(0),
      padding(0),
      gammaRed(1.0),
      gammaGreen(1.0),
      gammaBlue(1.0),
      toneRed{},
      toneGreen{},
      toneBlue{},
      headerMemory(nullptr),
      headerOwner(header_owner::nobody),
      pixelOwner(0),
      imageSize(0),
      stride(0),
      colourCount(0),
      padding2(0),
      palette(nullptr),
      ownsDisplay(1) {}

CDib::~CDib() {
  Empty();
}

void CDib::Empty() {
  if (headerOwner == header_owner::object) DeleteBytes(header);
  if (headerOwner == header_owner::globalMemory) ReleaseGlobalMemory(headerMemory);
  if (pixelOwner == 1) {
    DeleteBytes(sourcePixels);
    DeleteBytes(savedPixels);
    if (ownsDisplay) DeleteBytes(displayPixels);
  }
  ReleaseLogicalPalette(palette);
  ReleaseBitmapHandle(bitmapHandle);

  header = nullptr;
  sourcePixels = displayPixels = savedPixels = nullptr;
  colourTable = nullptr;
  colourCount = imageSize = stride = 0;
  headerMemory = nullptr;
  headerOwner = header_owner::nobody;
  pixelOwner = 0;
  palette = nullptr;
  bitmapHandle = nullptr;
}

bool CDib::AllocatePixels(bool withDisplay) {
  ownsDisplay = withDisplay ? 1 : 0;
  if (sourcePixels) return true;
  pixelOwner = 1;
  if (BufferSize(imageSize, stride) > mostPixelBytes) return false;
  const auto size = static_cast<std::size_t>(BufferSize(imageSize, stride));
  sourcePixels = NewBytes(size);
  if (!sourcePixels) return false;
  std::memset(sourcePixels, 0xFF, imageSize);
  if (withDisplay) {
    displayPixels = NewBytes(size);
    if (!savedPixels) savedPixels = NewBytes(imageSize);
  }
  return true;
}

void CDib::ComputeMetrics() {
  stride = Saturated(Stride(*header));
  if (header->imageSize == 0) header->imageSize = Saturated(Stride(*header) * RowCount(*header));
  imageSize = header->imageSize;
  colourTable = reinterpret_cast<ColourEntry*>(reinterpret_cast<std::uint8_t*>(header) + infoHeaderSize);
}

void CDib::SetColourCount(std::uint32_t bitsPerPixel) {
  if (header && header->coloursUsed != 0) {
    colourCount = header->coloursUsed;
    return;
  }
  switch (bitsPerPixel) {
    case 1:
      colourCount = 2;
      break;
    case 4:
      colourCount = 16;
      break;
    case 8:
      colourCount = 256;
      break;
    case 16:
    case 24:
    case 32:
      colourCount = 0;
      break;
    default:
      break;
  }
}

bool CDib::MakePalette() {
  if (colourCount == 0) return false;
  ReleaseLogicalPalette(palette);
  std::vector<PaletteEntry> entries;
  entries.reserve(colourCount);
  for (const ColourEntry& colour : std::span(colourTable, colourCount)) {
    entries.push_back({colour.red, colour.green, colour.blue, 0});
  }
  palette = MakeLogicalPalette(entries);
  return true;
}

bool CDib::Read(DibFile& file, DibTrouble& trouble) {
  try {
    Empty();
    FileHeaderBytes bytes;
    if (file.Read(bytes) < bytes.size()) {
      trouble.Say("read error 1");
      return false;
    }
    const FileHeader fileHeader = Decode(bytes);
    std::size_t blockSize = 0;
    if (fileHeader.letters != bitmapLetters || fileHeader.pixelOffset < fileHeaderSize + infoHeaderSize ||
        !ReadHeaderBlock(*this, file, fileHeader.pixelOffset - fileHeaderSize, blockSize)) {
      trouble.Say("Invalid bitmap file");
      return false;
    }
    ComputeMetrics();
    if (!AllocatePixels(true)) return false;
    ReadPixels(*this, file);
    SetColourCount(header->bitCount);
    colourCount = std::min(colourCount, Saturated((blockSize - infoHeaderSize) / sizeof(ColourEntry)));
    MakePalette();
    gammaRed = gammaGreen = gammaBlue = 1.0;
    brightness = contrast = 0;
    return true;
  } catch (const DibFile::Failure&) {
    trouble.Say("Read error 1");
    return false;
  }
}

bool CDib::Write(DibFile& file, DibTrouble& trouble) const {
  if (!WriteHeader(file, trouble)) return false;
  try {
    file.Write({sourcePixels, sourcePixels ? imageSize : 0});
    return true;
  } catch (const DibFile::Failure&) {
    trouble.Say("write error");
    return false;
  }
}

bool CDib::WriteHeader(DibFile& file, DibTrouble& trouble) const {
  try {
    if (!header) throw DibFile::Failure{};
    FileHeader fileHeader;
    fileHeader.pixelOffset = Saturated(fileHeaderSize + HeaderBlockSize(*this));
    fileHeader.fileSize = Saturated(fileHeaderSize + HeaderBlockSize(*this) + imageSize);
    file.Write(Encode(fileHeader));
    file.Write({reinterpret_cast<const std::uint8_t*>(header), HeaderBlockSize(*this)});
    return true;
  } catch (const DibFile::Failure&) {
    trouble.Say("write error");
    return false;
  }
}

std::size_t DibBytes::Read(std::span<std::uint8_t> into) {
  const std::size_t count = std::min(into.size(), bytes_.size());
  std::copy_n(bytes_.begin(), count, into.begin());
  bytes_ = bytes_.subspan(count);
  return count;
}

bool LoadBmp(CDib& dib, std::span<const std::uint8_t> bytes, DibTrouble& trouble) {
  DibBytes file(bytes);
  return dib.Read(file, trouble);
}

}  // namespace set32
