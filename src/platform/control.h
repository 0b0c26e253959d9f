// The controls of a dialog, each as a typed object.
//
// A dialog owns its controls; a pointer or reference to one is good as long as the dialog object lives, also after
// its window died. Every operation of a base class is what a control does that isn't there (its class could not be
// created, or its window is gone): setters do nothing, getters give nothing. So the logic never asks.
//
// Text is bytes of the module's code page (platform/system.h). Carets, selections and limits count characters.
//
// Which events a change raises is told in platform/events.h. Host's thread only.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/canvas.h"
#include "platform/dialog_template.h"
#include "platform/geometry.h"
#include "platform/picture.h"

namespace set32 {

class Dialog;

class Control {
 public:
  Control(int id, ControlKind kind) : id_(id), kind_(kind) {}
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  int Id() const { return id_; }
  ControlKind Kind() const { return kind_; }

  // False for a control that isn't there.
  virtual bool Exists() const { return false; }

  virtual void SetEnabled(bool) {}
  virtual bool IsEnabled() const { return false; }
  // The control's own flag, whatever its page's.
  virtual void SetVisible(bool) {}
  virtual bool IsVisible() const { return false; }

  // The window rectangle in client coordinates of the dialog.
  virtual Rect Place() const { return {}; }
  // Moves and repaints.
  virtual void Move(const Rect&) {}
  virtual Size ClientSize() const { return {}; }

  virtual void SetFocus() {}
  virtual bool HasFocus() const { return false; }

  // Caption, edit text, or the text of a combo's selection.
  virtual std::string Text() const { return {}; }
  virtual void SetText(std::string_view) {}
  // What a screen reader calls a control that has no text of its own. Never drawn; text and what is shown stay.
  virtual void SetName(std::string_view) {}

  // Repaints at once.
  virtual void Update() {}

  // Width in pixels of a text in the control's font.
  virtual int TextWidth(std::string_view) const { return 0; }

 private:
  int id_;
  ControlKind kind_;
};

// A label's text has the window text's colour unless one of its own is set.
class Label : public Control {
 public:
  using Control::Control;
  virtual void SetColour(std::optional<Colour> /*colour*/) {}
  virtual std::optional<Colour> OwnColour() const { return {}; }
};

// What looks at a key before the edit does. Implemented above; the edit doesn't own it.
class EditGuard {
 public:
  virtual ~EditGuard() = default;
  // A character, in the module's code page (1 to 4 bytes; a control character is one byte). True: the edit takes it.
  virtual bool OnCharacter(std::string_view character) = 0;
  // A paste request. True: the edit pastes by itself.
  virtual bool OnPaste() = 0;
  // Enter going down, before anything else sees it; the key then goes its ordinary way.
  virtual void OnEnterKey() = 0;
};

struct TextRange {
  int start = 0;  // characters
  int end = 0;
  bool operator==(const TextRange&) const = default;
};

// What a numeric edit takes, both ends included.
struct NumberRange {
  double low = 0;
  double high = 0;
};

class Edit : public Control {
 public:
  using Control::Control;
  // The numeric edit's class tells what it takes, for whoever inspects a page; it changes nothing by itself.
  virtual void NoteRange(NumberRange) {}
  virtual TextRange Selection() const { return {}; }
  // The caret stands at the end.
  virtual void Select(TextRange) {}
  // Replaces the selection, or inserts at the caret.
  virtual void ReplaceSelection(std::string_view) {}
  virtual void ScrollCaretIntoView() {}
  // Highest number of characters that a person may type; text set by the program is not cut.
  virtual void SetLimit(int /*characters*/) {}
  // Null takes it away. The guard must outlive the edit's window or be taken away before.
  virtual void SetGuard(EditGuard*) {}
};

class Button : public Control {  // push buttons
 public:
  using Control::Control;
};

// Up, down, focused, disabled; an empty picture falls back on the first.
struct ButtonPictures {
  Picture up, down, focused, disabled;
};

class PictureButton : public Button {
 public:
  using Button::Button;
  // Takes the button's size from the first picture, if that isn't empty.
  virtual void SetPictures(const ButtonPictures&) {}
};

class CheckButton : public Control {  // check boxes and radio buttons; the program sets the mark, no click does
 public:
  using Control::Control;
  virtual void SetChecked(bool) {}
  virtual bool IsChecked() const { return false; }
};

// One item of an owner-drawn combo that wants drawing.
struct ItemToDraw {
  int index = -1;  // -1: the combo has no selection
  Rect place = {};
  bool entire = true;             // the whole item is wanted
  bool selectionChanged = false;  // the change of selection is wanted
  bool focusChanged = false;      // the focus rectangle is wanted
  bool selected = false;
  bool disabled = false;
};

class ItemPainter {
 public:
  virtual ~ItemPainter() = default;
  virtual void DrawItem(Canvas& canvas, const ItemToDraw& item) = 0;
  virtual int ItemHeight() const = 0;  // pixels
};

// A drop-down list without an edit; entries aren't sorted. Positions are 0-based, -1 is none.
class Combo : public Control {
 public:
  using Control::Control;
  virtual int Count() const { return 0; }
  // At the end, or before `index`. Result: the entry's position, -1 on failure.
  virtual int Add(std::string_view) { return -1; }
  virtual int Insert(int /*index*/, std::string_view /*text*/) { return -1; }
  virtual void Remove(int /*index*/) {}
  virtual void Clear() {}
  virtual std::string EntryText(int /*index*/) const { return {}; }
  // A word of the owner's with each entry; 0 until set.
  virtual void SetData(int /*index*/, std::uintptr_t /*data*/) {}
  virtual std::uintptr_t Data(int /*index*/) const { return 0; }
  // First entry behind `after` (-1: from the first) that begins with the text, or equals it, in both cases without
  // regard to ASCII letter case, going round at the end; -1 when there is none.
  int FindPrefix(int after, std::string_view text) const;
  int FindExact(int after, std::string_view text) const;
  virtual int Selected() const { return -1; }
  // A position outside selects none.
  virtual void SelectIndex(int /*index*/) {}
  // First entry visible in the list.
  virtual int TopIndex() const { return 0; }
  virtual void SetTopIndex(int /*index*/) {}
  // Smallest width of the dropped list in pixels.
  virtual void SetDroppedWidth(int /*pixels*/) {}
  virtual int DroppedWidth() const { return 0; }
  // Owner-drawn combos only; null draws text alone. The painter must outlive the combo's window.
  virtual void SetPainter(ItemPainter*) {}
};

struct RowState {
  bool selected = false;
  bool focused = false;
  bool operator==(const RowState&) const = default;
};

class List : public Control {
 public:
  using Control::Control;
  // Icons of 16 by 16 pixels; a row names one by its place here.
  virtual void SetIcons(const std::vector<Picture>&) {}
  virtual int Count() const { return 0; }
  // At the end. `data` is a word of the owner's. Result: the row, -1 on failure.
  virtual int Add(std::string_view /*text*/, int /*icon*/, std::uintptr_t /*data*/) { return -1; }
  virtual void Remove(int /*row*/) {}
  virtual void Clear() {}
  virtual std::string RowText(int /*row*/) const { return {}; }
  virtual int RowIcon(int /*row*/) const { return -1; }
  virtual std::uintptr_t RowData(int /*row*/) const { return 0; }
  virtual RowState StateOf(int /*row*/) const { return {}; }
  // Selects and focuses a row; the row before loses both.
  virtual void SelectAndFocus(int /*row*/) {}
  virtual void EnsureVisible(int /*row*/) {}
  // Scrolls down by pixels, up when negative, as far as there are rows.
  virtual void ScrollBy(int /*pixels*/) {}
  virtual int TopRow() const { return 0; }
  // How many whole rows the list can show at once.
  virtual int RowsPerPage() const { return 0; }
  // Pixels inside the border, a vertical scroll bar counted in.
  virtual int InnerWidth() const { return 0; }
  virtual void SetColumnWidth(int /*pixels*/) {}
  virtual int ColumnWidth() const { return 0; }
};

class TabBar : public Control {
 public:
  using Control::Control;
  // A strip of images side by side, each `width` pixels; the colour is transparent.
  virtual void SetImages(const Picture& /*strip*/, int /*width*/, Colour /*transparent*/) {}
  virtual int Count() const { return 0; }
  // A tab at the end, with a text or an image (-1: none).
  virtual void Add(std::string_view /*text*/, int /*image*/) {}
  virtual void Remove(int /*index*/) {}
  virtual void Clear() {}
  virtual int Current() const { return -1; }
  virtual void SetCurrent(int /*index*/) {}
  virtual std::string TabText(int /*index*/) const { return {}; }
  virtual int TabImage(int /*index*/) const { return -1; }
  virtual void SetMinTabWidth(int /*pixels*/) {}
  virtual void SetPadding(Size) {}
  // The area that the tabs leave for a page, in the bar's own coordinates.
  virtual Rect DisplayArea() const { return {}; }
};

// What sliders, scroll bars and spins have in common: a position in a range.
class RangeControl : public Control {
 public:
  using Control::Control;
  virtual void SetRange(int /*low*/, int /*high*/) {}
  virtual int Low() const { return 0; }
  virtual int High() const { return 0; }
  virtual int Position() const { return 0; }
  // Held to the range.
  virtual void SetPosition(int /*position*/) {}
};

class Slider : public RangeControl {
 public:
  using RangeControl::RangeControl;
  virtual void SetTickFrequency(int /*frequency*/) {}
  virtual void SetLineSize(int /*size*/) {}
};

class ScrollBar : public RangeControl {
 public:
  using RangeControl::RangeControl;
};

class Spin : public RangeControl {
 public:
  using RangeControl::RangeControl;
  // The edit whose number the spin keeps; by its id in the same dialog, 0 for none.
  virtual void SetBuddy(int /*editId*/) {}
  virtual int Buddy() const { return 0; }
};

class Address : public Control {
 public:
  using Control::Control;
  // How many of the four fields are filled, and their values (an empty field reads 0).
  virtual int Fields(std::array<std::uint8_t, 4>& fields) const {
    fields = {};
    return 0;
  }
};

class PictureControl : public Control {
 public:
  using Control::Control;
  virtual void SetPicture(const Picture&) {}
  // The system's stop icon.
  virtual void SetStopIcon() {}
};

class Frame : public Control {
 public:
  using Control::Control;
  // Draws into the client area, now. The function is called once, or not at all when nothing can be drawn.
  virtual void Draw(const std::function<void(Canvas&)>&) {}
};

class GroupBox : public Control {
 public:
  using Control::Control;
};

}  // namespace set32
