// A windowed host for the panel.
//
//   scan-desk.exe [--snapshot FILE.bmp] [PREVIEW.bmp]
//
// With --snapshot it writes a picture of itself as soon as it stands, and ends.
#include <windows.h>

#include <shellapi.h>

#include <string>

#include "apps/scan-desk/desk_window.h"
#include "apps/scan-desk/snapshot.h"

namespace {

struct Arguments {
  std::wstring picture;
  std::wstring snapshot;
};

Arguments ReadArguments() {
  Arguments arguments;
  int count = 0;
  wchar_t** values = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; values != nullptr && i < count; ++i) {
    if (std::wstring(values[i]) == L"--snapshot" && i + 1 < count) {
      arguments.snapshot = values[++i];
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
  if (arguments.snapshot.empty()) return RunMessages(desk);
  Settle();
  return scan_desk::SaveSnapshot(desk.Window(), arguments.snapshot) ? 0 : 1;
}
