#include "apps/scan-desk/window/host_lines.h"

#include <cwchar>
#include <iterator>

#include "apps/scan-desk/window/system_text.h"
#include "messages.h"

namespace scan_desk {

using set32::ScanSettings;

namespace {

constexpr std::size_t longest = 160;

std::wstring PlaceOf(const set32::Rect& frame) {
  return std::to_wstring(frame.Width()) + L" x " + std::to_wstring(frame.Height()) + L" at " +
         std::to_wstring(frame.left) + L", " + std::to_wstring(frame.top);
}

const wchar_t* NameOf(std::uint32_t action) {
  switch (action) {
    case set32::frame_action::select:
      return L"selected";
    case set32::frame_action::added:
      return L"added";
    case set32::frame_action::removed:
      return L"removed";
    default:
      return L"all gone";
  }
}

}  // namespace

const ScanSettings* RecordOf(UINT message, LPARAM lParam) {
  const bool carries = message == set32::to_host::areaChanged || message == set32::to_host::settingsChanged ||
                       message == set32::to_host::customSizeTaken || message == set32::to_host::autoCropChanged;
  return carries ? reinterpret_cast<const ScanSettings*>(lParam) : nullptr;
}

std::wstring LineOfMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  wchar_t text[longest] = L"";
  if (const ScanSettings* settings = RecordOf(message, lParam)) {
    std::swprintf(text, std::size(text), L"0x%X %d settings: mode %u, %d dpi, %.5g x %.5g in, source %u%ls", message,
                  static_cast<int>(wParam), settings->mode, settings->dpi, settings->width, settings->height,
                  settings->paperSource, settings->frameCommand != 0 ? L", frame command" : L"");
  } else if (message == set32::to_host::deviceSelected) {
    return L"0x40C " + std::to_wstring(wParam) + L" \"" + WideText(reinterpret_cast<const char*>(lParam)) + L"\"";
  } else {
    std::swprintf(text, std::size(text), L"0x%X %d %d", message, static_cast<int>(wParam), static_cast<int>(lParam));
  }
  return text;
}

std::wstring LineOfReport(const FrameChange& change, const set32::Rect& frame) {
  std::wstring line = L"to the panel: 0x403 0, frame " + std::to_wstring(change.index) + L" " + NameOf(change.action);
  if (change.action == set32::frame_action::select || change.action == set32::frame_action::added)
    line += L", " + PlaceOf(frame);
  return line;
}

std::wstring LineOfAutoCrop(const set32::Rect& frame) {
  return L"to the panel: 0x403 2, auto crop, " + PlaceOf(frame);
}

}  // namespace scan_desk
