#include "adjust/own_image_library.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <utility>
#include <vector>

#include "adjust/tone_tables.h"

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

// The rows of a picture as filters find them: the display pixels, or source pixels on their way through tables.
struct UnfilteredRows {
  const PictureView& picture;
  const PixelRoad& road;
  const PixelTables* toning;  // null: the display pixels

  std::size_t Width() const { return static_cast<std::size_t>(picture.width); }

  void Read(int row, std::uint8_t* to) const {
    if (toning) {
      road.Tone(picture.SourceRow(row), to, Width(), *toning);
    } else if (to != picture.DisplayRow(row)) {
      std::memcpy(to, picture.DisplayRow(row), Width() * bytesPerPixel);
    }
  }
};

// A row before it was sharpened, with its first and last pixel repeated and room for a road to read on.
class PaddedRow {
 public:
  explicit PaddedRow(std::size_t width)
      : bytes_((width + 2) * bytesPerPixel + readSlack), rowBytes_(width * bytesPerPixel) {}

  void Take(const UnfilteredRows& rows, int row) {
    std::uint8_t* const first = bytes_.data() + bytesPerPixel;
    rows.Read(row, first);
    std::memcpy(bytes_.data(), first, bytesPerPixel);
    std::memcpy(first + rowBytes_, first + rowBytes_ - bytesPerPixel, bytesPerPixel);
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

void FilterRows(const UnfilteredRows& rows, const Filters& filters) {
  const auto& [picture, road, toning] = rows;
  const std::size_t width = rows.Width();
  PaddedRow three[] = {PaddedRow(width), PaddedRow(width), PaddedRow(width)};
  PaddedRow* below = &three[0];
  PaddedRow* middle = &three[1];
  PaddedRow* above = &three[2];
  below->Take(rows, 0);
  middle->Take(rows, 0);
  for (int y = 0; y < picture.height; ++y) {
    if (y + 1 < picture.height) above->Take(rows, y + 1);
    const PaddedRow& next = y + 1 < picture.height ? *above : *middle;
    road.sharpen({below->First(), middle->First(), next.First()}, picture.DisplayRow(y), width, filters.gain);
    if (filters.ChangesColours()) road.colours(picture.DisplayRow(y), width, filters.colours);
    PaddedRow* const done = below;
    below = middle;
    middle = above;
    above = done;
  }
}

void ColourRows(const UnfilteredRows& rows, const ColourRule& rule) {
  for (int y = 0; y < rows.picture.height; ++y) {
    std::uint8_t* const row = rows.picture.DisplayRow(y);
    rows.Read(y, row);
    rows.road.colours(row, rows.Width(), rule);
  }
}

class OwnBitmap final : public LibraryBitmap {
 public:
  OwnBitmap(const PixelRoad& road, int width, int height) : road_(road), width_(width), height_(height) {}

  void TakeOver(const PictureView& picture) override {
    waiting_ = {};
    toning_ = nullptr;
    taken_ = Fits(picture) ? picture : PictureView{};
  }

  void TakeOverToned(const PictureView& picture, const PixelTables& tables) override {
    TakeOver(picture);
    if (Fits(picture)) {
      toning_ = &tables;
    } else {
      ToneRows(picture, tables, road_);
    }
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
  bool Fits(const PictureView& picture) const { return picture.width == width_ && picture.height == height_; }

  void RunWaiting() {
    const Filters filters = std::exchange(waiting_, {});
    if (taken_.height == 0) return;
    const UnfilteredRows rows{taken_, road_, std::exchange(toning_, nullptr)};
    if (filters.gain != 0) {
      FilterRows(rows, filters);
    } else if (filters.ChangesColours()) {
      ColourRows(rows, filters.colours);
    } else if (rows.toning) {
      ToneRows(taken_, *rows.toning, road_);
    }
  }

  const PixelRoad& road_;
  int width_;
  int height_;
  PictureView taken_;
  const PixelTables* toning_ = nullptr;  // what the source pixels still have to go through
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
