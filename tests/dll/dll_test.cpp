// The built library as a host meets it: loaded by name, opened, closed, misused, unloaded.
#include <gmock/gmock.h>
#include <windows.h>

#include <cstring>
#include <string>
#include <vector>

#include "messages.h"
#include "resources/ids.h"
#include "tests/support/scratch_folder.h"
#include "ui_fix_setting.h"

namespace set32 {
namespace {

std::wstring ProgramFolder() {
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
      if (host->diesAt == message) DestroyWindow(window);
      return 1;
    }
    return DefWindowProcW(window, message, wParam, lParam);
  }

  WindowHandle Handle() const { return reinterpret_cast<WindowHandle>(window); }

  HWND window = nullptr;
  std::vector<UINT> heard;
  UINT diesAt = 0;
};

// The library lies in a folder of its own, with a module profile that lets it look for no device in the network.
class Dll : public testing::Test {
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
  ~Dll() override {
    Unload();
    SetEnvironmentVariableW(L"TMP", temp_);
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

  wchar_t temp_[MAX_PATH] = L"";
  ScratchFolder folder_;
  HMODULE library_ = nullptr;
  UiFixSettingFunction open_ = nullptr;
  UiIsSettingOpenFunction isOpen_ = nullptr;
  ScanSettings settings{};
  PanelRect place{0, 0, 300, 430};
};

void Pump() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

TEST_F(Dll, OpensAPageThatAnswersAndEndsWithItsParent) {
  HostWindow host;
  const WindowHandle page = Open(host.Handle(), host.Handle());
  const auto window = reinterpret_cast<HWND>(page);
  ASSERT_TRUE(IsWindow(window));
  EXPECT_TRUE(IsChild(host.window, window));
  EXPECT_FALSE(host.heard.empty());
  EXPECT_EQ(SendMessageW(window, to_panel::deviceQuestion, 0, 0), 1);
  EXPECT_EQ(Open(host.Handle(), host.Handle()), page);
  EXPECT_EQ(isOpen_(), 0U);
  DestroyWindow(host.window);
  EXPECT_FALSE(IsWindow(window));
  // The panel kept what it writes at its end.
  EXPECT_NE(folder_.Read("QUIRNPrf.ini").find("Tmp="), std::string::npos);
}

// The loop below knows nothing of dialogs: it only translates and dispatches.
void Press(WPARAM key) {
  PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
  Pump();
}

TEST_F(Dll, IsUsedWithTheKeyboardInALoopThatKnowsNothingOfDialogs) {
  HostWindow host;
  ShowWindow(host.window, SW_SHOW);
  const auto page = reinterpret_cast<HWND>(Open(host.Handle(), host.Handle()));
  ASSERT_TRUE(IsWindow(page));
  SetFocus(GetDlgItem(page, id::saveButton));
  // The disabled button to delete is passed over.
  std::vector<int> reached;
  for (int i = 0; i < 8; ++i) {
    Press(VK_TAB);
    reached.push_back(GetDlgCtrlID(GetFocus()));
  }
  EXPECT_THAT(reached, testing::ElementsAre(id::modeCombo, id::resolutionCombo, id::resolutionEdit, id::sizeCombo,
                                            id::unitCombo, id::widthEdit, id::heightEdit, id::removeFrameButton));
  // Enter leaves a numeric edit, so that its value is judged, and goes no further; Escape does nothing.
  const HWND edit = GetDlgItem(page, id::resolutionEdit);
  SetFocus(edit);
  SetWindowTextW(edit, L"150");
  host.heard.clear();
  Press(VK_RETURN);
  EXPECT_NE(GetFocus(), edit);
  EXPECT_EQ(settings.dpi, 150);
  EXPECT_THAT(host.heard, testing::ElementsAre(to_host::resolutionChanged));
  SetFocus(edit);
  Press(VK_ESCAPE);
  EXPECT_TRUE(IsWindow(page));
  EXPECT_TRUE(IsWindowVisible(page));
}

TEST_F(Dll, LeavesItsHostTheKeysThatNoDialogAnswers) {
  HostWindow host;
  ShowWindow(host.window, SW_SHOW);
  const auto page = reinterpret_cast<HWND>(Open(host.Handle(), host.Handle()));
  ASSERT_TRUE(IsWindow(page));
  const struct {
    UINT message;
    WPARAM key;
    bool reachesHost;
  } cases[] = {{WM_KEYDOWN, VK_F6, true},     {WM_KEYDOWN, 'L', true},     {WM_KEYUP, 'L', true},
               {WM_SYSKEYDOWN, 'X', true},    {WM_KEYDOWN, VK_TAB, false}, {WM_KEYDOWN, VK_DOWN, false},
               {WM_KEYDOWN, VK_ESCAPE, false}};
  for (const auto& [sent, key, reachesHost] : cases) {
    SetFocus(GetDlgItem(page, id::saveButton));
    Pump();
    PostMessageW(GetFocus(), sent, key, 1);
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message == sent && message.wParam == key, reachesHost) << sent << ' ' << key;
  }
}

TEST_F(Dll, RefusesWhatIsNoWindowOfThisProcess) {
  HostWindow host;
  HostWindow dead;
  DestroyWindow(dead.window);
  for (const WindowHandle parent :
       {WindowHandle{0}, dead.Handle(), WindowHandle{0x12345678}, reinterpret_cast<WindowHandle>(GetDesktopWindow())})
    EXPECT_EQ(Open(parent, host.Handle()), WindowHandle{0}) << parent;
}

TEST_F(Dll, LivesThroughAHostThatEndsItsWindowInsideAMessage) {
  for (const UINT message : {to_host::modeShown, to_host::areaChanged, to_host::deviceSelected}) {
    {
      HostWindow host;
      host.diesAt = message;
      Open(host.Handle(), host.Handle());
      Pump();
    }
    Unload();
    Load();
  }
  HostWindow host;
  EXPECT_NE(Open(host.Handle(), host.Handle()), WindowHandle{0});
}

TEST_F(Dll, TalksToADeadHostWindowWithoutHarm) {
  HostWindow parent;
  WindowHandle page = 0;
  {
    const HostWindow host;
    page = Open(parent.Handle(), host.Handle());
  }
  ASSERT_NE(page, WindowHandle{0});
  ScanSettings report = settings;
  EXPECT_EQ(SendMessageW(reinterpret_cast<HWND>(page), to_panel::frameReport, frame_report::drawn,
                         reinterpret_cast<LPARAM>(&report)),
            0);
}

TEST_F(Dll, LeaksNoHandleOverAHundredLives) {
  const auto live = [&] {
    HostWindow host;
    EXPECT_NE(Open(host.Handle(), host.Handle()), WindowHandle{0});
    Pump();
    DestroyWindow(host.window);
    Unload();
    Load();
  };
  const auto counts = [] {
    const HANDLE self = GetCurrentProcess();
    DWORD handles = 0;
    GetProcessHandleCount(self, &handles);
    return std::vector<DWORD>{GetGuiResources(self, GR_GDIOBJECTS), GetGuiResources(self, GR_USEROBJECTS), handles};
  };
  for (int i = 0; i < 3; ++i) live();  // what the system itself makes at first use
  const std::vector<DWORD> before = counts();
  for (int i = 0; i < 100; ++i) live();
  EXPECT_EQ(counts(), before);
}

TEST_F(Dll, ServesTheExampleHost) {
  const std::string program = folder_.Path("example-host.exe");
  ASSERT_TRUE(CopyFileW((ProgramFolder() + L"example-host.exe").c_str(),
                        std::wstring(program.begin(), program.end()).c_str(), FALSE));
  std::wstring command = L"\"" + std::wstring(program.begin(), program.end()) + L"\" --once";
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  ASSERT_TRUE(
      CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process));
  EXPECT_EQ(WaitForSingleObject(process.hProcess, 60000), WAIT_OBJECT_0);
  DWORD status = 99;
  GetExitCodeProcess(process.hProcess, &status);
  EXPECT_EQ(status, 0U);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
}

}  // namespace
}  // namespace set32
