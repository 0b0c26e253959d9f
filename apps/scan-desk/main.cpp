// A windowed host for the panel.
//
//   scan-desk.exe [--page N] [--snapshot FILE.png] [--once] [PREVIEW.bmp]
//
// With --snapshot it writes a picture of itself as soon as the panel stands, turned to page N of its sheet (0 or 1);
// with --once it ends then.
#include <windows.h>

#include <shellapi.h>

#include <string>

#include "apps/scan-desk/desk_window.h"
#include "apps/scan-desk/snapshot.h"

namespace {

struct Arguments {
  std::wstring picture;
  std::wstring snapshot;
  int page = 0;
  bool once = false;
};

Arguments ReadArguments() {
  Arguments arguments;
  int count = 0;
  wchar_t** values = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; values != nullptr && i < count; ++i) {
    const std::wstring value = values[i];
    if (value == L"--snapshot" && i + 1 < count) {
      arguments.snapshot = values[++i];
    } else if (value == L"--page" && i + 1 < count) {
      arguments.page = values[++i][0] == L'1' ? 1 : 0;
    } else if (value == L"--once") {
      arguments.once = true;
    } else {
      arguments.picture = values[i];
    }
  }
  LocalFree(values);
  return arguments;
}

// A loop that knows nothing of dialogs, as hosts have it: the panel looks after its own keys.
int RunMessages(const scan_desk::DeskWindow& desk) {
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (TranslateAcceleratorW(desk.Window(), desk.Keys(), &message)) continue;
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
  SetProcessDPIAware();
  const Arguments arguments = ReadArguments();
  scan_desk::DeskWindow desk;
  if (!desk.Create(arguments.picture)) return 1;
  if (arguments.page != 0) scan_desk::TurnToPage(desk.Window(), arguments.page);
  if (!arguments.snapshot.empty()) {
    Settle();
    if (!scan_desk::SaveSnapshot(desk.Window(), arguments.snapshot)) return 1;
  }
  return arguments.once ? 0 : RunMessages(desk);
}
