#include "resources/pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <numeric>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "resources/embedded_pictures.h"
#include "resources/ids.h"
#include "resources/picture_reader.h"

namespace set32 {
namespace {

using FileBytes = std::vector<std::uint8_t>;

struct Pixel {
  int blue, green, red, alpha;
  bool operator==(const Pixel&) const = default;
};

Pixel At(const Picture& picture, int x, int y) {
  const std::uint8_t* p = &picture.pixels.at(static_cast<std::size_t>(y * picture.size.width + x) * 4);
  return {p[0], p[1], p[2], p[3]};
}

TEST(Pictures, EachHasItsSizeAndTransparency) {
  constexpr Size tile{16, 16}, large{32, 32};
  using namespace picture;
  const struct {
    std::vector<std::string_view> names;
    Size size;
    bool transparent;
  } cases[] = {
      {{hueWheel}, {185, 161}, false},
      {{viewTabs}, {3 * 42, 24}, false},
      {{frameTabs}, {10 * 15, 15}, false},
      {{modeBlackWhite, modeGray, modeColour, modeJpegColour, modeJpegGray}, tile, true},
      {{windowIcon, windowIconOem, brightness, contrast}, large, true},
      {{gammaColour, gammaGray, gammaBw, gammaRed, gammaGreen, gammaBlue, "SWIDTHU", "SHEIGHTU"}, tile, false},
      {{"COLORU", "GRAYU", "BWU"}, large, false},
  };
  std::set<std::string> different;
  for (const auto& [names, size, transparent] : cases) {
    for (const std::string_view name : names) {
      const Picture loaded = LoadPicture(name);
      ASSERT_EQ(loaded.size, size) << name;
      ASSERT_EQ(loaded.pixels.size(), static_cast<std::size_t>(size.width * size.height) * 4) << name;
      EXPECT_EQ(loaded.name, name);
      EXPECT_EQ(At(loaded, 0, 0).alpha == 0, transparent) << name;
      EXPECT_EQ(At(loaded, size.width / 2, size.height / 2).alpha, 255) << name;
      different.emplace(loaded.pixels.begin(), loaded.pixels.end());
    }
  }
  EXPECT_EQ(different.size(), 23U);
  EXPECT_EQ(EmbeddedPictures().size(), 23U);
}

TEST(Pictures, MissingFacesOfAButtonAreEmpty) {
  for (std::string_view name : {"SWIDTHD", "SWIDTH", "swidthu", "999", ""}) {
    EXPECT_TRUE(LoadPicture(name).Empty()) << name;
  }
}

// Every image of a strip has the transparent colour at its edge, something inside, and no neighbour's face.
TEST(Pictures, StripsHoldTheirImages) {
  constexpr Pixel transparent{255, 0, 255, 255};
  for (const auto& [name, images] : {std::pair{picture::viewTabs, 3}, std::pair{picture::frameTabs, 10}}) {
    const Picture strip = LoadPicture(name);
    const int width = strip.size.width / images;
    std::set<std::vector<int>> faces;
    for (int image = 0; image < images; ++image) {
      std::vector<int> face;
      for (int y = 0; y < strip.size.height; ++y) {
        EXPECT_EQ(At(strip, image * width, y), transparent) << name << ": " << image;
        for (int x = 0; x < width; ++x) {
          const Pixel pixel = At(strip, image * width + x, y);
          face.push_back(pixel.red << 16 | pixel.green << 8 | pixel.blue);
        }
      }
      faces.insert(face);
    }
    EXPECT_EQ(faces.size(), static_cast<std::size_t>(images)) << name;
  }
}

// Red at the right, then counter-clockwise, around a neutral centre: a picture that is upside down shows.
TEST(Pictures, HueWheelTurnsCounterClockwise) {
  const Picture wheel = LoadPicture(picture::hueWheel);
  const bool bands[6][3] = {{true, false, false}, {true, true, false},  {false, true, false},
                            {false, true, true},  {false, false, true}, {true, false, true}};
  for (int sector = 0; sector < 6; ++sector) {
    const double angle = sector * std::numbers::pi / 3;
    const Pixel pixel =
        At(wheel, 92 + static_cast<int>(65 * std::cos(angle)), 80 - static_cast<int>(65 * std::sin(angle)));
    EXPECT_EQ(pixel.red > 128, bands[sector][0]) << sector;
    EXPECT_EQ(pixel.green > 128, bands[sector][1]) << sector;
    EXPECT_EQ(pixel.blue > 128, bands[sector][2]) << sector;
  }
  const Pixel centre = At(wheel, 92, 80);
  EXPECT_LT(std::max({centre.red, centre.green, centre.blue}) - std::min({centre.red, centre.green, centre.blue}), 8);
}

void Put(FileBytes& file, std::initializer_list<std::pair<std::size_t, std::uint8_t>> bytes) {
  for (const auto& [at, byte] : bytes) file[at] = byte;
}

// A file of 24 bits: rows bottom-up, each filled up to four bytes.
FileBytes SmallBitmap() {
  FileBytes file(54 + 2 * 8, 0);
  Put(file, {{0, 'B'}, {1, 'M'}, {10, 54}, {14, 40}});
  Put(file, {{18, 2}, {22, 2}, {26, 1}, {28, 24}});  // width, height, planes, bits
  std::iota(file.begin() + 54, file.end(), std::uint8_t{10});
  return file;
}

TEST(PictureReader, RowsAreTurnedAndFillersLeftOut) {
  FileBytes file = SmallBitmap();
  EXPECT_EQ(ReadPicture(file).pixels,
            (FileBytes{18, 19, 20, 255, 21, 22, 23, 255, 10, 11, 12, 255, 13, 14, 15, 255}));
  std::fill_n(file.begin() + 22, 4, std::uint8_t{255});
  file[22] = 254;  // height -2: top-down
  EXPECT_EQ(ReadPicture(file).pixels,
            (FileBytes{10, 11, 12, 255, 13, 14, 15, 255, 18, 19, 20, 255, 21, 22, 23, 255}));
}

// An icon of two rows: the left pixel is the upper half of its byte, the rows of colours and mask go up.
TEST(PictureReader, IconsHaveTheirMask) {
  FileBytes file(22 + 40 + 16 * 4 + 2 * 4 + 2 * 4, 0);
  Put(file, {{2, 1}, {4, 1}, {18, 22}, {22, 40}});  // an icon, one image, where it lies, its header
  Put(file, {{26, 2}, {30, 4}, {34, 1}, {36, 4}});  // width, height of colours and mask, planes, bits
  std::iota(file.begin() + 62, file.begin() + 126, std::uint8_t{0});
  Put(file, {{126, 0x12}, {130, 0x3F}});  // colours: lower row, upper row
  Put(file, {{134, 0x40}, {138, 0x80}});  // mask: in the lower row the right pixel is transparent
  EXPECT_EQ(ReadPicture(file).pixels, (FileBytes{12, 13, 14, 0, 60, 61, 62, 255, 4, 5, 6, 255, 8, 9, 10, 0}));
  file[30] = 3;
  EXPECT_TRUE(ReadPicture(file).Empty()) << "rows that don't halve";
}

TEST(PictureReader, SidesUpTo1024) {
  for (const bool wide : {false, true}) {
    for (const bool fits : {false, true}) {
      FileBytes file = SmallBitmap();
      file.resize(54 + 4 * 1025);
      file[wide ? 18 : 22] = fits ? 0 : 1;
      file[wide ? 19 : 23] = 4;
      file[wide ? 22 : 18] = 1;
      EXPECT_EQ(ReadPicture(file).Empty(), !fits) << wide;
    }
  }
}

TEST(PictureReader, DamagedFieldsGiveNothing) {
  const struct {
    std::size_t at;
    FileBytes bytes;
    const char* what;
  } cases[] = {
      {0, {'X'}, "no bitmap"},
      {10, {53}, "pixels inside the header"},
      {10, {55}, "one byte short"},
      {10, {255, 255, 255, 255}, "pixels far outside"},
      {14, {39}, "short header"},
      {14, {255, 255, 255, 255}, "header past the end"},
      {18, {0}, "no width"},
      {18, {3}, "wider than the rows"},
      {18, {255, 255, 255, 255}, "width below 0"},
      {18, {255, 255, 255, 127}, "width whose bytes overflow"},
      {22, {0}, "no height"},
      {22, {3}, "more rows than stored"},
      {22, {0, 0, 0, 128}, "height without an opposite"},
      {28, {16}, "a depth that isn't read"},
      {28, {8}, "a colour table past the end"},
      {30, {1}, "compressed"},
  };
  for (const auto& c : cases) {
    FileBytes file = SmallBitmap();
    std::ranges::copy(c.bytes, file.begin() + static_cast<std::ptrdiff_t>(c.at));
    EXPECT_TRUE(ReadPicture(file).Empty()) << c.what;
  }
}

TEST(PictureReader, AColourOutsideTheTableGivesNothing) {
  FileBytes file = SmallBitmap();
  Put(file, {{28, 8}, {46, 2}, {10, 62}});  // bits, colours, and behind their table two rows of four bytes
  std::fill(file.begin() + 54, file.end(), std::uint8_t{1});
  ASSERT_FALSE(ReadPicture(file).Empty());
  file[62] = 2;
  EXPECT_TRUE(ReadPicture(file).Empty());
}

// No shortened file is read past its end, nor taken for a whole one. The bytes lie in a block of their own size, so
// that a sanitizer sees a step too far.
TEST(PictureReader, ShortenedFilesGiveNothing) {
  for (const EmbeddedPicture& embedded : EmbeddedPictures()) {
    const std::size_t step = embedded.bytes.size() > 4096 ? 997 : 1;
    for (std::size_t size = 0; size < embedded.bytes.size(); size += step) {
      const FileBytes part(embedded.bytes.begin(), embedded.bytes.begin() + static_cast<std::ptrdiff_t>(size));
      ASSERT_TRUE(ReadPicture(part).Empty()) << embedded.name << " cut to " << size;
    }
  }
}

// Any single byte of a header may be anything: the answer is a whole picture or none.
TEST(PictureReader, SpoiltHeadersGiveAWholePictureOrNone) {
  for (const EmbeddedPicture& embedded : EmbeddedPictures()) {
    FileBytes file(embedded.bytes.begin(), embedded.bytes.end());
    if (file.size() > 4096) continue;
    for (std::size_t at = 0; at < 64; ++at) {
      for (const std::uint8_t value : FileBytes{0x00, 0x01, 0x7F, 0x80, 0xFF}) {
        const std::uint8_t kept = std::exchange(file[at], value);
        const Picture read = ReadPicture(file);
        const auto pixels = static_cast<std::size_t>(read.size.width) * static_cast<std::size_t>(read.size.height);
        EXPECT_EQ(read.pixels.size(), pixels * 4) << embedded.name << ": " << at;
        file[at] = kept;
      }
    }
  }
}

}  // namespace
}  // namespace set32
