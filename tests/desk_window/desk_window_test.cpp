// The desk's window: its panes, its keys, its pictures, and what it says when something is missing.
#include <functional>

#include "apps/scan-desk/window/arguments.h"
#include "apps/scan-desk/window/desk_menu.h"
#include "apps/scan-desk/window/host_lines.h"
#include "set32/messages.h"
#include "tests/desk_window/desk_fixture.h"

namespace scan_desk {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
namespace id = set32::id;

set32::Size SizeOf(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  return {client.right, client.bottom};
}

// What stands in a window, or would after everything was painted anew.
std::vector<COLORREF> PixelsOf(HWND window) {
  const set32::Size size = SizeOf(window);
  return PixelsIn(window, {0, 0, size.width, size.height});
}

// A dialog of this process on another thread than a window's.
HWND MessageBeside(HWND window) {
  HWND found = nullptr;
  while ((found = FindWindowExW(nullptr, found, MAKEINTRESOURCEW(32770), nullptr)) != nullptr) {
    DWORD process = 0;
    const DWORD thread = GetWindowThreadProcessId(found, &process);
    if (process == GetCurrentProcessId() && thread != GetWindowThreadProcessId(window, nullptr)) break;
  }
  return found;
}

// What another thread does takes its time.
bool Soon(const std::function<bool()>& isSo) {
  constexpr ULONGLONG patience = 10000;
  for (const ULONGLONG end = GetTickCount64() + patience; !isSo();) {
    if (GetTickCount64() > end) return false;
    Sleep(10);
  }
  return true;
}

TEST_F(Desk, HidesTheLogAndGivesItsRoomToPictureAndPanel) {
  ASSERT_TRUE(Open());
  const set32::Size before = SizeOf(preview_), panel = SizeOf(Page());
  EXPECT_LT(BelowFrames(), 40) << "the panel fills its place";
  const int logHeight = SizeOf(log_).height;
  Press('L', true);
  EXPECT_FALSE(IsWindowVisible(log_));
  EXPECT_GE(SizeOf(preview_).height, before.height + logHeight);
  EXPECT_GE(SizeOf(Page()).height, panel.height + logHeight);
  EXPECT_LT(BelowFrames(), 40) << "what is anchored below went down";
  UpdateWindow(desk_->Window());
  Pump();
  const std::vector<COLORREF> left = PixelsOf(Page());
  RedrawWindow(Page(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  Pump();
  EXPECT_TRUE(left == PixelsOf(Page())) << "moved controls left pixels behind";
  Press('L', true);
  EXPECT_TRUE(IsWindowVisible(log_));
  EXPECT_EQ(SizeOf(preview_), before);
  EXPECT_EQ(SizeOf(Page()), panel);
}

// Every other suite runs on the older controls; here stand those that the manifest asks for, as in most hosts.
TEST_F(Desk, ShowsThemedControlsWhole) {
  ASSERT_TRUE(Open());
  wchar_t controls[MAX_PATH] = L"";
  GetModuleFileNameW(GetModuleHandleW(L"comctl32.dll"), controls, MAX_PATH);
  ASSERT_THAT(std::wstring(controls), HasSubstr(L"winsxs"));
  EXPECT_TRUE(IsProcessDPIAware());
  for (const int reachesIntoItsGroup : {id::heightEdit, id::resolutionEdit}) {
    const HWND edit = Control(reachesIntoItsGroup);
    RECT place{}, page{};
    GetWindowRect(edit, &place);
    GetWindowRect(Page(), &page);
    const set32::win32::WindowDc dc(Page());
    const auto colour = [&](LONG x) {
      return GetPixel(dc.Get(), x - page.left, (place.top + place.bottom) / 2 - page.top);
    };
    EXPECT_EQ(colour(place.left), colour(place.right - 1)) << reachesIntoItsGroup << " has a border on both sides";
  }
}

TEST_F(Desk, ClosesThePanelWithItsLibraryAndOpensItAgain) {
  ASSERT_TRUE(Open());
  for (int i = 0; i < 2; ++i) {
    Press(VK_INSERT);
    EXPECT_EQ(Tabs(), 2);
    SetFocus(Control(id::widthEdit));
    Press('P', true);
    EXPECT_EQ(Page(), nullptr);
    EXPECT_EQ(GetModuleHandleW(library_.c_str()), nullptr);
    EXPECT_EQ(GetFocus(), preview_);
    Press(VK_INSERT);  // nobody is there to hear it
    EXPECT_EQ(GetMenuState(GetMenu(desk_->Window()), command::autoCrop, MF_BYCOMMAND) & MF_GRAYED, MF_GRAYED);
    Press('P', true);
    ASSERT_NE(Page(), nullptr);
  }
  EXPECT_THAT(said_, ElementsAre());
}

// The message of a wrong number stands on a thread that holds the library, and a sheet comes again only from one that
// was loaded anew.
TEST_F(Desk, OpensThePanelAgainOnceTheMessageThatItLeftIsClosed) {
  ASSERT_TRUE(Open());
  SetFocus(Control(id::resolutionEdit));
  SetWindowTextW(Control(id::resolutionEdit), L"7");
  SetFocus(Control(id::widthEdit));
  HWND message = nullptr;
  ASSERT_TRUE(Soon([&] { return (message = MessageBeside(desk_->Window())) != nullptr; }));
  Press('P', true);
  EXPECT_EQ(Page(), nullptr);
  Press('P', true);
  EXPECT_EQ(Page(), nullptr);
  EXPECT_THAT(said_, ElementsAre(HasSubstr(L"One of its messages may stand open")));
  PostMessageW(message, WM_COMMAND, IDOK, 0);
  EXPECT_TRUE(Soon([&] { return GetModuleHandleW(library_.c_str()) == nullptr; })) << "nothing else held it";
  Press('P', true);
  EXPECT_NE(Page(), nullptr);
}

// The panes by letters: picture, panel, log.
TEST_F(Desk, LeadsThroughThePanesByKeysAlone) {
  ASSERT_TRUE(Open());
  const auto pane = [&] {
    const HWND focus = GetFocus();
    return focus == preview_ ? 'p' : focus == log_ ? 'l' : IsChild(GetParent(GetParent(Page())), focus) ? 'P' : '?';
  };
  const struct {
    const char* what;
    WPARAM key;
    bool shift;
    const char* reached;
  } cases[] = {{"forward", VK_F6, false, "PlpP"},
               {"back", VK_F6, true, "plPp"},
               {"Tab goes into the panel and stays there", VK_TAB, false, "PPPPPPPPPPPPPPPPPPPP"},
               {"out of it", VK_F6, false, "l"},
               {"Tab leads on from the log", VK_TAB, false, "p"},
               {"and back to it", VK_TAB, true, "l"}};
  for (const auto& [what, key, shift, reached] : cases) {
    std::string panes;
    while (panes.size() < std::string_view(reached).size()) {
      Press(key, false, shift);
      panes += pane();
    }
    EXPECT_EQ(panes, reached) << what;
  }
  Press('L', true);  // hides the pane that has the focus
  EXPECT_EQ(pane(), 'p');
  Press(VK_F6, false, true);
  EXPECT_EQ(pane(), 'P');
  Press('P', true);
  Press(VK_F6);
  EXPECT_EQ(pane(), 'p') << "the only one";
}

TEST_F(Desk, TurnsThePanelsPagesByKeysAlone) {
  ASSERT_TRUE(Open());
  const HWND general = Page(), sheetTabs = FindWindowExW(GetParent(Page()), nullptr, WC_TABCONTROLW, nullptr);
  Press(VK_F6);
  for (int i = 0; i < 30 && GetFocus() != sheetTabs; ++i) Press(VK_TAB);
  ASSERT_EQ(GetFocus(), sheetTabs);
  Press(VK_RIGHT);
  EXPECT_FALSE(IsWindowVisible(general));
  Press(VK_F6);
  Press(VK_F6);
  Press(VK_F6);
  EXPECT_TRUE(IsChild(GetParent(general), GetFocus()));
  EXPECT_TRUE(IsWindowVisible(GetFocus())) << "a control of the page in front";
}

TEST_F(Desk, ShowsAnotherPictureAndKeepsItWhenOneIsBroken) {
  const std::wstring good = LR"(samples\flatbed-colour-100dpi.bmp)", broken = Wide(folder_.Write("text.png", "none"));
  ASSERT_TRUE(Open(Wide(folder_.Path("missing.bmp")))) << "white paper then";
  ASSERT_THAT(said_, ElementsAre(HasSubstr(L"missing.bmp")));
  EXPECT_EQ(Text(desk_->Window()), L"Scan desk");
  said_.clear();
  Press(VK_INSERT);
  desk_->ShowPicture(good);
  EXPECT_THAT(said_, ElementsAre());
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Text(desk_->Window()), L"flatbed-colour-100dpi.bmp - Scan desk");
    EXPECT_EQ(Tabs(), 1);
    EXPECT_EQ(Reported(), L"frame 0 added, 850 x 1169 at 0, 0") << "the panel heard of no other picture";
    desk_->ShowPicture(broken);
  }
  EXPECT_THAT(said_, ElementsAre(HasSubstr(broken), HasSubstr(broken)));
}

TEST_F(Desk, SaysWhenThereIsNoPanel) {
  const std::wstring holdsNone = ProgramFolder() + L"desk_window_tests.exe";
  for (const std::wstring& library : {Wide("no-such-library.dll"), holdsNone}) {
    said_.clear();
    EXPECT_FALSE(Open(library, L""));
    EXPECT_THAT(said_, ElementsAre(HasSubstr(library)));
    EXPECT_TRUE(IsWindowVisible(preview_)) << "the window stands before its panel";
    EXPECT_FALSE(GetUpdateRect(preview_, nullptr, FALSE)) << "and is painted";
  }
}

TEST_F(Desk, OpensTheFaceThatAPersonChooses) {
  ASSERT_TRUE(Open());
  const std::wstring options = Wide(folder_.Path("scan-desk\\QUIRNHTp.INI"));
  const auto choose = [&](WORD item) {
    SendMessageW(desk_->Window(), WM_COMMAND, item, 0);
    Pump();
    return GetMenuState(GetMenu(desk_->Window()), item, MF_BYCOMMAND);
  };
  EXPECT_EQ(choose(command::switchJpegModes) & MF_CHECKED, 0U);
  EXPECT_EQ(choose(command::outputOf42) & MF_CHECKED, MF_CHECKED);
  EXPECT_EQ(choose(command::showInlinePage) & MF_CHECKED, MF_CHECKED);
  EXPECT_EQ(GetPrivateProfileIntW(L"Option", L"UIFace", 9, options.c_str()), 0U);
  EXPECT_EQ(desk_->Page() == nullptr, !said_.empty()) << "a page, or the reason why there is none";
  EXPECT_EQ(choose(command::showSheet) & MF_CHECKED, MF_CHECKED);
  if (desk_->Page() == nullptr) Press('P', true);
  EXPECT_EQ(GetPrivateProfileIntW(L"Option", L"UIFace", 9, options.c_str()), 1U);
  EXPECT_NE(FindWindowExW(GetParent(Page()), nullptr, WC_TABCONTROLW, nullptr), nullptr);

  const auto asked = [&] { return SendMessageW(preview_, set32::to_host::settingsChanged, 2, 0); };
  EXPECT_EQ(asked(), 1) << "the panel may change its source";
  EXPECT_EQ(choose(command::refuseSources) & MF_CHECKED, MF_CHECKED);
  EXPECT_EQ(asked(), 0);
}

TEST_F(Desk, CropsThePictureWhenTheBoxIsChecked) {
  for (const Face face : {Face::sheet, Face::inlinePage}) {
    ASSERT_TRUE(Open(library_, LR"(samples\flatbed-colour-100dpi.bmp)", {.face = face}));
    const auto control = [&](int number) { return GetDlgItem(desk_->Page(), number); };
    SendMessageW(control(id::autoCropCheck), BM_CLICK, 0, 0);
    Pump();
    EXPECT_EQ(Text(control(id::widthEdit)), L"7.56");
    EXPECT_EQ(Text(control(id::heightEdit)), L"9.80");
    EXPECT_EQ(SendMessageW(control(id::autoCropCheck), BM_GETCHECK, 0, 0), BST_CHECKED);
    SendMessageW(control(id::autoCropCheck), BM_CLICK, 0, 0);  // the next panel opens with what this one left
    EXPECT_EQ(Text(control(id::heightEdit)), L"11.00");
  }
}

TEST_F(Desk, SearchesTheNetworkOnlyWhenAPersonAsksForIt) {
  const auto laid = [&] {
    return GetPrivateProfileIntW(L"RunTime", L"DriverType", 3, Wide(folder_.Path("QUIRNMFP.ini")).c_str());
  };
  folder_.Write("QUIRNMFP.ini", "[DeviceID]\r\nDeviceID0=mine\r\n[RunTime]\r\nDriverType=3\r\n");
  ASSERT_TRUE(Open());
  EXPECT_EQ(laid(), 1U);
  EXPECT_THAT(folder_.Read("QUIRNMFP.ini"), HasSubstr("DeviceID0=mine"));
  std::wstring trouble;
  EXPECT_TRUE(Installation(library_).Lay({.search = Search::usbAndNetwork}, trouble));
  EXPECT_EQ(laid(), 3U);
  EXPECT_FALSE(Open(Wide(folder_.Path("missing\\set32.dll")), L""));
  EXPECT_THAT(said_, ElementsAre(HasSubstr(L"missing\\QUIRNMFP.ini"))) << "rather none than one that may search";
}

TEST_F(Desk, IsNeverSmallerThanItsPanelNeeds) {
  ASSERT_TRUE(Open());
  SetWindowPos(desk_->Window(), nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
  Pump();
  const set32::Size least = Panel::LeastSize(), desk = SizeOf(desk_->Window());
  EXPECT_GE(desk.width, 2 * least.width);
  EXPECT_GE(desk.height, least.height);
  EXPECT_GT(SizeOf(preview_).width, 0);
  EXPECT_GE(BelowFrames(), 0) << "the panel can be seen whole";
  EXPECT_GE(SendMessageW(Control(id::configList), LVM_GETCOUNTPERPAGE, 0, 0), 6) << "with every configuration";
}

// Addresses change from run to run and tell a reader nothing.
TEST(LogTest, NamesEachMessageAndPrintsNoAddress) {
  set32::ScanSettings record{};
  record.mode = 1;
  record.dpi = 300;
  record.width = 8.5;
  record.height = 11;
  record.frameCommand = 0x7654321;
  const struct {
    UINT message;
    WPARAM wParam;
    const void* address;
    std::wstring line;
  } cases[] = {{0x402, 0, &record, L"0x402 0 area: mode 1, 300 dpi, 8.5 x 11 in, source 0, frame command"},
               {0x403, 1, &record, L"0x403 1 settings of another source: mode 1, 300 dpi, 8.5 x 11 in, source 0"},
               {0x409, 1, &record, L"0x409 1 auto crop taken over: mode 1, 300 dpi, 8.5 x 11 in, source 0"},
               {0x40B, 2, &record, L"0x40B 2 frame"},
               {0x40C, 0, "10.0.0.7", L"0x40C 0 device: \"10.0.0.7\""},
               {0x40A, 0, &record, L"0x40A 0 (unknown)"}};
  for (const auto& [message, wParam, address, line] : cases)
    EXPECT_THAT(LineOfMessage(message, wParam, reinterpret_cast<LPARAM>(address)), testing::StartsWith(line));
  EXPECT_EQ(LineOfMessage(0x401, 0, 300), L"0x401 0 resolution: 300 dpi");
}

TEST(ArgumentsTest, FollowsACommandLineOrRefusesIt) {
  std::wstring trouble;
  const auto arguments =
      ReadArguments(LR"("C:\a b\scan-desk.exe" --page 1 --tab 2 --once --snapshot "x y.png" in.bmp)", trouble);
  ASSERT_TRUE(arguments);
  EXPECT_EQ(arguments->picture, L"in.bmp");
  EXPECT_EQ(arguments->snapshot, L"x y.png");
  EXPECT_EQ(arguments->page, 1);
  EXPECT_EQ(arguments->tab, 2);
  EXPECT_TRUE(arguments->once);
  EXPECT_FALSE(arguments->advanced);
  EXPECT_EQ(arguments->choices, PanelChoices());
  const PanelChoices other{Face::inlinePage, Search::usbAndNetwork, false, 42};
  EXPECT_EQ(ReadArguments(L"desk --face inline --network real --jpeg off --output-bits 42", trouble)->choices, other);
  EXPECT_TRUE(ReadArguments(L"desk --help", trouble)->help);
  const struct {
    const wchar_t* line;
    const wchar_t* trouble;
  } wrong[] = {{L"desk --page", L"--page is followed by 0 or 1."},
               {L"desk --tab 3", L"--tab is followed by 0 or 1 or 2."},
               {L"desk --face --once", L"--face is followed by sheet or inline."},
               {L"desk --snapshot", L"--snapshot is followed by a file."},
               {L"desk --ever", L"There is no option --ever."},
               {L"desk -o", L"There is no option -o."},
               {L"desk a.bmp b.bmp", L"One preview is shown, not b.bmp too."}};
  for (const auto& [line, expected] : wrong) {
    EXPECT_FALSE(ReadArguments(line, trouble)) << line;
    EXPECT_EQ(trouble, expected);
  }
}

}  // namespace
}  // namespace scan_desk
