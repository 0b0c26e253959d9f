#include "apps/scan-desk/window/host_lines.h"

#include <algorithm>
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

struct Name {
  UINT message;
  const wchar_t* text;
  const wchar_t* unit = nullptr;  // of lParam, null where that is an address
};

constexpr Name names[] = {{set32::to_host::resolutionChanged, L"resolution", L" dpi"},
                          {set32::to_host::areaChanged, L"area"},
                          {set32::to_host::settingsChanged, L"settings"},
                          {set32::to_host::modeShown, L"mode", L""},
                          {set32::to_host::unitChosen, L"unit", L" dpi"},
                          {set32::to_host::customSizeTaken, L"custom size"},
                          {set32::to_host::autoCropChanged, L"auto crop"},
                          {set32::to_host::frameTabChanged, L"frame"},
                          {set32::to_host::deviceSelected, L"device"}};

// A message that the panel is not known to send may carry anything.
Name NameOf(UINT message) {
  const auto* const found = std::ranges::find(names, message, &Name::message);
  return found == std::end(names) ? Name{message, L"(unknown)"} : *found;
}

// What some words of a message mean.
const wchar_t* MeaningOf(UINT message, WPARAM wParam) {
  namespace settings = set32::settings_change;
  if (message == set32::to_host::settingsChanged)
    return wParam == settings::askSource       ? L", may the source change?"
           : wParam == settings::sourceInPlace ? L" of another source"
                                               : L"";
  if (message == set32::to_host::autoCropChanged)
    return wParam == set32::auto_crop_change::checkBox ? L" by its check box" : L" taken over";
  return L"";
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
  const Name name = NameOf(message);
  std::swprintf(text, std::size(text), L"0x%X %d %ls%ls", message, static_cast<int>(wParam), name.text,
                MeaningOf(message, wParam));
  std::wstring line = text;
  if (const ScanSettings* settings = RecordOf(message, lParam)) {
    std::swprintf(text, std::size(text), L": mode %u, %d dpi, %.5g x %.5g in, source %u%ls", settings->mode,
                  settings->dpi, settings->width, settings->height, settings->paperSource,
                  settings->frameCommand != 0 ? L", frame command" : L"");
    return line + text;
  }
  if (message == set32::to_host::deviceSelected)
    return line + L": \"" + WideText(reinterpret_cast<const char*>(lParam)) + L"\"";
  if (name.unit == nullptr) return line;
  return line + L": " + std::to_wstring(static_cast<int>(lParam)) + name.unit;
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

std::wstring LineOfQuestion() {
  return L"to the panel: 0x40D 0, ask for a scanner's address";
}

}  // namespace scan_desk
