#include "apps/stage/win32/watched_controls.h"

#include "platform/win32/gdi_canvas.h"

namespace set32::win32 {

namespace {

// Leaves the mark of dotted pens in the bitmap that it draws into.
class TracingCanvas : public GdiCanvas {
 public:
  TracingCanvas(HDC dc, const PixelBitmap& bitmap) : GdiCanvas(dc, bitmap.Area()), bitmap_(bitmap) {}

 protected:
  void Dot(Point at, Colour colour) override {
    GdiCanvas::Dot(at, colour);
    GdiFlush();
    if (std::uint8_t* pixel = bitmap_.At(at.x, at.y)) pixel[3] = dottedAlpha;
  }

 private:
  const PixelBitmap& bitmap_;
};

}  // namespace

void WatchedCombo::OnCommand(WORD code) {
  if (code == CBN_DROPDOWN) wasDropped_ = true;
  RealCombo::OnCommand(code);
}

void WatchedPictureButton::SetPictures(const ButtonPictures& pictures) {
  name_ = pictures.up.name;
  RealPictureButton::SetPictures(pictures);
}

void WatchedPicture::SetPicture(const Picture& picture) {
  name_ = picture.name;
  RealPicture::SetPicture(picture);
}

void WatchedPicture::SetStopIcon() {
  name_ = "stop";
  RealPicture::SetStopIcon();
}

Picture WatchedFrame::Drawing() const {
  const PixelBitmap* drawn = Drawn();
  if (drawn == nullptr) return {};
  GdiFlush();
  const Size size = drawn->Area();
  Picture picture{.name = {}, .size = size, .pixels = {}};
  picture.pixels.reserve(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) * 4);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const std::uint8_t* pixel = drawn->At(x, y);
      picture.pixels.insert(picture.pixels.end(), {pixel[0], pixel[1], pixel[2]});
      picture.pixels.push_back(pixel[3] == dottedAlpha ? dottedAlpha : std::uint8_t{255});
    }
  }
  return picture;
}

std::unique_ptr<GdiCanvas> WatchedFrame::CanvasOn(HDC dc, const PixelBitmap& bitmap) const {
  return std::make_unique<TracingCanvas>(dc, bitmap);
}

void WatchedTooltip::AddTool(int controlId, std::string_view text) {
  RealTooltip::AddTool(controlId, text);
  if (Exists()) texts_.Add(controlId, text);
}

void WatchedTooltip::AddTool(int controlId, const Rect& part, std::string_view text) {
  RealTooltip::AddTool(controlId, part, text);
  if (Exists()) texts_.Add(controlId, text);
}

}  // namespace set32::win32
