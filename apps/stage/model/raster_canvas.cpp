#include "apps/stage/model/raster_canvas.h"

#include <algorithm>
#include <cstdlib>

#include "apps/stage/inspection.h"
#include "apps/stage/model/control_model.h"
#include "platform/utf8.h"

namespace set32 {

namespace {

constexpr std::int64_t bytesPerPixel = 4;
constexpr int markHeight = 7;
constexpr std::uint8_t opaque = 255;  // also the default of Put

Rect Common(const Rect& left, const Rect& right) {
  return {std::max(left.left, right.left), std::max(left.top, right.top), std::min(left.right, right.right),
          std::min(left.bottom, right.bottom)};
}

bool IsSound(const Picture& picture) {
  const std::int64_t bytes = std::int64_t{picture.size.width} * picture.size.height * bytesPerPixel;
  return picture.size.width > 0 && picture.size.height > 0 &&
         static_cast<std::int64_t>(picture.pixels.size()) >= bytes;
}

const std::uint8_t* SourcePixel(const Picture& picture, std::int64_t x, std::int64_t y) {
  return picture.pixels.data() + (y * picture.size.width + x) * bytesPerPixel;
}

// Source cells that the target cell `index` of `target` covers: at least one.
struct Span {
  std::int64_t first, end;
};
Span Covered(std::int64_t index, std::int64_t target, std::int64_t source) {
  const std::int64_t first = index * source / target;
  return {first, std::max(first + 1, (index + 1) * source / target)};
}

// Mean of a block of the picture; false where all of it is transparent.
bool Average(const Picture& picture, Span across, Span down, Colour& mean) {
  std::uint64_t blue = 0, green = 0, red = 0, count = 0;
  for (std::int64_t y = down.first; y < down.end; ++y) {
    for (std::int64_t x = across.first; x < across.end; ++x) {
      const std::uint8_t* pixel = SourcePixel(picture, x, y);
      if (pixel[3] == 0) continue;
      blue += pixel[0];
      green += pixel[1];
      red += pixel[2];
      ++count;
    }
  }
  if (count == 0) return false;
  mean = {static_cast<std::uint8_t>(red / count), static_cast<std::uint8_t>(green / count),
          static_cast<std::uint8_t>(blue / count)};
  return true;
}

}  // namespace

RasterCanvas::RasterCanvas(Size area) {
  raster_.size = {std::max(area.width, 0), std::max(area.height, 0)};
  raster_.pixels.resize(static_cast<std::size_t>(raster_.size.width) * static_cast<std::size_t>(raster_.size.height) *
                        static_cast<std::size_t>(bytesPerPixel));
  RasterCanvas::Fill({0, 0, raster_.size.width, raster_.size.height}, ModelColour(SystemColour::buttonFace));
}

void RasterCanvas::Fill(const Rect& rect, Colour colour) {
  const Rect inside = Common(rect, {0, 0, raster_.size.width, raster_.size.height});
  for (int y = inside.top; y < inside.bottom; ++y) {
    for (int x = inside.left; x < inside.right; ++x) Put(x, y, colour);
  }
}

void RasterCanvas::Line(Point from, Point to, const Pen& pen) {
  const std::int64_t across = std::abs(std::int64_t{to.x} - from.x);
  const std::int64_t down = std::abs(std::int64_t{to.y} - from.y);
  const int stepX = from.x < to.x ? 1 : -1;
  const int stepY = from.y < to.y ? 1 : -1;
  const std::uint8_t alpha = pen.style == Pen::Style::dotted ? dottedAlpha : opaque;
  std::int64_t x = from.x, y = from.y, error = across - down;
  for (bool drawn = true; x != to.x || y != to.y; drawn = !drawn) {
    if (drawn || pen.style == Pen::Style::solid) Put(x, y, pen.colour, alpha);
    const std::int64_t twice = 2 * error;
    if (twice > -down) {
      error -= down;
      x += stepX;
    }
    if (twice < across) {
      error += across;
      y += stepY;
    }
  }
}

void RasterCanvas::Draw(const Picture& picture, Point at) {
  if (!IsSound(picture)) return;
  for (int y = 0; y < picture.size.height; ++y) {
    for (int x = 0; x < picture.size.width; ++x) {
      const std::uint8_t* pixel = SourcePixel(picture, x, y);
      if (pixel[3] != 0)
        Put(std::int64_t{at.x} + x, std::int64_t{at.y} + y, {pixel[2], pixel[1], pixel[0]}, pixel[3]);
    }
  }
}

void RasterCanvas::Stretch(const Picture& picture, const Rect& over) {
  if (!IsSound(picture) || over.Width() <= 0 || over.Height() <= 0) return;
  const Rect inside = Common(over, {0, 0, raster_.size.width, raster_.size.height});
  for (int y = inside.top; y < inside.bottom; ++y) {
    const Span down = Covered(y - over.top, over.Height(), picture.size.height);
    for (int x = inside.left; x < inside.right; ++x) {
      Colour mean;
      if (Average(picture, Covered(x - over.left, over.Width(), picture.size.width), down, mean)) Put(x, y, mean);
    }
  }
}

void RasterCanvas::Text(std::string_view text, const Rect& inside, Colour colour) {
  const int top = inside.top + (inside.Height() - markHeight) / 2;
  for (int left = inside.left; !text.empty() && left < inside.right;) {
    const std::string_view character = text.substr(0, utf8::CharacterLength(text));
    const int width = ModelTextWidth(character);
    if (character != " ") Fill(Common({left, top, left + width - 1, top + markHeight}, inside), colour);
    left += width;
    text.remove_prefix(character.size());
  }
}

void RasterCanvas::FocusRect(const Rect& rect) {
  const Rect inside = Common(rect, {0, 0, raster_.size.width, raster_.size.height});
  for (int y = inside.top; y < inside.bottom; ++y) {
    for (int x = inside.left; x < inside.right; ++x) {
      const bool border = x == rect.left || x == rect.right - 1 || y == rect.top || y == rect.bottom - 1;
      if (border && (x - rect.left + y - rect.top) % 2 == 0) Invert(x, y);
    }
  }
}

Colour RasterCanvas::ModelColour(SystemColour colour) {
  switch (colour) {
    case SystemColour::window:
    case SystemColour::highlightText:
      return {255, 255, 255};
    case SystemColour::windowText:
      return {0, 0, 0};
    case SystemColour::highlight:
      return {10, 36, 106};
    case SystemColour::buttonFace:
      return {212, 208, 200};
  }
  return {};
}

std::uint8_t* RasterCanvas::PixelAt(std::int64_t x, std::int64_t y) {
  if (x < 0 || y < 0 || x >= raster_.size.width || y >= raster_.size.height) return nullptr;
  return raster_.pixels.data() + (y * raster_.size.width + x) * bytesPerPixel;
}

void RasterCanvas::Put(std::int64_t x, std::int64_t y, Colour colour, std::uint8_t alpha) {
  if (std::uint8_t* pixel = PixelAt(x, y)) {
    pixel[0] = colour.blue;
    pixel[1] = colour.green;
    pixel[2] = colour.red;
    pixel[3] = alpha;
  }
}

void RasterCanvas::Invert(int x, int y) {
  if (std::uint8_t* pixel = PixelAt(x, y)) {
    for (int band = 0; band < 3; ++band) pixel[band] = static_cast<std::uint8_t>(~pixel[band]);
  }
}

}  // namespace set32
