// The built library as a host has it: loaded by name, with a folder of its own, beside a host's window.
#pragma once

#include <gmock/gmock.h>
#include <windows.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "set32/messages.h"
#include "set32/ui_fix_setting.h"
#include "tests/support/scratch_folder.h"

namespace set32 {

inline std::wstring ProgramFolder() {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
  return path.substr(0, path.find_last_of(L'\\') + 1);
}

template <typename Function>
Function Find(HMODULE library, const char* name) {
  Function function = nullptr;
  const FARPROC found = GetProcAddress(library, name);
  std::memcpy(&function, &found, sizeof function);
  return function;
}

// A loop that knows nothing of dialogs: it only translates and dispatches. Result: the keys that it saw go down.
inline std::vector<WPARAM> Pump() {
  std::vector<WPARAM> keys;
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_KEYDOWN) keys.push_back(message.wParam);
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return keys;
}

// A host's window that writes down what it hears, and may act inside.
struct HostWindow {
  HostWindow() {
    WNDCLASSEXW kind{};
    kind.cbSize = sizeof kind;
    kind.lpfnWndProc = Procedure;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.lpszClassName = L"dll-test-host";
    RegisterClassExW(&kind);
    window = CreateWindowExW(0, kind.lpszClassName, L"", WS_OVERLAPPEDWINDOW, 0, 0, 400, 600, nullptr, nullptr,
                             kind.hInstance, nullptr);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }
  ~HostWindow() {
    if (IsWindow(window)) DestroyWindow(window);
  }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* host = reinterpret_cast<HostWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (host != nullptr && message >= WM_USER && message < WM_APP) {
      host->heard.push_back(message);
      if (host->on) host->on(message);
      return 1;
    }
    return DefWindowProcW(window, message, wParam, lParam);
  }

  WindowHandle Handle() const { return reinterpret_cast<WindowHandle>(window); }

  HWND window = nullptr;
  std::vector<UINT> heard;
  std::function<void(UINT message)> on;
};

// The library lies in a folder of its own, with a module profile that lets it look for no device in the network.
class Dll : public testing::Test {
 public:
  ~Dll() override {
    Unload();
    SetEnvironmentVariableW(L"TMP", temp_);
  }

 protected:
  Dll() {
    folder_.Write("QUIRNMFP.ini", "[RunTime]\r\nDriverType=1\r\n");
    CopyFileW((ProgramFolder() + L"set32.dll").c_str(), Path().c_str(), FALSE);
    std::wstring temp = Path();
    temp.resize(temp.find_last_of(L"\\/"));
    GetEnvironmentVariableW(L"TMP", temp_, MAX_PATH);
    SetEnvironmentVariableW(L"TMP", temp.c_str());
    Load();
    settings.mode = mode::colour;
    settings.dpi = 100;
    settings.resolutionId = resolution::dpi100;
    settings.width = settings.customWidth = 8.5;
    settings.height = settings.customHeight = 11;
  }

  std::wstring Path() const {
    const std::string path = folder_.Path("set32.dll");
    return {path.begin(), path.end()};
  }

  void Load() {
    library_ = LoadLibraryW(Path().c_str());
    open_ = Find<UiFixSettingFunction>(library_, "uiFixSetting");
    isOpen_ = Find<UiIsSettingOpenFunction>(library_, "uiIsSettingOpen");
    ASSERT_NE(open_, nullptr);
    ASSERT_NE(isOpen_, nullptr);
  }
  void Unload() {
    if (library_ != nullptr) FreeLibrary(library_);
    library_ = nullptr;
  }

  WindowHandle Open(WindowHandle parent, WindowHandle host) {
    return open_(parent, host, nullptr, &settings, nullptr, 0, 0, 128, 36, &place, nullptr);
  }
  void ChooseFace(int face) const {
    folder_.Write("QUIRNHTp.INI", "[Option]\r\nUIFace=" + std::to_string(face) + "\r\n");
  }
  bool IsLoaded() const { return GetModuleHandleW(Path().c_str()) != nullptr; }
  HWND OpenIn(const HostWindow& host) { return reinterpret_cast<HWND>(Open(host.Handle(), host.Handle())); }

  wchar_t temp_[MAX_PATH] = L"";
  ScratchFolder folder_;
  HMODULE library_ = nullptr;
  UiFixSettingFunction open_ = nullptr;
  UiIsSettingOpenFunction isOpen_ = nullptr;
  ScanSettings settings{};
  PanelRect place{0, 0, 300, 430};
};

}  // namespace set32
