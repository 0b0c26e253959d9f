// What a refresh does to the preview's pixels, what it asks of the image library, and what the host hears, by face.
#include "adjust/preview.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <vector>

#include "adjust/own_image_library.h"
#include "adjust/tone_tables.h"
#include "apps/stage/model/headless_windows.h"
#include "test_picture.h"

namespace set32 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Lines = std::vector<std::string>;

// Writes down what is asked of it, and marks a bitmap that it gives back by a first byte of 99.
class RecordingLibrary final : public ImageLibrary {
 public:
  std::unique_ptr<LibraryBitmap> Create(int width, int height, int bits) override {
    lines.push_back("create " + std::to_string(width) + " " + std::to_string(height) + " " + std::to_string(bits));
    return none ? nullptr : std::make_unique<Bitmap>(lines);
  }
  Lines Take() { return std::exchange(lines, {}); }

  Lines lines;
  bool none = false;

 private:
  class Bitmap final : public LibraryBitmap {
   public:
    explicit Bitmap(Lines& lines) : lines_(lines) {}
    ~Bitmap() override { lines_.push_back("free"); }
    void TakeOver(const PictureView& picture) override { picture_ = picture; }
    void Sharpen(std::int32_t amount) override { lines_.push_back("sharpen " + std::to_string(amount)); }
    void ChangeSaturation(std::int32_t amount) override { lines_.push_back("saturate " + std::to_string(amount)); }
    void TurnHue(std::int32_t degrees) override { lines_.push_back("turn " + std::to_string(degrees)); }
    void GiveBack() override { *picture_.DisplayRow(0) = 99; }

   private:
    Lines& lines_;
    PictureView picture_;
  };
};

class Host final : public HostWindowHandler {
 public:
  MessageResult OnHostMessage(std::uint32_t message, WParam wParam, LParam) override {
    heard.push_back(std::to_string(message - 0x400) + "/" + std::to_string(wParam));
    return 0;
  }
  void OnRepaintAsked() override { heard.push_back("repaint"); }
  Lines Take() { return std::exchange(heard, {}); }

  Lines heard;
};

class PreviewTest : public testing::Test {
 protected:
  PreviewTest() {
    settings.mode = mode::colour;
    link_.Bind(windows_.MakeHost({100, 100}, host));
  }

  void Refresh(PreviewRenderer& renderer, CDib* preview, std::uint32_t threshold = 128, bool notify = true) {
    renderer.Refresh(settings, preview, threshold, link_, notify);
  }

  Host host;
  ScanSettings settings{};
  RecordingLibrary library;
  PreviewRenderer sheet{sheetPreview, library};
  PreviewRenderer inlineFace{inlinePreview, library};

 private:
  HeadlessWindows windows_;
  HostLink link_{windows_};
};

TEST_F(PreviewTest, HearsOneRepaintAndOnTheInlineFaceTheSizeBefore) {
  TestPicture picture(4, 2);
  Refresh(sheet, &picture.dib);
  EXPECT_THAT(host.Take(), ElementsAre("repaint"));
  Refresh(inlineFace, &picture.dib);
  EXPECT_THAT(host.Take(), ElementsAre("2/0", "repaint"));
  Refresh(inlineFace, &picture.dib, 128, false);
  EXPECT_THAT(host.Take(), ElementsAre("2/1", "repaint"));
  settings.sharpness = 5;
  Refresh(sheet, nullptr);
  Refresh(inlineFace, nullptr);
  EXPECT_THAT(host.Take(), IsEmpty());
  EXPECT_THAT(library.Take(), IsEmpty());
}

TEST_F(PreviewTest, TonesEachBandByItsOwnGammaFromTheUntouchedSource) {
  TestPicture picture(2, 2, 4);
  picture.SetSource(0, 0, 64, 64, 64);
  picture.dib.gammaBlue = 2.0;
  picture.dib.gammaRed = 0.5;
  for (int again = 0; again < 2; ++again) {
    Refresh(sheet, &picture.dib);
    EXPECT_THAT(picture.DisplayPixel(0, 0), ElementsAre(127, 64, 16));
    EXPECT_THAT(picture.DisplayPixel(1, 1), ElementsAre(254, 254, 253));
  }
  EXPECT_EQ(picture.display[6], TestPicture::untouched) << "padding behind a row";
}

TEST_F(PreviewTest, ReducesByTheGreenLevelAndTheLimitOfItsFace) {
  TestPicture picture(3, 1);
  picture.dib.brightness = 28;
  picture.dib.contrast = 100;
  struct Case {
    std::uint32_t mode;
    bool onSheet;
    int green, expected;
  };
  for (const Case& c : {Case{mode::blackWhite, true, 101, 255},
                        {mode::blackWhite, true, 100, 0},
                        {mode::blackWhite, false, 129, 255},
                        {mode::blackWhite, false, 128, 0},
                        {mode::gray, true, 129, 255},
                        {mode::jpegGray, false, 129, 255}}) {
    // With these values of the preview a gray level of 129 is lifted to the top.
    for (const std::uint32_t kind : {0U, dib_kind::keepsToned}) {
      picture.dib.kind = kind;
      picture.SetSource(1, 0, 5, static_cast<std::uint8_t>(c.green), 250);
      settings.mode = c.mode;
      Refresh(c.onSheet ? sheet : inlineFace, &picture.dib);
      EXPECT_THAT(picture.DisplayPixel(1, 0), ElementsAre(c.expected, c.expected, c.expected))
          << "mode " << c.mode << " sheet " << c.onSheet << " green " << c.green << " kind " << kind;
    }
  }
  EXPECT_EQ(picture.dib.contrast, 100);
}

TEST_F(PreviewTest, MeetsThresholdsAndValuesBeyondAllLevels) {
  TestPicture picture(1, 1);
  picture.SetSource(0, 0, 0, 0, 0);
  settings.mode = mode::blackWhite;
  picture.dib.brightness = std::numeric_limits<std::int32_t>::max();
  Refresh(sheet, &picture.dib, 0);
  EXPECT_THAT(picture.DisplayPixel(0, 0), ElementsAre(255, 255, 255));
  picture.dib.brightness = std::numeric_limits<std::int32_t>::min();
  Refresh(sheet, &picture.dib, 0xFFFFFFFF);
  EXPECT_THAT(picture.DisplayPixel(0, 0), ElementsAre(0, 0, 0));
}

TEST_F(PreviewTest, KeepsTheTonedColoursForAKindThatAsksForThem) {
  TestPicture picture(1, 1);
  picture.dib.kind = dib_kind::keepsToned;
  picture.SetSource(0, 0, 10, 20, 30);
  settings.mode = mode::gray;
  Refresh(sheet, &picture.dib);
  EXPECT_THAT(picture.DisplayPixel(0, 0), ElementsAre(20, 20, 20));
  EXPECT_EQ(picture.saved[0], 10);
  EXPECT_EQ(picture.saved[2], 30);
}

TEST_F(PreviewTest, RunsTheLibraryOnceMoreWhenAValueWentBackToNothing) {
  TestPicture picture(4, 2);
  settings.saturation = 40;
  Refresh(sheet, &picture.dib);
  EXPECT_THAT(library.Take(), ElementsAre("create 4 2 24", "saturate 400", "free"));
  EXPECT_EQ(picture.display[0], 99) << "what the library gave back is shown";
  settings.saturation = 0;
  Refresh(sheet, &picture.dib);
  EXPECT_THAT(library.Take(), ElementsAre("create 4 2 24", "saturate 0", "free"));
  Refresh(sheet, &picture.dib);
  EXPECT_THAT(library.Take(), IsEmpty());
  EXPECT_EQ(picture.display[0], 254);
}

TEST_F(PreviewTest, AsksTheLibraryForWhatTheModeShows) {
  TestPicture picture(4, 2);
  settings.saturation = 101;
  settings.hue = -181;
  Refresh(sheet, &picture.dib);
  EXPECT_THAT(library.Take(), IsEmpty()) << "colours out of range are none";
  for (const auto& [sharpness, passed] : {std::pair{std::numeric_limits<int>::max(), "sharpen 1000"},
                                          std::pair{-101, "sharpen -1000"}, std::pair{0, "sharpen 0"}}) {
    settings.sharpness = sharpness;
    Refresh(sheet, &picture.dib);
    EXPECT_THAT(library.Take(), ElementsAre("create 4 2 24", passed, "free")) << "sharpness is held to its range";
  }
  settings.saturation = -100;
  settings.hue = 180;
  settings.mode = mode::gray;
  Refresh(sheet, &picture.dib);
  EXPECT_THAT(library.Take(), IsEmpty()) << "gray has no colours to change";
  settings.sharpness = -7;
  Refresh(sheet, &picture.dib);
  EXPECT_THAT(library.Take(), ElementsAre("create 4 2 24", "sharpen -70", "free"));
  settings.sharpness = settings.saturation = settings.hue = 0;
  settings.mode = mode::jpegColour;
  Refresh(sheet, &picture.dib);
  EXPECT_THAT(library.Take(), ElementsAre("create 4 2 24", "sharpen 0", "saturate 0", "turn 0", "free"))
      << "the gray run kept the values of the record";
  settings.sharpness = 1;
  settings.hue = -3;
  Refresh(inlineFace, &picture.dib);
  EXPECT_THAT(library.Take(), IsEmpty()) << "no stage on the inline face";
  library.none = true;
  Refresh(sheet, &picture.dib);
  EXPECT_EQ(picture.display[0], 254) << "without a bitmap the picture stays toned";
}

TEST_F(PreviewTest, WorksOnCertainRowsAloneWhenHeaderAndBuffersDisagree) {
  settings.mode = mode::blackWhite;
  settings.sharpness = 100;
  // Each of these makes a picture that nothing certain is known of.
  const std::vector<void (*)(CDib&)> damages = {[](CDib& dib) { dib.header->bitCount = 8; },
                                                [](CDib& dib) { dib.header->height = -2; },
                                                [](CDib& dib) { dib.header->width = 0x7FFFFFFF; },
                                                [](CDib& dib) { dib.header->compression = 1; },
                                                [](CDib& dib) { dib.stride = 0; },
                                                [](CDib& dib) { dib.stride = 0xFFFFFFFF; },
                                                [](CDib& dib) { dib.imageSize = 11; },
                                                [](CDib& dib) { dib.sourcePixels = nullptr; },
                                                [](CDib& dib) { dib.displayPixels = nullptr; },
                                                [](CDib& dib) { dib.header->height = 0; }};
  for (const auto damage : damages) {
    TestPicture picture(4, 2);
    damage(picture.dib);
    Refresh(sheet, &picture.dib);
    EXPECT_THAT(host.Take(), ElementsAre("repaint"));
    EXPECT_EQ(picture.display, std::vector<std::uint8_t>(24, TestPicture::untouched));
  }
  // An image too small for all rows holds the picture's upper ones, at its end.
  TestPicture picture(4, 2);
  picture.dib.imageSize = 13;
  settings.mode = mode::colour;
  settings.sharpness = 0;
  Refresh(sheet, &picture.dib);
  EXPECT_EQ(picture.display[0], TestPicture::untouched);
  EXPECT_EQ(picture.display[1], 254);
  EXPECT_EQ(picture.display[12], 254);
  EXPECT_EQ(picture.display[13], TestPicture::untouched);
}

TEST(ApplyToneTables, KeepsToTheRectangleCountedFromTheLowerEdge) {
  TestPicture picture(3, 3);
  std::iota(picture.source.begin(), picture.source.end(), std::uint8_t{0});
  ApplyToneTables(picture.dib, {1, 0, 2, 1}, ToneUse::copyUnchanged);
  EXPECT_THAT(picture.DisplayPixel(1, 0), ElementsAre(3, 4, 5));
  ApplyToneTables(picture.dib, {-5, 2, 99, 99}, ToneUse::copyUnchanged);
  EXPECT_THAT(picture.DisplayPixel(0, 2), ElementsAre(24, 25, 26));
  EXPECT_THAT(picture.DisplayPixel(2, 2), ElementsAre(30, 31, 32));
  for (const auto& [x, row] : {std::pair{0, 0}, {2, 0}, {0, 1}, {1, 1}, {2, 1}}) {
    EXPECT_EQ(*picture.Display(x, row), TestPicture::untouched) << x << ", " << row;
  }
  picture.dib.kind = dib_kind::keepsToned;
  ApplyToneTables(picture.dib, {0, 2, 3, 2}, ToneUse::copyUnchanged);
  EXPECT_EQ(picture.saved[4], TestPicture::untouched) << "an empty rectangle does nothing";
}

}  // namespace
}  // namespace set32
