// What every host on Windows would write for itself: a report of a frame, and the code page of the panel's texts.
#pragma once

#include <set32/host_records.h>
#include <set32/messages.h>
#include <set32/pointer_word.h>
#include <windows.h>

namespace set32 {

// A frame on the preview: its corner in pixels of the picture, its lengths in inches.
struct FrameRectangle {
  std::int32_t left;
  std::int32_t top;
  double width;
  double height;
};

namespace detail {

inline ScanSettings ReportOf(const ScanSettings& settings, const FrameRectangle& frame) {
  ScanSettings report = settings;
  report.frameLeft = frame.left;
  report.frameTop = frame.top;
  report.customWidth = frame.width;
  report.customHeight = frame.height;
  report.frameCommand = 0;
  return report;
}

}  // namespace detail

// Tells the panel that a person drew, moved, chose or deleted a frame. `settings` is the host's record, of which a
// copy travels; `action` is one of frame_action::. False, and nothing is sent, where `page` is no window or no memory
// below 4 GB is left for the command. On the thread of the panel; the panel's messages come before this returns.
inline bool ReportFrame(HWND page, const ScanSettings& settings, std::uint32_t index, std::uint32_t action,
                        const FrameRectangle& frame) {
  const LowMemory<FrameCommand> command;
  if (command.Get() == nullptr || !IsWindow(page)) return false;
  *command.Get() = {index, action};
  ScanSettings report = detail::ReportOf(settings, frame);
  report.frameCommand = command.Word();
  SendMessageW(page, to_panel::frameReport, frame_report::drawn, reinterpret_cast<LPARAM>(&report));
  return true;
}

// Tells the panel what the automatic crop found; it checks its box. The rest as above.
inline bool ReportCrop(HWND page, const ScanSettings& settings, const FrameRectangle& frame) {
  if (!IsWindow(page)) return false;
  ScanSettings report = detail::ReportOf(settings, frame);
  report.autoCrop = 1;
  SendMessageW(page, to_panel::frameReport, frame_report::cropped, reinterpret_cast<LPARAM>(&report));
  return true;
}

// Whether a code page holds every character of the panel's own texts. Those asked for are missing in the code pages
// of other scripts and of other ways of writing Chinese: what holds them holds the rest.
inline bool HoldsPanelTexts(UINT codePage) {
  constexpr wchar_t rareCharacters[] = L"\u4F48\u55CE\u60A8\u632A\u6A94\u503C\u540B\u6670\u6E05\u73C8\u771F\u6383";
  constexpr int count = static_cast<int>(sizeof rareCharacters / sizeof rareCharacters[0]) - 1;
  // UTF-8 knows neither best fits nor a character of its own for what is missing.
  if (codePage == CP_UTF8) return true;
  BOOL usedDefault = FALSE;
  const int size =
      WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, rareCharacters, count, nullptr, 0, nullptr, &usedDefault);
  return size > 0 && !usedDefault;
}

// The code page of the texts that the panel sends (0x40C) and stores: the system's active one, or UTF-8 where that
// can't hold the panel's own texts.
inline UINT PanelCodePage() {
  const UINT active = GetACP();
  return HoldsPanelTexts(active) ? active : CP_UTF8;
}

}  // namespace set32
