#include "apps/scan-desk/window/host_lines.h"

#include <cwchar>
#include <iterator>

#include "apps/scan-desk/window/system_text.h"
#include "set32/messages.h"

namespace scan_desk {

using set32::ScanSettings;

namespace {

constexpr std::size_t longest = 160;

std::wstring PlaceOf(const set32::Rect& frame) {
  return std::to_wstring(frame.Width()) + L" x " + std::to_wstring(frame.Height()) + L" at " +
         std::to_wstring(frame.left) + L", " + std::to_wstring(frame.top);
}

const wchar_t* NameOf(UINT message) {
  switch (message) {
    case set32::to_host::resolutionChanged:
      return L"resolution";
    case set32::to_host::areaChanged:
      return L"area";
    case set32::to_host::settingsChanged:
      return L"settings";
    case set32::to_host::modeShown:
      return L"mode";
    case set32::to_host::unitChosen:
      return L"unit";
    case set32::to_host::customSizeTaken:
      return L"custom size";
    case set32::to_host::autoCropChanged:
      return L"auto crop";
    case set32::to_host::frameTabChanged:
      return L"frame";
    case set32::to_host::deviceSelected:
      return L"device";
    default:
      return L"";
  }
}

const wchar_t* DeedOf(std::uint32_t action) {
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
  std::swprintf(text, std::size(text), L"0x%X %d %ls", message, static_cast<int>(wParam), NameOf(message));
  std::wstring line = text;
  if (const ScanSettings* settings = RecordOf(message, lParam)) {
    std::swprintf(text, std::size(text), L": mode %u, %d dpi, %.5g x %.5g in, source %u%ls", settings->mode,
                  settings->dpi, settings->width, settings->height, settings->paperSource,
                  settings->frameCommand != 0 ? L", frame command" : L"");
    return line + text;
  }
  if (message == set32::to_host::deviceSelected)
    return line + L": \"" + WideText(reinterpret_cast<const char*>(lParam)) + L"\"";
  if (message == set32::to_host::frameTabChanged) return line;
  return line + L": " + std::to_wstring(static_cast<int>(lParam));
}

std::wstring LineOfReport(const FrameChange& change, const set32::Rect& frame) {
  std::wstring line = L"to the panel: 0x403 0, frame " + std::to_wstring(change.index) + L" " + DeedOf(change.action);
  if (change.action == set32::frame_action::select || change.action == set32::frame_action::added)
    line += L", " + PlaceOf(frame);
  return line;
}

std::wstring LineOfAutoCrop(const set32::Rect& frame) {
  return L"to the panel: 0x403 2, auto crop, " + PlaceOf(frame);
}

}  // namespace scan_desk
