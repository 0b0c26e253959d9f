// The smallest whole host: loads set32.dll by name, gives the panel a place in its window, answers its messages, and
// ends it by ending its own window.
//
//   example-host.exe [--once] [--network usb|real] [PREVIEW.bmp]
//
// With --once it says what it heard and ends by itself as soon as the panel stands. The panel searches for scanners
// on USB alone, unless --network real lets it ask every machine in the network. docs/host-guide.md goes through this
// file step by step.
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include <set32/dib_file.h>
#include <set32/messages.h>
#include <set32/new_settings.h>
#include <set32/ui_fix_setting.h>

namespace {

// What must outlive the panel: its record and its picture.
struct Host {
  set32::ScanSettings settings = set32::NewSettings();
  set32::CDib preview;
  HWND window = nullptr;
  HWND page = nullptr;
  int heard = 0;
};

class SilentTrouble : public set32::DibTrouble {
 public:
  void Say(const char* text) override { std::fprintf(stderr, "example-host: %s\n", text); }
};

bool LoadPreview(Host& host, const char* path) {
  std::ifstream file(path, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  SilentTrouble trouble;
  return set32::LoadBmp(host.preview, {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, trouble);
}

// The panel has written the new values into `settings` before it sends any of these.
LRESULT OnPanelMessage(Host& host, UINT message, WPARAM wParam) {
  ++host.heard;
  std::printf("heard 0x%X\n", message);
  const bool asks = message == set32::to_host::settingsChanged && wParam == set32::settings_change::askSource;
  return asks ? 1 : 0;  // 1 lets the paper source change
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* host = reinterpret_cast<Host*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (host != nullptr && message >= set32::to_host::resolutionChanged && message <= set32::to_host::deviceSelected)
    return OnPanelMessage(*host, message, wParam);
  // Keys go to the panel whenever the window comes to the front.
  if (host != nullptr && message == WM_SETFOCUS) SetFocus(host->page);
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, wParam, lParam);
}

HWND MakeWindow(Host& host) {
  WNDCLASSEXW kind{};
  kind.cbSize = sizeof kind;
  kind.lpfnWndProc = Procedure;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  kind.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
  kind.lpszClassName = L"example-host";
  RegisterClassExW(&kind);
  const HWND window =
      CreateWindowExW(0, kind.lpszClassName, L"Example host", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                      CW_USEDEFAULT, 340, 500, nullptr, nullptr, kind.hInstance, nullptr);
  SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&host));
  return window;
}

bool OpenPanel(Host& host, set32::UiFixSettingFunction fixSetting) {
  const set32::DeviceLimits limits{7, 0x7FFE, 4800, 75};
  set32::DeviceCaps caps{};
  caps.words[set32::DeviceCaps::restrictedMaxDpiWord] = 600;
  caps.words[set32::DeviceCaps::sourceCapsWord] = set32::source_caps::feeder;
  const set32::PanelRect place{0, 0, 320, 460};
  const auto window = reinterpret_cast<set32::WindowHandle>(host.window);
  constexpr std::uint32_t threshold = 128, outputBits = 36;
  const set32::WindowHandle page =
      fixSetting(window, window, &limits, &host.settings, &host.preview, 0, 0, threshold, outputBits, &place, &caps);
  host.page = reinterpret_cast<HWND>(page);
  return page != 0;
}

int RunMessages() {
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}

// Where the panel may search is read when the library is loaded, from a profile beside it that an installer lays.
bool LayModuleProfile(bool searchesNetwork) {
  wchar_t program[MAX_PATH] = L"";
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  const std::wstring path(program);
  const std::wstring profile = path.substr(0, path.find_last_of(L'\\') + 1) + L"QUIRNMFP.ini";
  const bool isLaid =
      WritePrivateProfileStringW(L"RunTime", L"DriverType", searchesNetwork ? L"3" : L"1", profile.c_str()) != FALSE;
  WritePrivateProfileStringW(nullptr, nullptr, nullptr, profile.c_str());  // onto the disk
  return isLaid;
}

struct Arguments {
  bool once = false;
  bool searchesNetwork = false;
  const char* picture = nullptr;
};

// False when the words make no sense.
bool ReadArguments(int count, char** values, Arguments& arguments) {
  for (int i = 1; i < count; ++i) {
    const std::string_view word = values[i];
    const std::string_view next = i + 1 < count ? values[i + 1] : "";
    if (word == "--once") {
      arguments.once = true;
    } else if (word == "--network" && (next == "usb" || next == "real")) {
      arguments.searchesNetwork = next == "real";
      ++i;
    } else if (word.empty() || word.front() == '-' || arguments.picture != nullptr) {
      return false;
    } else {
      arguments.picture = values[i];
    }
  }
  return true;
}

// A function by its name, as the type that its header tells.
template <typename Function>
Function Find(HMODULE library, const char* name) {
  Function function = nullptr;
  const FARPROC found = GetProcAddress(library, name);
  static_assert(sizeof function == sizeof found);
  std::memcpy(&function, &found, sizeof function);
  return function;
}

}  // namespace

int main(int count, char** values) {
  Arguments arguments;
  if (!ReadArguments(count, values, arguments)) {
    std::fprintf(stderr, "usage: example-host [--once] [--network usb|real] [PREVIEW.bmp]\n");
    return 2;
  }
  if (!LayModuleProfile(arguments.searchesNetwork)) {
    std::fprintf(stderr, "example-host: QUIRNMFP.ini can't be written beside this program\n");
    return 2;
  }
  const HMODULE library = LoadLibraryW(L"set32.dll");
  const auto fixSetting = library == nullptr ? nullptr : Find<set32::UiFixSettingFunction>(library, "uiFixSetting");
  if (fixSetting == nullptr) {
    std::fprintf(stderr, "example-host: no set32.dll beside this program\n");
    return 2;
  }

  int status = 0;
  {
    Host host;
    if (arguments.picture != nullptr && !LoadPreview(host, arguments.picture)) return 2;
    host.window = MakeWindow(host);
    if (!OpenPanel(host, fixSetting)) return 1;
    ShowWindow(host.window, SW_SHOW);
    if (arguments.once) PostMessageW(host.window, WM_CLOSE, 0, 0);
    // The end of the window ends the panel; until then record and picture stand.
    status = RunMessages();
    if (arguments.once) std::printf("heard %d messages\n", host.heard);
    if (arguments.once && host.heard == 0) status = 1;
  }
  FreeLibrary(library);
  return status;
}
