#include "adjust/own_image_library.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <utility>
#include <vector>

namespace set32 {

namespace {

constexpr std::size_t bytesPerPixel = 3;
constexpr std::int32_t fullAmount = 1000;
constexpr std::int32_t halfTurn = 180;

struct Luma {
  double red = 0.213;
  double green = 0.715;
  double blue = 0.072;
};

// A row before it was sharpened, with its first and last pixel repeated and room for a road to read on.
class PaddedRow {
 public:
  explicit PaddedRow(std::size_t width)
      : bytes_((width + 2) * bytesPerPixel + readSlack), rowBytes_(width * bytesPerPixel) {}

  void Take(const std::uint8_t* row) {
    std::memcpy(bytes_.data(), row, bytesPerPixel);
    std::memcpy(bytes_.data() + bytesPerPixel, row, rowBytes_);
    std::memcpy(bytes_.data() + bytesPerPixel + rowBytes_, row + rowBytes_ - bytesPerPixel, bytesPerPixel);
  }
  const std::uint8_t* First() const { return bytes_.data() + bytesPerPixel; }

 private:
  std::vector<std::uint8_t> bytes_;
  std::size_t rowBytes_;
};

struct Filters {
  std::int16_t gain = 0;
  ColourRule colours;

  bool ChangesColours() const { return colours.saturates || colours.turns; }
};

void FilterRows(const PictureView& picture, const PixelRoad& road, const Filters& filters) {
  const auto width = static_cast<std::size_t>(picture.width);
  PaddedRow rows[3] = {PaddedRow(width), PaddedRow(width), PaddedRow(width)};
  PaddedRow* below = &rows[0];
  PaddedRow* middle = &rows[1];
  PaddedRow* above = &rows[2];
  below->Take(picture.DisplayRow(0));
  middle->Take(picture.DisplayRow(0));
  for (int y = 0; y < picture.height; ++y) {
    above->Take(picture.DisplayRow(std::min(y + 1, picture.height - 1)));
    road.sharpen({below->First(), middle->First(), above->First()}, picture.DisplayRow(y), width, filters.gain);
    if (filters.ChangesColours()) road.colours(picture.DisplayRow(y), width, filters.colours);
    PaddedRow* const done = below;
    below = middle;
    middle = above;
    above = done;
  }
}

void ColourRows(const PictureView& picture, const PixelRoad& road, const ColourRule& rule) {
  for (int y = 0; y < picture.height; ++y) {
    road.colours(picture.DisplayRow(y), static_cast<std::size_t>(picture.width), rule);
  }
}

class OwnBitmap final : public LibraryBitmap {
 public:
  OwnBitmap(const PixelRoad& road, int width, int height) : road_(road), width_(width), height_(height) {}

  void TakeOver(const PictureView& picture) override {
    waiting_ = {};
    taken_ = picture.width == width_ && picture.height == height_ ? picture : PictureView{};
  }

  void Sharpen(std::int32_t amount) override {
    if (waiting_.gain != 0 || waiting_.ChangesColours()) RunWaiting();
    waiting_.gain = SharpenGain(amount);
  }

  void ChangeSaturation(std::int32_t amount) override {
    if (waiting_.ChangesColours()) RunWaiting();
    waiting_.colours.saturation = SaturationShare(amount);
    waiting_.colours.saturates = waiting_.colours.saturation != 0;
  }

  void TurnHue(std::int32_t degrees) override {
    if (waiting_.colours.turns) RunWaiting();
    SetTurn(waiting_.colours, degrees);
  }

  void GiveBack() override { RunWaiting(); }

 private:
  void RunWaiting() {
    const Filters filters = std::exchange(waiting_, {});
    if (taken_.height == 0) return;
    if (filters.gain != 0) {
      FilterRows(taken_, road_, filters);
    } else if (filters.ChangesColours()) {
      ColourRows(taken_, road_, filters.colours);
    }
  }

  const PixelRoad& road_;
  int width_;
  int height_;
  PictureView taken_;
  Filters waiting_;
};

std::int16_t Share(double share) {
  return static_cast<std::int16_t>(std::lround(share * 2048.0));
}

}  // namespace

std::unique_ptr<LibraryBitmap> OwnImageLibrary::Create(int width, int height, int bitsPerPixel) {
  if (width <= 0 || height <= 0 || bitsPerPixel != 24) return nullptr;
  return std::make_unique<OwnBitmap>(road_, width, height);
}

std::int16_t SharpenGain(std::int32_t amount) {
  const std::int32_t held = std::clamp(amount, -fullAmount, fullAmount);
  return static_cast<std::int16_t>(held * (held > 0 ? 4096 : 2048) / fullAmount);
}

std::int16_t SaturationShare(std::int32_t amount) {
  return static_cast<std::int16_t>(std::clamp(amount, -fullAmount, fullAmount) * 1024 / fullAmount);
}

void SetTurn(ColourRule& rule, std::int32_t degrees) {
  const std::int32_t held = std::clamp(degrees, -halfTurn, halfTurn);
  const double angle = held * std::numbers::pi / halfTurn;
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  const Luma luma;
  rule.turns = held != 0;
  rule.turn[0] = Share(luma.green - cosine * luma.green - sine * luma.green);       // red from green
  rule.turn[1] = Share(luma.blue - cosine * luma.blue + sine * (1.0 - luma.blue));  // red from blue
  rule.turn[2] = Share(luma.red - cosine * luma.red + sine * 0.143);                // green from red
  rule.turn[3] = Share(luma.blue - cosine * luma.blue - sine * 0.283);              // green from blue
  rule.turn[4] = Share(luma.red - cosine * luma.red - sine * (1.0 - luma.red));     // blue from red
  rule.turn[5] = Share(luma.green - cosine * luma.green + sine * luma.green);       // blue from green
}

}  // namespace set32
