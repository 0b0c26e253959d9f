// A windowed host for the panel.
//
//   scan-desk.exe [--page N] [--network usb|real] [--snapshot FILE.png] [--once] [PREVIEW]
//
// With --snapshot it writes a picture of itself as soon as the panel stands, turned to page N of its sheet (0 or 1);
// with --once it ends then. The exit status is 0, 1 when there is no panel or no snapshot, 2 for a wrong command
// line.
#include <windows.h>

#include "apps/scan-desk/window/arguments.h"
#include "apps/scan-desk/window/desk_window.h"
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

}  // namespace

int main() {
  const std::optional<scan_desk::Arguments> arguments = scan_desk::ReadArguments(GetCommandLineW());
  if (!arguments) {
    scan_desk::ShowBox(nullptr, scan_desk::usage);
    return 2;
  }
  scan_desk::DeskWindow desk({.search = arguments->search});
  if (!desk.Create(arguments->picture)) return 1;
  if (arguments->page != 0) scan_desk::TurnToPage(desk.Window(), arguments->page);
  if (!arguments->snapshot.empty()) {
    Settle();
    if (!scan_desk::SaveSnapshot(desk.Window(), arguments->snapshot)) return 1;
  }
  return arguments->once ? 0 : RunMessages(desk);
}
