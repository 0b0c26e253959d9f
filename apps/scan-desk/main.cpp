// A windowed host for the panel.
//
//   scan-desk.exe [OPTION...] [PREVIEW]
//
// The options are told in arguments.cpp. With --once it ends as soon as the panel stands and says on standard error
// what it would tell a person otherwise. The exit status is 0, 1 when there is no panel or no snapshot, 2 for a wrong
// command line.
#include <windows.h>

#include <string>

#include "apps/scan-desk/window/arguments.h"
#include "apps/scan-desk/window/desk_window.h"
#include "apps/scan-desk/window/drag_measure.h"
#include "apps/scan-desk/window/snapshot.h"

namespace {

// A loop that knows nothing of dialogs, as hosts have it: the panel looks after its own keys.
int RunMessages(const scan_desk::DeskWindow& desk) {
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (desk.TakeKey(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}

// Paints what is due, for as long as a system needs to bring a window up.
void Settle() {
  constexpr DWORD settling = 1500;
  const ULONGLONG end = GetTickCount64() + settling;
  for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
}

// A line where there is a terminal, or the end of a pipe; else a box.
void SayOn(DWORD stream, HWND owner, const std::wstring& text) {
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, nullptr, 0, nullptr, nullptr);
  std::string line(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, line.data(), size, nullptr, nullptr);
  line.back() = '\n';  // in the place of the zero
  DWORD written = 0;
  if (!WriteFile(GetStdHandle(stream), line.data(), static_cast<DWORD>(line.size()), &written, nullptr))
    scan_desk::ShowBox(owner, text);
}

void SayLine(HWND owner, const std::wstring& text) {
  SayOn(STD_ERROR_HANDLE, owner, text);
}

}  // namespace

int main() {
  std::wstring trouble;
  const std::optional<scan_desk::Arguments> arguments = scan_desk::ReadArguments(GetCommandLineW(), trouble);
  if (!arguments) {
    SayLine(nullptr, trouble + L"\n\n" + scan_desk::usage);
    return 2;
  }
  if (arguments->help) {
    SayOn(STD_OUTPUT_HANDLE, nullptr, scan_desk::usage);
    return 0;
  }
  scan_desk::DeskWindow desk({.choices = arguments->choices, .say = arguments->once ? SayLine : scan_desk::ShowBox});
  if (!desk.Create(arguments->picture)) return 1;
  scan_desk::TurnToPage(desk.Page(), arguments->page, arguments->tab);
  if (arguments->advanced) scan_desk::OpenAdvanced(desk.Page());
  if (arguments->drag) {
    Settle();
    const auto told = scan_desk::MeasureDrag(desk.Window(), desk.Page(), desk.Preview());
    SayLine(desk.Window(), told.value_or(L"There is no slider to drag."));
    if (!told) return 1;
  }
  if (!arguments->snapshot.empty()) {
    Settle();
    if (!scan_desk::SaveSnapshot(arguments->snapshot)) return 1;
  }
  return arguments->once ? 0 : RunMessages(desk);
}
