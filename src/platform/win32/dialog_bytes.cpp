#include "platform/win32/dialog_bytes.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "platform/win32/code_page.h"
#include "platform/win32/windows_api.h"

#include <commctrl.h>

namespace set32::win32 {

namespace {

struct ClassAndStyle {
  const wchar_t* name;
  DWORD style;
  DWORD extended;
};

ClassAndStyle LookOf(const ControlTemplate& control) {
  switch (control.kind) {
    case ControlKind::label:
      return {L"Static", SS_LEFT | SS_NOPREFIX, 0};
    case ControlKind::group:
      // A themed frame is a ring some pixels wide, which spares what reaches into it.
      return {L"Button", BS_GROUPBOX | WS_CLIPSIBLINGS, 0};
    case ControlKind::edit:
      return {L"Edit", ES_AUTOHSCROLL | WS_TABSTOP | WS_CLIPSIBLINGS, WS_EX_CLIENTEDGE};
    case ControlKind::combo:
      return {L"ComboBox", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, 0};
    case ControlKind::iconCombo:
      return {L"ComboBox", CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS | WS_VSCROLL | WS_TABSTOP, 0};
    case ControlKind::button:
      return {L"Button", BS_PUSHBUTTON | WS_TABSTOP, 0};
    case ControlKind::defaultButton:
      return {L"Button", BS_DEFPUSHBUTTON | WS_TABSTOP, 0};
    case ControlKind::pictureButton:
      return {L"Button", BS_OWNERDRAW | WS_TABSTOP, 0};
    case ControlKind::check:
      return {L"Button", BS_CHECKBOX | WS_TABSTOP, 0};
    case ControlKind::radio:
      return {L"Button", BS_RADIOBUTTON | WS_TABSTOP, 0};
    case ControlKind::list:
      return {WC_LISTVIEWW,
              LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_SHAREIMAGELISTS | LVS_SINGLESEL | LVS_SHOWSELALWAYS | WS_TABSTOP |
                  WS_CLIPSIBLINGS,
              WS_EX_CLIENTEDGE};
    case ControlKind::tab:
      return {WC_TABCONTROLW, WS_TABSTOP | WS_CLIPSIBLINGS, 0};
    case ControlKind::slider:
      return {TRACKBAR_CLASSW, TBS_HORZ | TBS_AUTOTICKS | WS_TABSTOP, 0};
    case ControlKind::scroll:
      return {L"ScrollBar", SBS_HORZ, 0};
    case ControlKind::spin:
      return {UPDOWN_CLASSW, UDS_SETBUDDYINT | UDS_ARROWKEYS | UDS_NOTHOUSANDS, 0};
    case ControlKind::address:
      return {WC_IPADDRESSW, WS_TABSTOP, 0};
    case ControlKind::picture:
      return {L"Static", SS_OWNERDRAW, 0};
    case ControlKind::frame:
      return {L"Static", SS_OWNERDRAW, WS_EX_STATICEDGE};
  }
  return {L"Static", 0, 0};
}

DWORD StyleOf(const ControlTemplate& control) {
  DWORD style = WS_CHILD | LookOf(control).style;
  const unsigned flags = control.flags;
  if ((flags & control_flag::hidden) == 0) style |= WS_VISIBLE;
  if ((flags & control_flag::disabled) != 0) style |= WS_DISABLED;
  if (control.kind == ControlKind::edit) {
    if ((flags & control_flag::readOnly) != 0) style |= ES_READONLY;
    if ((flags & control_flag::digitsOnly) != 0) style |= ES_NUMBER;
    if ((flags & control_flag::alignRight) != 0) style |= ES_RIGHT;
  }
  // Arrow keys stay among the radio buttons that follow the first of their group.
  if (control.kind != ControlKind::radio || (flags & control_flag::groupStart) != 0) style |= WS_GROUP;
  return style;
}

DWORD StyleOf(DialogStyle style) {
  constexpr DWORD always = DS_SETFONT | DS_3DLOOK | DS_NOFAILCREATE;
  switch (style) {
    case DialogStyle::child:
      return always | DS_CONTROL | WS_CHILD | WS_CLIPSIBLINGS;
    case DialogStyle::sheet:
      return always | DS_CONTROL | WS_CHILD | WS_TABSTOP | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
    case DialogStyle::modalPopup:
    case DialogStyle::modelessPopup:
    case DialogStyle::notePopup:
      return always | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU;
    case DialogStyle::bare:
      return always | WS_POPUP | WS_DLGFRAME;
  }
  return always | WS_POPUP;
}

DWORD ExtendedStyleOf(DialogStyle style) {
  return style == DialogStyle::child || style == DialogStyle::sheet ? WS_EX_CONTROLPARENT : 0;
}

class Writer {
 public:
  void Word(unsigned value) { words_.push_back(static_cast<std::uint16_t>(value)); }
  void Double(DWORD value) {
    Word(value & 0xFFFF);
    Word(value >> 16);
  }
  void Text(std::wstring_view text) {
    for (const wchar_t unit : text) Word(unit);
    Word(0);
  }
  void Place(int x, int y, int width, int height) {
    for (const int value : {x, y, width, height}) Word(static_cast<unsigned>(value));
  }
  void Align() {
    if (words_.size() % 2 != 0) Word(0);
  }
  std::vector<std::uint32_t> Finish() {
    Align();
    std::vector<std::uint32_t> bytes(words_.size() / 2);
    std::memcpy(bytes.data(), words_.data(), words_.size() * sizeof(std::uint16_t));
    return bytes;
  }

 private:
  std::vector<std::uint16_t> words_;
};

// The text of these is what stands in them, so that their name is the label before them.
bool IsNamedByLabel(ControlKind kind) {
  return kind == ControlKind::edit || kind == ControlKind::combo || kind == ControlKind::iconCombo ||
         kind == ControlKind::address;
}

bool NeedsLabel(const ControlTemplate& control) {
  return control.name != nullptr && IsNamedByLabel(control.kind);
}

void WriteItem(Writer& out, const ControlTemplate& control, const char* text) {
  constexpr DWORD noHelp = 0;
  const ClassAndStyle look = LookOf(control);
  out.Align();
  out.Double(noHelp);
  out.Double(look.extended);
  out.Double(StyleOf(control));
  out.Place(control.x, control.y, control.width, control.height);
  out.Double(static_cast<DWORD>(control.id));
  out.Text(look.name);
  out.Text(WideFromUtf8(text == nullptr ? "" : text));
  out.Word(0);  // no creation data
}

void Write(Writer& out, const ControlTemplate& control) {
  // A label of no size names what has none of its own; it isn't seen, and no control of ours.
  constexpr int noControl = 0xFFFE;
  if (NeedsLabel(control)) {
    WriteItem(out, {noControl, ControlKind::label, control.name, control.x, control.y, 0, 0}, control.name);
    WriteItem(out, control, control.caption);
  } else {
    WriteItem(out, control, control.name != nullptr ? control.name : control.caption);
  }
}

}  // namespace

std::vector<std::uint32_t> DialogBytes(const DialogTemplate& source) {
  constexpr unsigned version = 1, extendedTemplate = 0xFFFF;
  Writer out;
  out.Word(version);
  out.Word(extendedTemplate);
  out.Double(0);  // no help
  out.Double(ExtendedStyleOf(source.style));
  out.Double(StyleOf(source.style));
  out.Word(static_cast<unsigned>(source.controls.size() + std::ranges::count_if(source.controls, NeedsLabel)));
  out.Place(0, 0, source.size.width, source.size.height);
  out.Word(0);  // no menu
  out.Word(0);  // the window system's own class of dialogs
  out.Text(WideFromUtf8(source.caption == nullptr ? "" : source.caption));
  out.Word(static_cast<unsigned>(source.fontPoints));
  out.Word(FW_NORMAL);
  out.Word(static_cast<unsigned>(DEFAULT_CHARSET) << 8);  // upright
  out.Text(WideFromUtf8(source.fontName));
  for (const ControlTemplate& control : source.controls) Write(out, control);
  return out.Finish();
}

}  // namespace set32::win32
