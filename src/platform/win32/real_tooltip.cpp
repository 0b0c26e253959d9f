#include "platform/win32/real_tooltip.h"

#include <string>

#include "platform/win32/code_page.h"
#include "platform/win32/rects.h"

#include <commctrl.h>

namespace set32::win32 {

RealTooltip::RealTooltip(HWND dialog)
    : dialog_(dialog),
      window_(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0,
                              0, 0, dialog, nullptr, nullptr, nullptr)) {}

void RealTooltip::Activate() {
  if (Exists()) SendMessageW(window_.Get(), TTM_ACTIVATE, TRUE, 0);
}

void RealTooltip::SetDelay(int milliseconds) {
  if (Exists()) SendMessageW(window_.Get(), TTM_SETDELAYTIME, TTDT_AUTOMATIC, MAKELPARAM(milliseconds, 0));
}

void RealTooltip::AddTool(int controlId, std::string_view text) {
  Add(controlId, nullptr, text);
}

void RealTooltip::AddTool(int controlId, const Rect& part, std::string_view text) {
  Add(controlId, &part, text);
}

void RealTooltip::Add(int controlId, const Rect* part, std::string_view text) {
  const HWND control = GetDlgItem(dialog_, controlId);
  if (!Exists() || control == nullptr) return;
  std::wstring wide = ModuleText().Wide(text);
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;  // every version of the class takes it
  tool.uFlags = TTF_SUBCLASS;
  tool.hwnd = control;
  tool.lpszText = wide.data();
  if (part != nullptr) {
    tool.uId = ++parts_;
    tool.rect = ToRECT(*part);
  } else {
    tool.uFlags |= TTF_IDISHWND;
    tool.hwnd = dialog_;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
  }
  SendMessageW(window_.Get(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace set32::win32
