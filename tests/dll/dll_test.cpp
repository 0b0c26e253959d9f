// The built library as a host meets it: loaded by name, opened, closed, misused, unloaded.
#include <chrono>
#include <future>
#include <tuple>

#include "resources/ids.h"
#include "tests/dll/live_handles.h"
#include "tests/dll/loaded_panel.h"

#include <commctrl.h>

namespace set32 {
namespace {

constexpr int patience = 5000;  // milliseconds

template <typename Condition>
bool WaitUntil(Condition condition) {
  for (int waited = 0; waited < patience; waited += 10) {
    if (condition()) return true;
    Sleep(10);
  }
  return false;
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

TEST_F(Dll, RefusesWhatIsNoWindowOfThisProcess) {
  HostWindow host;
  HostWindow dead;
  DestroyWindow(dead.window);
  for (const WindowHandle parent :
       {WindowHandle{0}, dead.Handle(), WindowHandle{0x12345678}, reinterpret_cast<WindowHandle>(GetDesktopWindow()),
        reinterpret_cast<WindowHandle>(HWND_MESSAGE), reinterpret_cast<WindowHandle>(HWND_BROADCAST)})
    EXPECT_EQ(Open(parent, host.Handle()), WindowHandle{0}) << parent;
  EXPECT_NE(OpenIn(host), nullptr);
}

TEST_F(Dll, TurnsASecondThreadAwayAtOnce) {
  HostWindow host;
  ASSERT_NE(OpenIn(host), nullptr);
  settings.dpi = 200;
  host.heard.clear();
  auto answer = std::async(std::launch::async, [&] { return OpenIn(host); });
  // Nobody takes messages here meanwhile, as a host that waits for its thread.
  EXPECT_EQ(answer.wait_for(std::chrono::milliseconds(patience)), std::future_status::ready);
  while (answer.wait_for(std::chrono::milliseconds(10)) != std::future_status::ready) Pump();
  EXPECT_EQ(answer.get(), nullptr);
  EXPECT_THAT(host.heard, testing::IsEmpty());
}

TEST_F(Dll, IsCalledOnceMoreInsideAMessageOfTheFirstCall) {
  HostWindow host;
  HWND inner = nullptr;
  host.on = [&](UINT heard) {
    if (heard == to_host::settingsChanged && inner == nullptr) inner = OpenIn(host);
  };
  const HWND outer = OpenIn(host);
  ASSERT_TRUE(IsWindow(outer));
  EXPECT_EQ(inner, outer);
}

TEST_F(Dll, LivesThroughAHostThatEndsItsWindowInsideAMessage) {
  for (const UINT message : {to_host::modeShown, to_host::areaChanged, to_host::deviceSelected}) {
    {
      HostWindow host;
      host.on = [&](UINT heard) {
        if (heard == message) DestroyWindow(host.window);
      };
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

BOOL CALLBACK TakeBox(HWND window, LPARAM found) {
  DWORD process = 0;
  const DWORD thread = GetWindowThreadProcessId(window, &process);
  constexpr int textOfBox = 0xFFFF;
  const bool isBox = process == GetCurrentProcessId() && thread != GetCurrentThreadId() && IsWindowVisible(window) &&
                     GetDlgItem(window, textOfBox) != nullptr;
  if (isBox) *reinterpret_cast<HWND*>(found) = window;
  return !isBox;
}

HWND BoxOfAnotherThread() {
  HWND box = nullptr;
  EnumWindows(TakeBox, reinterpret_cast<LPARAM>(&box));
  return box;
}

// A message box stands on a thread of its own, and so may stand longer than everything else.
TEST_F(Dll, StaysLoadedWhileAMessageBoxOfItStands) {
  HWND box = nullptr;
  {
    HostWindow host;
    ShowWindow(host.window, SW_SHOW);
    const HWND edit = GetDlgItem(OpenIn(host), id::resolutionEdit);
    SetFocus(edit);
    SetWindowTextW(edit, L"1");
    PostMessageW(edit, WM_KEYDOWN, VK_RETURN, 1);
    Pump();
    ASSERT_TRUE(WaitUntil([&] { return (box = BoxOfAnotherThread()) != nullptr; }));
  }
  Unload();
  EXPECT_NE(GetModuleHandleW(Path().c_str()), nullptr);
  PostMessageW(box, WM_CLOSE, 0, 0);
  EXPECT_TRUE(WaitUntil([&] { return GetModuleHandleW(Path().c_str()) == nullptr; }));
  EXPECT_FALSE(IsWindow(box));
}

// The message that ends the host's window may come from elsewhere, and then no loop returns for it.
TEST_F(Dll, EndsADialogWhoseHostWasEndedByASentMessage) {
  HostWindow host;
  ShowWindow(host.window, SW_SHOW);
  const HWND page = OpenIn(host);
  const DWORD thread = GetCurrentThreadId();
  std::promise<void> returned;
  auto ended = std::async(std::launch::async, [&, done = returned.get_future()] {
    if (!WaitUntil([&] { return !IsWindowEnabled(host.window); })) return false;
    SendMessageW(host.window, WM_CLOSE, 0, 0);
    if (done.wait_for(std::chrono::milliseconds(patience)) == std::future_status::ready) return true;
    PostThreadMessageW(thread, WM_NULL, 0, 0);
    return false;
  });
  SendMessageW(GetDlgItem(page, id::saveButton), BM_CLICK, 0, 0);
  returned.set_value();
  EXPECT_TRUE(ended.get());
  EXPECT_FALSE(IsWindow(page));
}

// A folder whose path is longer than older programs can name, with the files that it is given.
class LongFolder {
 public:
  explicit LongFolder(const std::wstring& parent) {
    paths_.push_back(L"\\\\?\\" + parent);
    for (const wchar_t letter : {L'a', L'b'}) {
      paths_.push_back(paths_.back() + L"\\" + std::wstring(140, letter));
      CreateDirectoryW(paths_.back().c_str(), nullptr);
    }
  }
  ~LongFolder() {
    for (const std::wstring& file : files_) DeleteFileW(file.c_str());
    for (; paths_.size() > 1; paths_.pop_back()) RemoveDirectoryW(paths_.back().c_str());
  }
  LongFolder(const LongFolder&) = delete;
  LongFolder& operator=(const LongFolder&) = delete;
  std::wstring Take(const std::wstring& from, const wchar_t* name) {
    files_.push_back(paths_.back() + L"\\" + name);
    return CopyFileW(from.c_str(), files_.back().c_str(), FALSE) ? files_.back() : std::wstring();
  }
  const std::wstring& Path() const { return paths_.back(); }

 private:
  std::vector<std::wstring> paths_, files_;
};

TEST_F(Dll, ReadsWhatLiesBesideItInALongFolder) {
  const std::wstring home = Path().substr(0, Path().find_last_of(L"\\/"));
  LongFolder folder(home);
  folder_.Write("QUIRNMFP.ini", "[INIFiles]\r\nQUIRNMFP_PROFILE=other.ini\r\n[RunTime]\r\nDriverType=1\r\n");
  EXPECT_NE(folder.Take(home + L"\\QUIRNMFP.ini", L"QUIRNMFP.ini"), L"");
  folder_.Write("QUIRNMFP.ini", "");
  Unload();
  library_ = LoadLibraryW(folder.Take(Path(), L"set32.dll").c_str());
  open_ = Find<UiFixSettingFunction>(library_, "uiFixSetting");
  ASSERT_NE(open_, nullptr);
  {
    HostWindow host;
    EXPECT_NE(OpenIn(host), nullptr);
  }
  EXPECT_THAT(folder_.Names(), testing::Contains("other.ini"));
  Unload();
}

TEST_F(Dll, StandsWithoutATemporaryFolder) {
  const std::wstring home = Path().substr(0, Path().find_last_of(L"\\/"));
  const LongFolder folder(home);
  SetEnvironmentVariableW(L"TMP", folder.Path().c_str());
  wchar_t before[MAX_PATH] = L"", given[MAX_PATH + 1] = L"";
  GetCurrentDirectoryW(MAX_PATH, before);
  SetCurrentDirectoryW(home.c_str());
  const auto names = folder_.Names();
  if (GetTempPathW(MAX_PATH + 1, given) != 0) GTEST_SKIP() << "the system found another";
  {
    HostWindow host;
    EXPECT_NE(OpenIn(host), nullptr);
    EXPECT_THAT(host.heard, testing::Contains(to_host::modeShown));
  }
  EXPECT_EQ(folder_.Names(), names);
  SetCurrentDirectoryW(before);
}

// What a system without a class gives: the page stands where it should, and the rest of it works.
TEST_F(Dll, LivesWithoutAClassOfControls) {
  for (const wchar_t* name : {WC_LISTVIEWW, WC_TABCONTROLW, TRACKBAR_CLASSW, UPDOWN_CLASSW, TOOLTIPS_CLASSW}) {
    SCOPED_TRACE(testing::PrintToString(std::wstring(name)));
    const HMODULE home = GetModuleHandleW(L"comctl32.dll");
    WNDCLASSEXW kind{};
    kind.cbSize = sizeof kind;
    ASSERT_TRUE(GetClassInfoExW(home, name, &kind));
    ASSERT_TRUE(UnregisterClassW(name, home));
    {
      HostWindow host;
      const HWND page = OpenIn(host);
      EXPECT_TRUE(IsWindow(page));
      RECT area{};
      GetClientRect(page, &area);
      EXPECT_GT(area.right, place.right / 2);
      EXPECT_GT(area.bottom, place.bottom / 2);
      host.heard.clear();
      const HWND combo = GetDlgItem(page, id::resolutionCombo);
      SendMessageW(combo, CB_SETCURSEL, 3, 0);
      SendMessageW(page, WM_COMMAND, MAKEWPARAM(id::resolutionCombo, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo));
      EXPECT_THAT(host.heard, testing::Contains(to_host::resolutionChanged));
    }
    kind.hInstance = home;
    kind.lpszClassName = name;
    RegisterClassExW(&kind);
    Unload();
    Load();
  }
}

// The counters that the next test rests on see a leak of one.
TEST_F(Dll, ALeakedHandleIsSeen) {
  const auto use = [] {
    return std::tuple(CreateSolidBrush(1), CreateMenu(), CreateEventW(nullptr, TRUE, FALSE, nullptr), TlsAlloc(),
                      CreateWindowExW(0, L"Static", L"", 0, 0, 0, 9, 9, HWND_MESSAGE, nullptr, nullptr, nullptr));
  };
  const auto free = [](const auto& used) {
    DestroyWindow(std::get<HWND>(used));
    CloseHandle(std::get<HANDLE>(used));
    TlsFree(std::get<DWORD>(used));
    DestroyMenu(std::get<HMENU>(used));
    DeleteObject(std::get<HBRUSH>(used));
  };
  for (int i = 0; i < 3; ++i) free(use());  // what the system itself makes at first use
  const HandleCounter counter;
  const LiveHandles before = counter.Now();
  const auto leaked = use();
  EXPECT_EQ(counter.Now(),
            (LiveHandles{before.drawing + 1, before.userRoom - 2, before.system + 1, before.slotRoom - 1}));
  free(leaked);
  EXPECT_EQ(counter.Now(), before);
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
  for (int i = 0; i < 3; ++i) live();  // what the system itself makes at first use
  const HandleCounter counter;
  const LiveHandles before = counter.Now();
  for (int i = 0; i < 100; ++i) live();
  EXPECT_EQ(counter.Now(), before);
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
