// What all controls of the model of windows share: their place, their flags, and the way by which they raise events.
//
// A typed control is Modelled<Interface>: the interface of platform/control.h over this state. Once its window is
// gone it has no dialog, and everything it is asked answers like a control that isn't there.
#pragma once

#include <string>
#include <string_view>

#include "platform/control.h"
#include "platform/events.h"
#include "platform/geometry.h"

namespace set32 {

class HeadlessDialog;

class ControlModel {
 public:
  virtual ~ControlModel() = default;
  ControlModel(const ControlModel&) = delete;
  ControlModel& operator=(const ControlModel&) = delete;

  bool Alive() const { return dialog_ != nullptr; }
  HeadlessDialog* Owner() const { return dialog_; }
  int ModelId() const { return id_; }
  ControlKind ModelKind() const { return kind_; }
  // Edits and combos tell their dialog when the focus comes and goes.
  bool TellsFocus() const;
  // Enabled, visible, and of a kind that takes the focus.
  bool CanTakeFocus() const;
  // Whether Tab stops here, apart from that.
  virtual bool IsTabStop() const { return true; }

  // The window is gone.
  virtual void Perish() { dialog_ = nullptr; }

  // Raises an event of this control, if it still stands when its turn comes.
  void Raise(Event event) const;
  void Raise(EventKind kind) const { Raise(Event{.kind = kind}); }

 protected:
  ControlModel(HeadlessDialog& dialog, const ControlTemplate& source, const Rect& place);

  void Enable(bool enabled);
  void Show(bool visible);
  void Put(const Rect& place);
  void Focus();
  bool Focused() const;
  Size Inside() const;

  bool enabled_;
  bool visible_;
  Rect place_;
  std::string caption_;

 private:
  HeadlessDialog* dialog_;
  int id_;
  ControlKind kind_;
};

// Pixels that a text takes in the model's one font: 6 for an ASCII character, 12 for any other.
int ModelTextWidth(std::string_view text);

template <typename Interface>
class Modelled : public Interface, public ControlModel {
 public:
  Modelled(HeadlessDialog& dialog, const ControlTemplate& source, const Rect& place)
      : Interface(source.id, source.kind), ControlModel(dialog, source, place) {}

  bool Exists() const override { return Alive(); }
  void SetEnabled(bool enabled) override { Enable(enabled); }
  bool IsEnabled() const override { return Alive() && enabled_; }
  void SetVisible(bool visible) override { Show(visible); }
  bool IsVisible() const override { return Alive() && visible_; }
  Rect Place() const override { return Alive() ? place_ : Rect{}; }
  void Move(const Rect& place) override { Put(place); }
  Size ClientSize() const override { return Alive() ? Inside() : Size{}; }
  void SetFocus() override { Focus(); }
  bool HasFocus() const override { return Focused(); }
  std::string Text() const override { return Alive() ? caption_ : std::string(); }
  void SetText(std::string_view text) override {
    if (Alive()) caption_ = text;
  }
  int TextWidth(std::string_view text) const override { return Alive() ? ModelTextWidth(text) : 0; }
};

}  // namespace set32
