#include "apps/data-source/scanner/page_picture.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "set32/dib.h"
#include "set32/dib_file.h"

namespace data_source {

namespace fs = std::filesystem;

namespace {

// Whoever asked for the page says that it can't be read.
class NobodyHears final : public set32::DibTrouble {
 public:
  void Say(const char*) override {}
};

bool IsBitmap(const fs::path& file) {
  std::string extension = file.extension().string();
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return extension == ".bmp";
}

// Levels for the pixel at x of a row, from what a row of so many bits holds there.
const std::uint8_t* PixelOf(const set32::CDib& dib, const std::uint8_t* row, int x) {
  static constexpr std::uint8_t black[4] = {};
  const int bits = dib.header->bitCount;
  if (bits >= 24) return row + static_cast<std::ptrdiff_t>(x) * (bits / 8);
  const int first = x * bits;
  const int index = row[first / 8] >> (8 - bits - first % 8) & ((1 << bits) - 1);
  return static_cast<std::uint32_t>(index) < dib.colourCount ? &dib.colourTable[index].blue : black;
}

bool IsReadable(const set32::CDib& dib) {
  const set32::BitmapInfoHeader& header = *dib.header;
  const int bits = header.bitCount;
  const bool known = bits == 1 || bits == 4 || bits == 8 || bits == 24 || bits == 32;
  return known && header.compression == 0 && header.width > 0 && header.height > 0 &&
         std::uint64_t{dib.stride} * static_cast<std::uint32_t>(header.height) <= dib.imageSize;
}

double DotsPerInch(std::int32_t pixelsPerMetre) {
  constexpr double metresAnInch = 0.0254, standard = 100;
  const double dots = pixelsPerMetre * metresAnInch;
  return dots >= 1 ? dots : standard;
}

}  // namespace

std::vector<fs::path> BitmapsIn(const fs::path& folder) {
  std::vector<fs::path> files;
  std::error_code failed;
  for (fs::directory_iterator at(folder, failed), end; !failed && at != end; at.increment(failed)) {
    if (IsBitmap(at->path())) files.push_back(at->path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::optional<PagePicture> ReadPage(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  set32::CDib dib;
  NobodyHears nobody;
  if (!set32::LoadBmp(dib, {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, nobody) ||
      !IsReadable(dib))
    return {};
  PagePicture page{dib.header->width,
                   dib.header->height,
                   DotsPerInch(dib.header->pixelsPerMetreX),
                   DotsPerInch(dib.header->pixelsPerMetreY),
                   {}};
  page.pixels.resize(std::size_t{3} * static_cast<std::size_t>(page.width) * static_cast<std::size_t>(page.height));
  std::uint8_t* into = page.pixels.data();
  for (int y = page.height; y-- > 0;) {
    const std::uint8_t* row = dib.sourcePixels + static_cast<std::size_t>(y) * dib.stride;
    for (int x = 0; x < page.width; ++x, into += 3) std::memcpy(into, PixelOf(dib, row, x), 3);
  }
  return page;
}

DeviceTraits ReadTraits(const fs::path& file) {
  constexpr double mostNoise = 128, widestMargin = 4;
  DeviceTraits traits;
  std::ifstream stream(file);
  for (std::string name, value; stream >> name >> value;) {
    const double number = std::strtod(value.c_str(), nullptr);
    if (name == "noise" && number > 0 && number <= mostNoise) traits.noise = static_cast<int>(number);
    if (name == "margin" && number > 0 && number <= widestMargin) traits.margin = number;
  }
  return traits;
}

}  // namespace data_source
