// The controls of the model that have little state of their own.
#pragma once

#include <optional>

#include "apps/stage/inspection.h"
#include "apps/stage/model/control_model.h"
#include "apps/stage/model/raster_canvas.h"
#include "platform/tooltip.h"

namespace set32 {

using GroupModel = Modelled<GroupBox>;

class LabelModel : public Modelled<Label> {
 public:
  using Modelled::Modelled;
  void SetColour(std::optional<Colour> colour) override {
    if (Alive()) colour_ = colour;
  }
  std::optional<Colour> OwnColour() const override { return Alive() ? colour_ : std::nullopt; }

 private:
  std::optional<Colour> colour_;
};

// Push buttons, check boxes and radio buttons are clicked alike.
class Clickable {
 public:
  virtual ~Clickable() = default;
  virtual void Click() = 0;
};

// A click on the buttons 1 and 2 is the dialog's OK and Cancel, any other an event of the button.
void ClickButton(const ControlModel& button);

template <typename Interface>
class ButtonModel : public Modelled<Interface>, public Clickable {
 public:
  using Modelled<Interface>::Modelled;
  void Click() override { ClickButton(*this); }
};

class PictureButtonModel : public ButtonModel<PictureButton>, public ShowsPicture {
 public:
  using ButtonModel::ButtonModel;
  void SetPictures(const ButtonPictures& pictures) override;
  std::string PictureName() const override { return pictures_.up.name; }

 private:
  ButtonPictures pictures_;
};

class CheckModel : public ButtonModel<CheckButton> {
 public:
  CheckModel(HeadlessDialog& dialog, const ControlTemplate& source, const Rect& place)
      : ButtonModel(dialog, source, place), startsGroup_((source.flags & control_flag::groupStart) != 0) {}
  void SetChecked(bool checked) override { isTabStop_ = checked_ = checked; }
  bool IsChecked() const override { return Alive() && checked_; }
  // Tab leads to the radio button of a group that has the mark.
  bool IsTabStop() const override { return isTabStop_ || ModelKind() != ControlKind::radio; }
  bool StartsGroup() const { return startsGroup_; }

 private:
  bool startsGroup_;
  bool checked_ = false;
  bool isTabStop_ = true;  // until a program sets or clears the mark
};

class AddressModel : public Modelled<Address> {
 public:
  using Modelled::Modelled;
  int Fields(std::array<std::uint8_t, 4>& fields) const override;
  // The fields joined by points, an empty one as nothing; empty when none is filled.
  std::string Text() const override;
  void SetText(std::string_view) override {}
  // A person's act; a number past a byte is held to it.
  void Fill(const std::array<std::optional<int>, 4>& fields);

 private:
  std::array<std::optional<std::uint8_t>, 4> fields_;
};

class PictureModel : public Modelled<PictureControl>, public ShowsPicture {
 public:
  using Modelled::Modelled;
  void SetPicture(const Picture& picture) override {
    if (Alive()) picture_ = picture;
  }
  std::string PictureName() const override { return Alive() ? picture_.name : std::string(); }
  void SetStopIcon() override {
    if (Alive()) picture_ = Picture{.name = "stop", .size = {}, .pixels = {}};
  }

 private:
  Picture picture_;
};

class FrameModel : public Modelled<Frame>, public KeepsDrawing {
 public:
  using Modelled::Modelled;
  void Draw(const std::function<void(Canvas&)>& drawing) override;
  Picture Drawing() const override { return drawing_; }

 private:
  Picture drawing_;
};

class TooltipModel : public Tooltip, public TellsTips {
 public:
  void AddTool(int controlId, std::string_view text) override { texts_.Add(controlId, text); }
  void AddTool(int controlId, const Rect&, std::string_view text) override { AddTool(controlId, text); }
  std::string TextAt(int controlId, int index) const override { return texts_.At(controlId, index); }

 private:
  TipTexts texts_;
};

}  // namespace set32
