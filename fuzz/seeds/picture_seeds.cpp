#include <array>
#include <cstring>
#include <initializer_list>

#include "fuzz/seeds/seeds.h"
#include "fuzz/support/choices.h"
#include "resources/embedded_pictures.h"
#include "set32/dib_file.h"

namespace set32::fuzz {

namespace {

constexpr std::size_t fileHeaderSize = 14;
constexpr std::size_t pixelOffsetAt = 10;
constexpr std::uint32_t runLengths = 1;
constexpr std::uint32_t bitFields = 3;

class NoTrouble : public DibTrouble {
 public:
  void Say(const char*) override {}
};

class Written : public DibFile {
 public:
  std::size_t Read(std::span<std::uint8_t>) override { return 0; }
  void Write(std::span<const std::uint8_t> more) override { bytes.append(more.begin(), more.end()); }
  std::uint64_t Remaining() override { return 0; }
  std::string bytes;
};

// As the picture object writes it.
std::string PictureFile(std::uint16_t depth, std::int32_t height, std::uint32_t compression) {
  constexpr std::int32_t width = 9;
  constexpr std::size_t largestTable = 256;
  alignas(BitmapInfoHeader) std::array<std::uint8_t, sizeof(BitmapInfoHeader) + largestTable * sizeof(ColourEntry)>
      block{};
  for (std::size_t i = sizeof(BitmapInfoHeader); i < block.size(); ++i) block[i] = static_cast<std::uint8_t>(i);
  BitmapInfoHeader header{};
  header.headerSize = sizeof(header);
  header.width = width;
  header.height = height;
  header.planes = 1;
  header.bitCount = depth;
  header.compression = compression;
  if (compression == runLengths) header.imageSize = 2 * width;
  if (compression == bitFields) header.coloursUsed = 3;
  std::memcpy(block.data(), &header, sizeof header);
  CDib dib;
  dib.header = reinterpret_cast<BitmapInfoHeader*>(block.data());
  dib.ComputeMetrics();
  dib.SetColourCount(depth);
  NoTrouble trouble;
  Written file;
  if (dib.AllocatePixels(false)) dib.Write(file, trouble);
  return file.bytes;
}

// The same file with a longer header, as newer programs write.
std::string WithLongHeader(std::string file, std::uint32_t headerSize) {
  const std::size_t more = headerSize - sizeof(BitmapInfoHeader);
  std::uint32_t pixelOffset = 0;
  std::memcpy(&pixelOffset, &file[pixelOffsetAt], sizeof pixelOffset);
  pixelOffset += static_cast<std::uint32_t>(more);
  std::memcpy(&file[pixelOffsetAt], &pixelOffset, sizeof pixelOffset);
  std::memcpy(&file[fileHeaderSize], &headerSize, sizeof headerSize);
  return file.insert(fileHeaderSize + sizeof(BitmapInfoHeader), more, '\0');
}

}  // namespace

void AddPictures(Seeds& seeds) {
  constexpr std::int32_t rows = 5;
  for (const std::uint16_t depth : std::initializer_list<std::uint16_t>{1, 4, 8, 16, 24, 32}) {
    seeds.Add("fuzz_bmp", PictureFile(depth, rows, 0));
    seeds.Add("fuzz_bmp", PictureFile(depth, -rows, 0));
    seeds.Add("fuzz_bmp", WithLongHeader(PictureFile(depth, rows, 0), 108));
  }
  seeds.Add("fuzz_bmp", PictureFile(8, rows, runLengths));
  seeds.Add("fuzz_bmp", PictureFile(16, rows, bitFields));
  seeds.Add("fuzz_bmp", PictureFile(32, -rows, bitFields));
  constexpr std::size_t largest = 4096;
  for (const EmbeddedPicture& embedded : EmbeddedPictures()) {
    const std::string bytes(embedded.bytes.begin(), embedded.bytes.end());
    if (bytes.size() > largest) continue;
    seeds.Add("fuzz_picture", bytes);
    if (bytes.starts_with("BM")) seeds.Add("fuzz_bmp", bytes);
  }
  const std::string headers = PictureFile(24, rows, 0).substr(0, fileHeaderSize + sizeof(std::uint32_t));
  seeds.AddWords("fuzz_bmp", {"BM", headers, headers.substr(fileHeaderSize)});
  seeds.AddWords("fuzz_picture", {"BM", headers});
}

}  // namespace set32::fuzz
