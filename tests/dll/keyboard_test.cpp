// Keys at the panel in a host's loop: one that knows nothing of dialogs, one with keys of its own, one of a dialog.
#include "resources/ids.h"
#include "tests/dll/loaded_panel.h"

namespace set32 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Result: the keys that reached the host's loop.
std::vector<WPARAM> Press(WPARAM key) {
  PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
  PostMessageW(GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
  return Pump();
}

// Held while it lives.
class Shift {
 public:
  Shift() { Put(0x80); }
  ~Shift() { Put(0); }
  Shift(const Shift&) = delete;
  Shift& operator=(const Shift&) = delete;

 private:
  static void Put(BYTE state) {
    BYTE keys[256] = {};
    keys[VK_SHIFT] = state;
    SetKeyboardState(keys);
  }
};

class Keyboard : public Dll {
 protected:
  Keyboard() {
    ShowWindow(host.window, SW_SHOW);
    page = OpenIn(host);
    host.heard.clear();
  }
  HWND At(int control) const { return GetDlgItem(page, control); }
  std::vector<int> Walk(int steps) {
    std::vector<int> reached;
    for (int i = 0; i < steps; ++i) {
      EXPECT_THAT(Press(VK_TAB), IsEmpty());
      reached.push_back(GetDlgCtrlID(GetFocus()));
    }
    return reached;
  }

  HostWindow host;
  HWND page = nullptr;
};

TEST_F(Keyboard, TabRunsThroughThePageBothWays) {
  SetFocus(At(id::saveButton));
  // The disabled button to delete is passed over.
  EXPECT_THAT(Walk(8), ElementsAre(id::modeCombo, id::resolutionCombo, id::resolutionEdit, id::sizeCombo,
                                   id::unitCombo, id::widthEdit, id::heightEdit, id::removeFrameButton));
  const Shift held;
  EXPECT_THAT(Walk(3), ElementsAre(id::heightEdit, id::widthEdit, id::unitCombo));
}

// As a host gives it.
TEST_F(Keyboard, TabGoesOnFromThePageItself) {
  SetFocus(page);
  EXPECT_EQ(GetFocus(), page);
  EXPECT_THAT(Walk(2), testing::Each(testing::Ne(0)));
  EXPECT_TRUE(IsChild(GetParent(page), GetFocus()));
  EXPECT_NE(GetFocus(), page);
}

TEST_F(Keyboard, EnterLeavesAnEditAndEscapeDoesNothing) {
  // Its value is judged, and the key goes no further.
  SetFocus(At(id::resolutionEdit));
  SetWindowTextW(At(id::resolutionEdit), L"150");
  host.heard.clear();
  EXPECT_THAT(Press(VK_RETURN), IsEmpty());
  EXPECT_NE(GetFocus(), At(id::resolutionEdit));
  EXPECT_EQ(settings.dpi, 150);
  EXPECT_THAT(host.heard, ElementsAre(to_host::resolutionChanged));
  SetFocus(At(id::resolutionEdit));
  EXPECT_THAT(Press(VK_ESCAPE), IsEmpty());
  EXPECT_TRUE(IsWindowVisible(page));
}

TEST_F(Keyboard, AListThatIsDownTakesEnterAndEscapeForItself) {
  const HWND combo = At(id::unitCombo);
  for (const WPARAM key : {VK_RETURN, VK_ESCAPE}) {
    SetFocus(combo);
    SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
    EXPECT_THAT(Press(key), IsEmpty());
    EXPECT_FALSE(SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_EQ(GetFocus(), combo);
  }
}

TEST_F(Keyboard, TheHostKeepsTheKeysThatNoDialogAnswers) {
  const struct {
    UINT message;
    WPARAM key;
    bool reachesHost;
  } cases[] = {{WM_KEYDOWN, VK_F6, true},     {WM_KEYDOWN, 'L', true},     {WM_KEYUP, 'L', true},
               {WM_SYSKEYDOWN, 'X', true},    {WM_KEYDOWN, VK_TAB, false}, {WM_KEYDOWN, VK_DOWN, false},
               {WM_KEYDOWN, VK_ESCAPE, false}};
  for (const auto& [sent, key, reachesHost] : cases) {
    SetFocus(At(id::saveButton));
    Pump();
    PostMessageW(GetFocus(), sent, key, 1);
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message == sent && message.wParam == key, reachesHost) << sent << ' ' << key;
  }
  SetFocus(At(id::widthEdit));
  SendMessageW(At(id::widthEdit), EM_SETSEL, 0, -1);
  Press('7');
  wchar_t text[16] = L"";
  GetWindowTextW(At(id::widthEdit), text, 16);
  EXPECT_STREQ(text, L"7");
  DestroyWindow(page);
  SetFocus(host.window);
  EXPECT_THAT(Press(VK_ESCAPE), ElementsAre(VK_ESCAPE));
}

TEST_F(Keyboard, AMenuOfTheHostsIsUsedWhileThePanelHasTheFocus) {
  SetFocus(At(id::resolutionEdit));
  SetWindowTextW(At(id::resolutionEdit), L"150");
  host.heard.clear();
  const HMENU menu = CreatePopupMenu();
  AppendMenuW(menu, MF_STRING, 41, L"one");
  AppendMenuW(menu, MF_STRING, 42, L"two");
  for (const WPARAM key : {VK_DOWN, VK_DOWN, VK_RETURN}) PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
  EXPECT_EQ(TrackPopupMenu(menu, TPM_RETURNCMD, 0, 0, 0, host.window, nullptr), 42);
  DestroyMenu(menu);
  EXPECT_EQ(GetFocus(), At(id::resolutionEdit));
  EXPECT_THAT(host.heard, IsEmpty());
}

bool dialogSeen = false;

void CALLBACK EscapeFromTheDialog(HWND, UINT, UINT_PTR, DWORD) {
  if (GetDlgItem(GetActiveWindow(), id104::nameEdit) == nullptr) return;
  dialogSeen = true;
  PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
}

TEST_F(Keyboard, AMnemonicClicksAndEscapeEndsTheDialogAlone) {
  SetFocus(At(id::widthEdit));
  PostMessageW(GetFocus(), WM_SYSCHAR, L'a', 1 << 29);
  dialogSeen = false;
  const UINT_PTR timer = SetTimer(nullptr, 0, 50, EscapeFromTheDialog);
  EXPECT_THAT(Pump(), IsEmpty());
  KillTimer(nullptr, timer);
  EXPECT_TRUE(dialogSeen);
  EXPECT_TRUE(IsWindowVisible(page));
  EXPECT_TRUE(IsWindowEnabled(host.window));
}

// The inline face with its advanced dialog, a window of its own beside the host's.
class KeyboardInTheAdvancedDialog : public Dll {
 protected:
  KeyboardInTheAdvancedDialog() {
    folder_.Write("QUIRNHTp.INI", "[Option]\r\nUIFace=0\r\n");
    ShowWindow(host.window, SW_SHOW);
    page = OpenIn(host);
  }
  HWND Show() const {
    SendMessageW(GetDlgItem(page, id::advancedButton), BM_CLICK, 0, 0);
    HWND dialog = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeAdvancedDialog, reinterpret_cast<LPARAM>(&dialog));
    return IsWindowVisible(dialog) ? dialog : nullptr;
  }
  static BOOL CALLBACK TakeAdvancedDialog(HWND window, LPARAM found) {
    if (GetDlgItem(window, id103::brightnessEdit) == nullptr) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
  }

  HostWindow host;
  HWND page = nullptr;
};

TEST_F(KeyboardInTheAdvancedDialog, ItsKeysStayInItAndTheHostStaysUsable) {
  const HWND dialog = Show();
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(GetWindow(dialog, GW_OWNER), host.window);
  EXPECT_TRUE(IsWindowEnabled(host.window));
  EXPECT_TRUE(IsWindowEnabled(page));
  EXPECT_TRUE(IsChild(dialog, GetFocus()));
  const HWND edit = GetDlgItem(dialog, id103::brightnessEdit);
  for (int step = 0; step < 10 && GetFocus() != edit; ++step) EXPECT_THAT(Press(VK_TAB), IsEmpty());
  EXPECT_EQ(GetFocus(), edit);
  EXPECT_EQ(settings.useDefaults, 0U) << "the focus on a radio button is no click";
  SetWindowTextW(edit, L"30");
  EXPECT_THAT(Press(VK_RETURN), IsEmpty());
  EXPECT_EQ(settings.brightness, 30);
  EXPECT_EQ(GetFocus(), edit);
  EXPECT_THAT(Press(VK_F6), ElementsAre(VK_F6));
  EXPECT_THAT(Press(VK_ESCAPE), IsEmpty());
  EXPECT_FALSE(IsWindowVisible(dialog));
  EXPECT_TRUE(IsWindowVisible(page));
}

TEST_F(KeyboardInTheAdvancedDialog, ItGoesByItsBoxAndWithItsPage) {
  const HWND dialog = Show();
  ASSERT_NE(dialog, nullptr);
  SendMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
  EXPECT_FALSE(IsWindowVisible(dialog));
  const HWND again = Show();
  ASSERT_NE(again, nullptr);
  DestroyWindow(host.window);
  EXPECT_FALSE(IsWindow(again));
  EXPECT_FALSE(IsWindow(page));
}

// A host's dialog whose loop hands its keys to the dialog; the panel stands in it between two buttons.
class KeyboardInADialog : public Dll {
 public:
  ~KeyboardInADialog() override { DestroyWindow(dialog); }

 protected:
  enum Id { before = 9001, after = 9002 };
  KeyboardInADialog() {
    struct {
      DLGTEMPLATE head;
      WORD none[4];
    } empty{};
    empty.head.style = WS_POPUP | WS_CAPTION | WS_VISIBLE;
    empty.head.cx = 300;
    empty.head.cy = 300;
    dialog = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), &empty.head, nullptr, Procedure,
                                        reinterpret_cast<LPARAM>(this));
    Add(before);
    const auto parent = reinterpret_cast<WindowHandle>(dialog);
    page = reinterpret_cast<HWND>(Open(parent, parent));
    Add(after);
  }

  void Add(int control) {
    CreateWindowExW(0, L"Button", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 20, 20, dialog,
                    reinterpret_cast<HMENU>(static_cast<INT_PTR>(control)), nullptr, nullptr);
  }
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) SetWindowLongPtrW(window, DWLP_USER, lParam);
    auto* test = reinterpret_cast<KeyboardInADialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (message == WM_COMMAND && test != nullptr) test->commands.push_back(LOWORD(wParam));
    return FALSE;
  }
  int Press(WPARAM key) const {
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      if (IsDialogMessageW(dialog, &message)) continue;
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    return GetDlgCtrlID(GetFocus());
  }

  HWND dialog = nullptr, page = nullptr;
  std::vector<int> commands;
};

TEST_F(KeyboardInADialog, TabGoesThroughBothAndEachKeyActsOnce) {
  SetFocus(GetDlgItem(dialog, before));
  EXPECT_EQ(Press(VK_TAB), id::saveButton);
  EXPECT_EQ(Press(VK_TAB), id::modeCombo);
  SetFocus(GetDlgItem(page, id::configList));
  EXPECT_EQ(Press(VK_TAB), id_sheet::tabs);
  EXPECT_EQ(Press(VK_TAB), after);
  EXPECT_EQ(Press(VK_TAB), before);
  {
    const Shift held;
    EXPECT_EQ(Press(VK_TAB), after);
    EXPECT_EQ(Press(VK_TAB), id_sheet::tabs);
    EXPECT_EQ(Press(VK_TAB), id::configList);
  }
  SetFocus(GetDlgItem(page, id::widthEdit));
  commands.clear();
  Press(VK_RETURN);
  Press(VK_ESCAPE);
  EXPECT_THAT(commands, IsEmpty());
}

}  // namespace
}  // namespace set32
