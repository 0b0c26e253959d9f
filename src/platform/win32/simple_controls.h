// Labels, groups, buttons, marks, pictures, frames and address fields on real windows.
#pragma once

#include <memory>

#include "platform/win32/picture_bitmap.h"
#include "platform/win32/real_control.h"

namespace set32::win32 {

class GdiCanvas;

using RealGroup = Real<GroupBox>;

class RealLabel : public Real<Label> {
 public:
  using Real::Real;
  void SetColour(std::optional<Colour> colour) override;
  std::optional<Colour> OwnColour() const override { return Exists() ? colour_ : std::nullopt; }

 private:
  std::optional<Colour> colour_;
};

// The buttons 1 and 2 are the dialog's OK and Cancel.
void ClickedIn(const Win32Dialog& dialog, int id);

template <typename Interface>
class RealClickable : public Real<Interface> {
 public:
  using Real<Interface>::Real;
  void OnCommand(WORD code) override {
    // The second click of a fast pair counts like the first.
    if (code == BN_CLICKED || code == BN_DOUBLECLICKED) ClickedIn(this->Owner(), this->Id());
  }
};

using RealButton = RealClickable<Button>;

class RealCheck : public RealClickable<CheckButton> {
 public:
  RealCheck(Win32Dialog& dialog, HWND window, const ControlTemplate& source);
  void SetChecked(bool checked) override { Ask(BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED); }
  bool IsChecked() const override { return Ask(BM_GETCHECK) == BST_CHECKED; }
};

// Its window's text is the name for screen readers, so the caption is kept here.
class RealPictureButton : public RealClickable<PictureButton> {
 public:
  RealPictureButton(Win32Dialog& dialog, HWND window, const ControlTemplate& source);
  std::string Text() const override { return Exists() ? caption_ : std::string(); }
  void SetPictures(const ButtonPictures& pictures) override;
  void OnDrawItem(const DRAWITEMSTRUCT& item) override;

 private:
  ButtonPictures pictures_;
  std::string caption_;
};

class RealPicture : public Real<PictureControl> {
 public:
  using Real::Real;
  void SetPicture(const Picture& picture) override;
  void SetStopIcon() override;
  void OnDrawItem(const DRAWITEMSTRUCT& item) override;

 private:
  Picture picture_;
  bool stopIcon_ = false;
};

// Keeps what was last drawn, and shows it again whenever its window is uncovered.
class RealFrame : public Real<Frame> {
 public:
  using Real::Real;
  void Draw(const std::function<void(Canvas&)>& drawing) override;
  void OnDrawItem(const DRAWITEMSTRUCT& item) override;

 protected:
  // The canvas for one drawing into the bitmap, which the device context holds.
  virtual std::unique_ptr<GdiCanvas> CanvasOn(HDC dc, const PixelBitmap& bitmap) const;
  // What was last drawn, null before the first time.
  const PixelBitmap* Drawn() const { return drawn_.get(); }

 private:
  void ShowOn(HDC dc) const;

  std::unique_ptr<PixelBitmap> drawn_;
};

class RealAddress : public Real<Address> {
 public:
  using Real::Real;
  int Fields(std::array<std::uint8_t, 4>& fields) const override;
  // The fields joined by points, an empty one as nothing; empty when none is filled.
  std::string Text() const override;
  void SetText(std::string_view) override {}
  bool HasFocus() const override;
  // The windows of the four fields, from left to right.
  std::array<HWND, 4> FieldWindows() const;
};

}  // namespace set32::win32
