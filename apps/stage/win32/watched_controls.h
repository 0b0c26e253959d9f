// Real controls that remember what scripts and tests ask about.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "apps/stage/inspection.h"
#include "platform/win32/combo_control.h"
#include "platform/win32/edit_control.h"
#include "platform/win32/real_tooltip.h"
#include "platform/win32/simple_controls.h"

namespace set32::win32 {

class WatchedEdit : public RealEdit, public NotesRange {
 public:
  using RealEdit::RealEdit;
  void NoteRange(NumberRange range) override { range_ = range; }
  std::optional<NumberRange> NotedRange() const override { return range_; }

 private:
  std::optional<NumberRange> range_;
};

class WatchedCombo : public RealCombo, public DropsList {
 public:
  using RealCombo::RealCombo;
  void OnCommand(WORD code) override;
  bool WasDropped() const override { return Exists() && wasDropped_; }

 private:
  bool wasDropped_ = false;
};

class WatchedPictureButton : public RealPictureButton, public ShowsPicture {
 public:
  using RealPictureButton::RealPictureButton;
  void SetPictures(const ButtonPictures& pictures) override;
  std::string PictureName() const override { return Exists() ? name_ : std::string(); }

 private:
  std::string name_;
};

class WatchedPicture : public RealPicture, public ShowsPicture {
 public:
  using RealPicture::RealPicture;
  void SetPicture(const Picture& picture) override;
  void SetStopIcon() override;
  std::string PictureName() const override { return Exists() ? name_ : std::string(); }

 private:
  std::string name_;
};

class WatchedFrame : public RealFrame, public KeepsDrawing {
 public:
  using RealFrame::RealFrame;
  Picture Drawing() const override;

 protected:
  std::unique_ptr<GdiCanvas> CanvasOn(HDC dc, const PixelBitmap& bitmap) const override;
};

class WatchedTooltip : public RealTooltip, public TellsTips {
 public:
  using RealTooltip::RealTooltip;
  void AddTool(int controlId, std::string_view text) override;
  void AddTool(int controlId, const Rect& part, std::string_view text) override;
  std::string TextAt(int controlId, int index) const override { return texts_.At(controlId, index); }

 private:
  TipTexts texts_;
};

}  // namespace set32::win32
