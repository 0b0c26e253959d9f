// Pictures of any width at any address, with pages before and behind them that nobody may touch: a refresh gives the
// same bytes on every road, leaves the bytes between rows alone, and reads and writes nothing outside.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <vector>

#include "adjust/own_image_library.h"
#include "adjust/preview.h"
#include "apps/stage/model/headless_windows.h"

namespace set32 {
namespace {

using Bytes = std::vector<std::uint8_t>;

enum class Edge { begin, end };

// Bytes that begin or end where their pages do, between two pages that can't be touched.
class GuardedBytes {
 public:
  GuardedBytes(std::size_t size, Edge edge)
      : page_(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))), inner_((size + page_ - 1) / page_ * page_) {
    void* const pages = mmap(nullptr, inner_ + 2 * page_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED) std::abort();
    pages_ = static_cast<std::uint8_t*>(pages);
    if (mprotect(pages_ + page_, inner_, PROT_READ | PROT_WRITE) != 0) std::abort();
    first = pages_ + page_ + (edge == Edge::begin ? 0 : inner_ - size);
  }
  ~GuardedBytes() { munmap(pages_, inner_ + 2 * page_); }
  GuardedBytes(const GuardedBytes&) = delete;
  GuardedBytes& operator=(const GuardedBytes&) = delete;

  void MakeReadOnly() { mprotect(pages_ + page_, inner_, PROT_READ); }
  void Forbid() { mprotect(pages_ + page_, inner_, PROT_NONE); }

  std::uint8_t* first = nullptr;

 private:
  std::size_t page_;
  std::size_t inner_;
  std::uint8_t* pages_ = nullptr;
};

struct Geometry {
  std::int32_t width;
  std::int32_t height;
  std::uint32_t padding;  // bytes between rows
};

struct Values {
  std::uint32_t mode;
  std::int32_t sharpness;
  std::int32_t saturation;
  std::int32_t hue;
  bool oneGamma;
};

constexpr Values everyStage[] = {
    {mode::colour, 0, 0, 0, false},    {mode::colour, 0, 0, 0, true},        {mode::colour, 60, 0, 0, false},
    {mode::colour, 0, 50, -70, false}, {mode::colour, -40, -100, 170, true}, {mode::gray, 0, 0, 0, true},
    {mode::gray, 100, 0, 0, true},     {mode::blackWhite, 0, 0, 0, true},    {mode::blackWhite, 30, 0, 0, true},
};

class GuardedPicture : public testing::Test {
 protected:
  void Describe(const Geometry& geometry) {
    header_ = {40, geometry.width, geometry.height, 1, 24, 0, 0, 0, 0, 0, 0};
    dib_.header = &header_;
    dib_.stride = static_cast<std::uint32_t>(geometry.width) * 3 + geometry.padding;
    dib_.imageSize = dib_.stride * static_cast<std::uint32_t>(std::abs(geometry.height));
    dib_.brightness = 12;
  }
  ~GuardedPicture() override { dib_.header = nullptr; }

  // The display pixels behind a refresh, which held 7 before it.
  Bytes Refreshed(const PixelRoad& road, const Values& values, const Bytes& pixels, Edge edge) {
    GuardedBytes source(pixels.size(), edge);
    GuardedBytes display(pixels.size(), edge);
    std::copy(pixels.begin(), pixels.end(), source.first);
    std::fill_n(display.first, pixels.size(), std::uint8_t{7});
    source.MakeReadOnly();
    dib_.sourcePixels = source.first;
    dib_.displayPixels = display.first;
    dib_.gammaRed = 1.4;
    dib_.gammaGreen = values.oneGamma ? 1.4 : 0.7;
    dib_.gammaBlue = values.oneGamma ? 1.4 : 2.1;
    if (header_.height < 0) source.Forbid();

    ScanSettings settings{};
    settings.mode = values.mode;
    settings.sharpness = values.sharpness;
    settings.saturation = values.saturation;
    settings.hue = values.hue;
    OwnImageLibrary library(road);
    PreviewRenderer(sheetPreview, library, road).Refresh(settings, &dib_, 128, link_, true);
    return {display.first, display.first + pixels.size()};
  }

  Bytes RandomPixels() {
    Bytes pixels(dib_.imageSize);
    for (auto& byte : pixels) byte = static_cast<std::uint8_t>(random_());
    return pixels;
  }

  void ExpectPaddingUntouched(const Geometry& geometry, const Bytes& display) {
    for (std::size_t at = 0; at < display.size(); ++at) {
      const bool between = at % dib_.stride >= static_cast<std::size_t>(geometry.width) * 3;
      ASSERT_TRUE(!between || display[at] == 7) << "byte " << at;
    }
  }

 private:
  HeadlessWindows windows_;
  HostLink link_{windows_};
  BitmapInfoHeader header_{};
  CDib dib_;
  std::mt19937 random_{71};
};

TEST_F(GuardedPicture, IsRefreshedAlikeOnEveryRoadWithNothingTouchedOutside) {
  for (std::int32_t width = 1; width <= 70; ++width) {
    const Geometry geometry{width, width % 3 + 1, static_cast<std::uint32_t>(width % 4)};
    Describe(geometry);
    const Bytes pixels = RandomPixels();
    for (const Values& values : everyStage) {
      const Bytes expected = Refreshed(UsableRoads().front(), values, pixels, Edge::begin);
      ASSERT_NO_FATAL_FAILURE(ExpectPaddingUntouched(geometry, expected));
      for (const PixelRoad& road : UsableRoads()) {
        for (const Edge edge : {Edge::begin, Edge::end}) {
          ASSERT_EQ(Refreshed(road, values, pixels, edge), expected)
              << road.name << ", width " << width << ", mode " << values.mode << ", sharpness " << values.sharpness;
        }
      }
    }
  }
}

TEST_F(GuardedPicture, OfNegativeHeightIsNeitherReadNorWritten) {
  Describe({17, -3, 1});
  const Bytes pixels = RandomPixels();
  for (const PixelRoad& road : UsableRoads()) {
    for (const Values& values : everyStage) {
      EXPECT_EQ(Refreshed(road, values, pixels, Edge::end), Bytes(pixels.size(), 7));
    }
  }
}

}  // namespace
}  // namespace set32
