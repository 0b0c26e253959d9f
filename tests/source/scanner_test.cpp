// What the scanner makes of a page: size, place, resolution, mode, depth, and the adjustments.
#include "adjust/own_image_library.h"
#include "adjust/preview.h"
#include "adjust/tone_tables.h"
#include "set32/dib_file.h"
#include "tests/source/source_fixture.h"

namespace data_source {
namespace {

using testing::ElementsAre;

class Scans : public testing::Test {
 protected:
  Scans() {
    // A page of 1 by 0.5 inch at 40 dpi: a step of levels from left to right, another from top to bottom.
    pages_.Write("page.bmp", BitmapFile(40, 20, 40, [](int x, int y) { return std::array{x * 6, y * 12, 200}; }));
    order_.settings = NewSettings();
    order_.area = {0, 0, 0.4, 0.2};
  }

  ScannedImage Scan() {
    ScanResult result = scanner_.Scan(scanner_.Pages(0).front(), order_);
    EXPECT_EQ(result.trouble, ScanTrouble::none);
    return std::move(result.image);
  }
  // A level without adjustments, which round it as the preview's do.
  static int Shown(int level) {
    set32::CDib dib;
    set32::BuildToneTables(dib);
    return dib.toneGreen[level];
  }
  // Red, green, blue of a pixel.
  static std::vector<int> Pixel(const ScannedImage& image, int x, int y) {
    const auto* at = image.Row(y).data() + 3 * static_cast<std::size_t>(x);
    return {at[0], at[1], at[2]};
  }

  set32::ScratchFolder pages_;
  Scanner scanner_{pages_.Path("")};
  ScanOrder order_{};
};

TEST_F(Scans, EachAreaAtEachResolution) {
  const struct {
    Area area;
    int dpi;
    std::vector<int> size;
    set32::Point at;
    std::vector<int> pixel;
  } rows[] = {
      {{0, 0, 1, 0.5}, 80, {80, 40}, {0, 0}, {224, 112, 112}},  // the edge blends with the white beside the page
      {{0, 0, 1, 0.5}, 80, {80, 40}, {41, 21}, {200, 123, 122}},
      {{0.25, 0.1, 0.5, 0.25}, 120, {60, 30}, {1, 1}, {200, 48, 60}},
      {{0.9, 0.4, 0.5, 0.5}, 100, {50, 50}, {49, 49}, {255, 255, 255}},
      {{0, 0, 50, 50}, 75, {638, 1050}, {600, 600}, {255, 255, 255}},  // no more than the device has
      {{0, 0, -1, 0}, 10000, {1, 1}, {0, 0}, {239, 182, 182}},
  };
  for (const auto& row : rows) {
    order_.area = row.area;
    order_.settings.dpi = row.dpi;
    const ScannedImage image = Scan();
    EXPECT_THAT((std::vector{image.width, image.height}), row.size);
    for (std::size_t band = 0; band < 3; ++band)
      EXPECT_EQ(Pixel(image, row.at.x, row.at.y)[band], Shown(row.pixel[band])) << row.dpi;
  }
}

TEST_F(Scans, TheModesAndDepths) {
  order_.settings.dpi = 80;
  const ScannedImage colour = Scan();
  order_.settings.mode = set32::mode::gray;
  const ScannedImage gray = Scan();
  EXPECT_EQ(gray.kind, PixelKind::gray8);
  EXPECT_EQ(gray.Row(9)[5], Pixel(colour, 5, 9)[1]) << "green";
  order_.settings.mode = set32::mode::blackWhite;
  order_.threshold = gray.Row(9)[5];
  const ScannedImage line = Scan();
  EXPECT_EQ(line.kind, PixelKind::blackWhite);
  for (int y : {4, 9, 10, 15}) EXPECT_EQ((line.Row(y)[0] & 0x04) != 0, gray.Row(y)[5] > order_.threshold) << y;
  for (const std::uint32_t mode : {set32::mode::gray, set32::mode::colour}) {
    order_.settings.mode = mode;
    order_.settings.highBitDepth = 1;
    const ScannedImage deep = Scan();
    EXPECT_EQ(BitsOf(deep.kind), 16);
    std::vector<std::uint8_t> bitmap(BitmapSize(deep));
    WriteBitmap(deep, bitmap);
    const ScannedImage& shallow = mode == set32::mode::gray ? gray : colour;
    for (std::size_t i = 0;
         i < static_cast<std::size_t>(shallow.width) * static_cast<std::size_t>(SamplesOf(shallow.kind)); ++i) {
      const int level = deep.Row(9)[2 * i] | deep.Row(9)[2 * i + 1] << 8;
      EXPECT_NEAR(level / 257.0, shallow.Row(9)[i], 1) << i;
    }
  }
}

// The same bytes as the panel shows them in the preview of that size.
TEST_F(Scans, WithTheAdjustmentsOfThePreview) {
  pages_.Write("page.bmp", BitmapFile(40, 20, 100, [](int x, int y) { return std::array{x * 6, y * 12, 200}; }));
  order_.settings.dpi = 100;
  const ScannedImage plain = Scan();
  set32::ScanSettings& settings = order_.settings;
  settings.brightness = 20;
  settings.contrast = 15;
  settings.gammaAll = 1.4;
  settings.sharpness = 40;
  settings.saturation = -30;
  settings.hue = 60;
  const ScannedImage adjusted = Scan();

  const std::string file = pages_.Read("page.bmp");
  struct : set32::DibTrouble {
    void Say(const char*) override {}
  } trouble;
  set32::CDib preview;
  ASSERT_TRUE(set32::LoadBmp(preview, {reinterpret_cast<const std::uint8_t*>(file.data()), file.size()}, trouble));
  preview.brightness = settings.brightness;
  preview.contrast = settings.contrast;
  preview.gammaRed = preview.gammaGreen = preview.gammaBlue = settings.gammaAll;
  set32::OwnImageLibrary library;
  set32::PreviewRenderer(set32::sheetPreview, library).Render(settings, preview, order_.threshold);
  for (int y = 0; y < plain.height; ++y) {
    for (int x = 0; x < plain.width; ++x) {
      const std::uint8_t* shown = preview.displayPixels +
                                  static_cast<std::size_t>(plain.height - 1 - y) * preview.stride +
                                  3 * static_cast<std::size_t>(x);
      ASSERT_THAT(Pixel(adjusted, x, y), ElementsAre(shown[2], shown[1], shown[0])) << x << ", " << y;
    }
  }
  EXPECT_NE(adjusted.rows, plain.rows);
}

TEST_F(Scans, WithNoiseThatDescreeningTakesAway) {
  const auto spread = [](const ScannedImage& image) {
    int low = 255, high = 0;
    for (int y = 8; y < image.height - 8; ++y) {
      for (int x = 8; x < image.width - 8; ++x) {
        low = std::min(low, Pixel(image, x, y)[0]);
        high = std::max(high, Pixel(image, x, y)[0]);
      }
    }
    return high - low;
  };
  order_.settings.dpi = 600;
  pages_.Write("scanner.txt", "noise 20\nmargin 0.1\nspeed 3\n");
  const ScannedImage noisy = Scan();
  EXPECT_THAT(Pixel(noisy, 3, 3), testing::Each(testing::Ge(235))) << "the glass beside the page";
  EXPECT_EQ(noisy.rows, Scan().rows) << "a scan can be repeated";
  order_.area = {0.15, 0.15, 0.2, 0.15};
  EXPECT_GT(spread(Scan()), 30);
  order_.settings.descreen = 1;
  order_.settings.descreenKind = set32::descreen_kind::newspaper;
  EXPECT_LT(spread(Scan()), 15);
  pages_.Write("scanner.txt", "noise -3 margin 1e9 noise");
  order_.settings.descreen = 0;
  EXPECT_EQ(spread(Scan()), 0);
}

TEST_F(Scans, PagesOfEveryDepthThatBitmapsHave) {
  const auto file = [](std::uint16_t bits, const std::string& table, const std::string& row) {
    set32::BitmapInfoHeader header{40, 2, -1, 1, bits, 0, 0, 0, 0, static_cast<std::uint32_t>(table.size() / 4), 0};
    std::string bytes("BM\0\0\0\0\0\0\0\0\0\0\0\0", 14);
    bytes[10] = static_cast<char>(54 + table.size());
    return bytes.append(reinterpret_cast<const char*>(&header), sizeof header) + table + row;
  };
  const std::string colours("\x01\x02\x03\0\x04\x05\x06\0", 8);
  const std::string files[] = {file(1, colours, std::string("\x40\0\0\0", 4)),
                               file(4, colours, std::string("\x01\0\0\0", 4)),
                               file(8, colours, std::string("\0\x01\0\0", 4)),
                               file(24, {}, std::string("\x01\x02\x03\x04\x05\x06\0\0", 8)), file(32, {}, colours)};
  for (const std::string& bytes : files) {
    const std::optional<PagePicture> page = ReadPage(pages_.Write("deep.bmp", bytes));
    ASSERT_TRUE(page) << bytes.size();
    EXPECT_THAT(page->pixels, ElementsAre(1, 2, 3, 4, 5, 6)) << bytes.size();
    EXPECT_EQ(page->dpiX, 100);
  }
  for (const std::string& bytes : {file(16, {}, "\1\2\3\4"), std::string("BM"), std::string()})
    EXPECT_FALSE(ReadPage(pages_.Write("bad.bmp", bytes))) << bytes.size();
  EXPECT_THAT(BitmapsIn(pages_.Path("nowhere")), testing::IsEmpty());
}

}  // namespace
}  // namespace data_source
