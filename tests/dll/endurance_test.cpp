// The library in the hands of a host that does anything: random calls with wild records, pictures and windows, random
// acts at every control and dialog, calls and ends inside messages, both faces, life after life. Nothing crashes, no
// memory of the host's is touched, each life ends with the library unloaded, and handles are given back.
//
// As part of the tests it is short; --seconds=N --seed=N make it as long as one likes, each time another.
#include <cstdio>
#include <cwchar>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "resources/ids.h"
#include "set32/pointer_word.h"
#include "tests/dll/live_handles.h"
#include "tests/dll/loaded_panel.h"
#include "tests/dll/wild_host.h"

#include <commctrl.h>

namespace set32 {
namespace {

unsigned Asked(const wchar_t* name, unsigned otherwise) {
  const wchar_t* found = std::wcsstr(GetCommandLineW(), name);
  return found == nullptr ? otherwise : static_cast<unsigned>(std::wcstoul(found + std::wcslen(name), nullptr, 10));
}

std::wstring ClassOf(HWND window) {
  wchar_t name[64] = L"";
  GetClassNameW(window, name, 64);
  return name;
}

BOOL CALLBACK Collect(HWND window, LPARAM list) {
  reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

class Endurance : public Dll {
 protected:
  Endurance() { acting = this; }
  ~Endurance() override { acting = nullptr; }

  struct Figures {
    long calls = 0, pages = 0, acts = 0, heard = 0, dialogs = 0, boxes = 0, lives = 0;
  };

  void LiveOnce() {
    WriteFiles();
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, OnTimer);
    for (int i = 0; i < 3; ++i) {
      records_.push_back(std::make_unique<WildRecord>());
      records_.back()->Get() = settings;
      if (i > 0) records_.back()->Bend(chance_);
      pictures_.push_back(std::make_unique<WildPicture>(chance_));
    }
    for (int left = 20 + chance_.Below(60); left > 0; --left) {
      Act();
      Pump();
    }
    while (!hosts_.empty()) {
      DestroyWindow(hosts_.back()->window);
      hosts_.pop_back();
    }
    page_ = nullptr;
    Pump();
    records_.clear();
    pictures_.clear();
    Unload();
    WaitFor([this] { return !CloseBoxes() && !IsLoaded(); });  // a box holds it until its thread ends
    KillTimer(nullptr, timer);
    ASSERT_FALSE(IsLoaded()) << "life " << figures_.lives;
    Load();
    ++figures_.lives;
  }

  Chance chance_{Asked(L"--seed=", 1)};
  Figures figures_;

 private:
  template <typename Condition>
  static void WaitFor(Condition condition) {
    for (int waited = 0; waited < 5000 && !condition(); waited += 5) {
      Pump();
      Sleep(5);
    }
  }

  void WriteFiles() {
    std::string options = "[Option]\r\nUIFace=" + std::to_string(chance_.Below(2)) + "\r\n";
    for (const char* key : {"EnablePaperSource", "LLDriverInterface", "EnableCrop"})
      options += key + ("=" + std::to_string(chance_.Below(3))) + "\r\n";
    folder_.Write("QUIRNHTp.INI", options);
    if (!chance_.OneIn(4)) return;
    std::string wild(static_cast<std::size_t>(chance_.Below(3000)), '\0');
    chance_.Fill(wild.data(), wild.size());
    folder_.Write(chance_.Of({"QUIRNPrf.ini", "QUIRNSLT.dat"}), chance_.OneIn(2) ? wild : "[Tmp]\r\nTmp=" + wild);
  }

  HostWindow& SomeHost() {
    if (hosts_.empty() || (hosts_.size() < 4 && chance_.OneIn(6))) {
      hosts_.push_back(std::make_unique<HostWindow>());
      HostWindow& host = *hosts_.back();
      host.on = [this, &host](UINT) { Hear(host); };
      ShowWindow(host.window, SW_SHOW);
    }
    return *chance_.In(hosts_);
  }

  HWND SomeWindow() {
    if (!chance_.OneIn(8)) return SomeHost().window;
    return chance_.Of<HWND>({nullptr, page_, GetDesktopWindow(), HWND_MESSAGE, HWND_BROADCAST, SomeHost().window,
                             reinterpret_cast<HWND>(static_cast<UINT_PTR>(chance_.Word()))});
  }

  void Call() {
    DeviceLimits limits{7, 0x1FFE, 4800, 0};
    DeviceCaps caps{};
    caps.words[DeviceCaps::restrictedMaxDpiWord] = 600;
    caps.words[DeviceCaps::sourceCapsWord] = 0x60000;
    PanelRect rect = place;
    if (chance_.OneIn(4)) {
      chance_.Bend(limits);
      chance_.Bend(caps);
      chance_.Bend(rect);
    }
    ++figures_.calls;
    const WindowHandle page =
        open_(reinterpret_cast<WindowHandle>(SomeWindow()), reinterpret_cast<WindowHandle>(SomeWindow()),
              chance_.OneIn(3) ? nullptr : &limits, chance_.OneIn(50) ? nullptr : &chance_.In(records_)->Get(),
              chance_.OneIn(4) ? nullptr : chance_.In(pictures_)->Get(), static_cast<std::uint8_t>(chance_.Below(3)),
              0, chance_.Word() % 400, chance_.Of({36U, 42U, 48U, chance_.Word()}),
              chance_.OneIn(50) ? nullptr : &rect, chance_.OneIn(4) ? nullptr : &caps);
    if (page == 0) return;
    ++figures_.pages;
    page_ = reinterpret_cast<HWND>(page);
  }

  // What a host may do inside a message.
  void Hear(const HostWindow& host) {
    ++figures_.heard;
    if (depth_ > 3 || !chance_.OneIn(25)) return;
    ++depth_;
    if (chance_.OneIn(5)) {
      DestroyWindow(host.window);
    } else {
      Act();
    }
    --depth_;
  }

  void Act() {
    ++figures_.acts;
    if (!IsWindow(page_) && !chance_.OneIn(4)) return Call();
    switch (chance_.Below(16)) {
      case 0:
        return Call();
      case 1:
        return chance_.In(records_)->Bend(chance_);
      case 2:
        if (chance_.OneIn(4)) SendMessageW(page_, WM_CLOSE, 0, 0);
        return;
      case 3:
        if (chance_.OneIn(4)) DestroyWindow(SomeHost().window);
        return;
      case 4:
        isOpen_();
        if (chance_.OneIn(4)) WriteFiles();
        return;
      case 5:
      case 6:
        return Report();
      case 7:
        SendMessageW(page_, 0x400 + static_cast<UINT>(chance_.Below(0x40)), chance_.Word() % 5, 0);
        return;
      default:
        return ActIn(GetParent(page_));
    }
  }

  void Report() {
    const WildRecord report;
    report.Get() = settings;
    report.Bend(chance_);
    const LowMemory<FrameCommand> command;
    if (command.Get() != nullptr && chance_.OneIn(2)) {
      *command.Get() = {chance_.OneIn(4) ? chance_.Word() : chance_.Word() % 4, chance_.Word() % 6};
      report.Get().frameCommand = command.Word();
    }
    SendMessageW(page_, chance_.Of<UINT>({to_panel::frameReport, to_panel::frameReport, to_panel::autoCropOff}),
                 chance_.Word() % 5, reinterpret_cast<LPARAM>(&report.Get()));
  }

  void ActIn(HWND parent) {
    std::vector<HWND> inside;
    EnumChildWindows(parent, Collect, reinterpret_cast<LPARAM>(&inside));
    if (!inside.empty()) ActOn(chance_.In(inside));
  }

  void Tell(HWND control, UINT message, WORD code) {
    const bool isCommand = message == WM_COMMAND;
    const WPARAM id = isCommand ? MAKEWPARAM(GetDlgCtrlID(control), code) : MAKEWPARAM(code, chance_.Word());
    SendMessageW(GetParent(control), message, id, reinterpret_cast<LPARAM>(control));
  }

  void ActOn(HWND control) {
    const std::wstring kind = ClassOf(control);
    if (chance_.OneIn(6)) {
      SetFocus(control);
      PostMessageW(control, WM_KEYDOWN,
                   chance_.Of<WPARAM>({VK_TAB, VK_RETURN, VK_ESCAPE, VK_DOWN, VK_LEFT, VK_PRIOR}), 1);
    } else if (kind == L"Button") {
      if (depth_ < 3) SendMessageW(control, BM_CLICK, 0, 0);
    } else if (kind == L"Edit") {
      SetFocus(control);
      SetWindowTextW(control,
                     chance_.Of({L"1", L"300", L"0.30", L"99999999", L"", L".", L"-1", L"3.333", L"\x4E2D"}));
      if (chance_.OneIn(2)) SetFocus(nullptr);
    } else if (kind == L"ComboBox") {
      SendMessageW(control, CB_SETCURSEL, static_cast<WPARAM>(chance_.Below(14) - 1), 0);
      Tell(control, WM_COMMAND, chance_.Of<WORD>({CBN_SELCHANGE, CBN_SELCHANGE, CBN_DROPDOWN, CBN_CLOSEUP}));
    } else if (kind == WC_LISTVIEWW) {
      SelectRow(control, chance_.Below(14));
    } else if (kind == WC_TABCONTROLW) {
      SendMessageW(control, TCM_SETCURFOCUS, static_cast<WPARAM>(chance_.Below(4)), 0);
    } else if (kind == TRACKBAR_CLASSW || kind == UPDOWN_CLASSW || kind == L"ScrollBar") {
      if (kind == TRACKBAR_CLASSW) SendMessageW(control, TBM_SETPOS, TRUE, chance_.Below(300) - 150);
      Tell(control, chance_.Of<UINT>({WM_HSCROLL, WM_VSCROLL}), static_cast<WORD>(chance_.Below(9)));
    } else if (kind == L"#32770" && chance_.OneIn(3)) {
      MoveWindow(control, 0, 0, chance_.Below(900), chance_.Below(900), TRUE);
    }
  }

  static void SelectRow(HWND list, int row) {
    LVITEMW item{};
    item.state = item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    NMITEMACTIVATE click{};
    click.hdr = {list, static_cast<UINT_PTR>(GetDlgCtrlID(list)), static_cast<UINT>(NM_CLICK)};
    click.iItem = row;
    SendMessageW(GetParent(list), WM_NOTIFY, click.hdr.idFrom, reinterpret_cast<LPARAM>(&click));
  }

  // Whoever runs a loop meets this person, who sees to whatever dialog stands.
  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (acting != nullptr) acting->SeeToDialogs();
  }
  void SeeToDialogs() {
    CloseBoxes();
    std::vector<HWND> standing;
    EnumThreadWindows(GetCurrentThreadId(), Collect, reinterpret_cast<LPARAM>(&standing));
    for (const HWND dialog : standing) {
      if (!IsWindowVisible(dialog) || ClassOf(dialog) != L"#32770") continue;
      ++figures_.dialogs;
      if (depth_ < 3 && chance_.OneIn(2)) {
        ++depth_;
        chance_.OneIn(20) ? void(DestroyWindow(SomeHost().window)) : ActIn(dialog);
        --depth_;
      } else {
        PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(chance_.Of({IDOK, IDCANCEL, IDCANCEL})), 0);
      }
    }
  }
  bool CloseBoxes() {
    std::vector<HWND> windows;
    EnumWindows(Collect, reinterpret_cast<LPARAM>(&windows));
    bool found = false;
    for (const HWND box : windows) {
      DWORD process = 0;
      const DWORD thread = GetWindowThreadProcessId(box, &process);
      const bool isBox = process == GetCurrentProcessId() && thread != GetCurrentThreadId() && IsWindowVisible(box);
      if (!isBox || ClassOf(box) != L"#32770") continue;
      found = true;
      ++figures_.boxes;
      PostMessageW(box, WM_CLOSE, 0, 0);
    }
    return found;
  }

  static inline Endurance* acting = nullptr;
  std::vector<std::unique_ptr<HostWindow>> hosts_;
  std::vector<std::unique_ptr<WildRecord>> records_;
  std::vector<std::unique_ptr<WildPicture>> pictures_;
  HWND page_ = nullptr;
  int depth_ = 0;
};

TEST_F(Endurance, AWildHostBreaksAndLeavesNothing) {
  const ULONGLONG seconds = Asked(L"--seconds=", 12);
  constexpr int warmUp = 12;  // what the system itself makes at first use
  for (int i = 0; i < warmUp; ++i) ASSERT_NO_FATAL_FAILURE(LiveOnce());
  const HandleCounter counter;
  const LiveHandles before = counter.Now();
  for (const ULONGLONG end = GetTickCount64() + seconds * 1000; GetTickCount64() < end;)
    ASSERT_NO_FATAL_FAILURE(LiveOnce());
  const LiveHandles after = counter.Now();
  // The system keeps device contexts for the next windows, the more the deeper windows were painted inside each
  // other; a leak of one a life is more. Where a box outlives the panel, its thread unloads the library, and two
  // system handles stay with the thread of the panel: the test of a hundred lives compares these.
  constexpr int drawingKept = 24, userKept = 2;
  EXPECT_LE(after.drawing, before.drawing + drawingKept);
  EXPECT_GE(after.userRoom, before.userRoom - userKept);
  EXPECT_EQ(after.slotRoom, before.slotRoom);
  EXPECT_TRUE(HeapValidate(GetProcessHeap(), 0, nullptr));
  EXPECT_GT(figures_.pages, 0);
  EXPECT_GT(figures_.dialogs, 0);
  std::ostringstream told;
  told << "endured " << seconds << " s: " << figures_.lives << " lives, " << figures_.calls << " calls, "
       << figures_.pages << " gave a page, " << figures_.acts << " acts, " << figures_.heard << " messages heard, "
       << figures_.dialogs << " looks at dialogs, " << figures_.boxes << " at boxes\nbefore: " << before
       << "\nafter:  " << after << '\n';
  std::fputs(told.str().c_str(), stdout);
}

}  // namespace
}  // namespace set32
