// A dialog as data: what the tables of resources/ hold and what both families of windows build from.
#pragma once

#include <span>

#include "platform/geometry.h"

namespace set32 {

enum class ControlKind {
  label,
  group,
  edit,
  combo,
  iconCombo,  // owner-drawn combo
  button,
  defaultButton,  // push button that Enter clicks
  pictureButton,  // owner-drawn button, its caption names its pictures
  check,
  radio,
  list,  // report list: one column, no header, single selection, whole-row highlight
  tab,
  slider,
  scroll,  // horizontal scroll bar
  spin,
  address,  // IP address
  picture,  // static that shows a bitmap or an icon
  frame,    // static with a sunken frame, drawn by the program
};

// Whether a control of this kind takes the focus, by the Tab key, by a click or as a dialog's first control.
constexpr bool TakesFocus(ControlKind kind) {
  switch (kind) {
    case ControlKind::label:
    case ControlKind::group:
    case ControlKind::scroll:
    case ControlKind::spin:
    case ControlKind::picture:
    case ControlKind::frame:
      return false;
    default:
      return true;
  }
}

// Start state and style of a control, or-ed.
namespace control_flag {
inline constexpr unsigned hidden = 1U << 0;
inline constexpr unsigned disabled = 1U << 1;
inline constexpr unsigned readOnly = 1U << 2;
inline constexpr unsigned digitsOnly = 1U << 3;
inline constexpr unsigned alignRight = 1U << 4;
inline constexpr unsigned groupStart = 1U << 5;  // first radio button of a group
inline constexpr unsigned fill = 1U << 6;        // created as large as the dialog's client area (the sheet's tab bar)
}  // namespace control_flag

// Places are dialog units.
struct ControlTemplate {
  int id;
  ControlKind kind;
  const char* caption;  // UTF-8
  int x, y, width, height;
  unsigned flags = 0;
  // What a screen reader calls it: needed where it has no text of its own and no label right before it. UTF-8; never
  // drawn.
  const char* name = nullptr;
};

enum class DialogStyle {
  child,          // stands inside its parent: a page
  sheet,          // child, visible, tab stop; tabbing runs through its children
  modalPopup,     // caption, run by RunModal
  modelessPopup,  // caption, stands beside its owner
  notePopup,      // the same, and leaves the focus where it is when it appears
  bare,           // modeless, without caption and buttons
};

struct DialogTemplate {
  int id;
  const char* caption;  // UTF-8
  Size size;            // dialog units
  const char* fontName;
  int fontPoints;
  DialogStyle style;
  std::span<const ControlTemplate> controls;  // in tabbing order
};

}  // namespace set32
