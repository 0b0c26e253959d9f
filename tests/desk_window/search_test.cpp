// What a person sees of a search, and what becomes of what they do meanwhile.
#include <algorithm>
#include <functional>

#include "platform/win32/win32_sockets.h"
#include "scanner/scanner_record.h"
#include "tests/desk_window/desk_fixture.h"

namespace scan_desk {
namespace {

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Gt;
using testing::HasSubstr;
using testing::Lt;

std::function<void(HWND dialog)> onSearched;

// The system asks before it takes a window away: there the dialog of a search still stands as it did all the time.
LRESULT CALLBACK OnWindows(int code, WPARAM wParam, LPARAM lParam) {
  const auto window = reinterpret_cast<HWND>(wParam);
  if (code == HCBT_DESTROYWND && GetDlgItem(window, set32::id120::text) != nullptr) onSearched(window);
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

// How much of a window's place on the screen is dark.
double InkOn(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  const std::vector<COLORREF> pixels = PixelsIn(nullptr, place);
  const auto dark =
      std::count_if(pixels.begin(), pixels.end(), [](COLORREF pixel) { return GetGValue(pixel) < 0x80; });
  return static_cast<double>(dark) / static_cast<double>(pixels.size());
}

class Searching : public Desk {
 public:
  ~Searching() override { onSearched = nullptr; }

 protected:
  Searching() {
    onSearched = [this](HWND dialog) {
      const HWND label = GetDlgItem(dialog, set32::id120::text);
      searches_.push_back(Text(label));
      inks_.push_back(InkOn(label));
      if (meanwhile_) std::exchange(meanwhile_, nullptr)();
    };
  }
  // The scanner's name reaches the host once a search.
  std::ptrdiff_t Reports() const {
    const std::vector<std::wstring> lines = Logged();
    return std::count_if(lines.begin(), lines.end(),
                         [](const std::wstring& line) { return line.find(L" device: ") != std::wstring::npos; });
  }
  void ClickRefresh() const {
    RECT place{};
    GetWindowRect(Control(set32::id::refreshButton), &place);
    SetCursorPos((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    INPUT down{}, up{};
    down.type = up.type = INPUT_MOUSE;
    down.mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    up.mi.dwFlags = MOUSEEVENTF_LEFTUP;
    INPUT both[] = {down, up};
    SendInput(2, both, sizeof down);
  }
  static void PressSpace() {
    INPUT down{};
    down.type = INPUT_KEYBOARD;
    down.ki.wVk = VK_SPACE;
    INPUT up = down;
    up.ki.dwFlags = KEYEVENTF_KEYUP;
    INPUT both[] = {down, up};
    SendInput(2, both, sizeof down);
  }

  std::vector<std::wstring> searches_;
  std::vector<double> inks_;
  std::function<void()> meanwhile_;
  set32::win32::OwnedHook hook_{SetWindowsHookExW(WH_CBT, OnWindows, nullptr, GetCurrentThreadId())};
};

// The search's own port is taken here, so that it waits and sends nothing.
TEST_F(Searching, IsSeenByItsText) {
  set32::Win32Sockets sockets;
  ASSERT_TRUE(sockets.Start(0x0202));
  const auto taken = sockets.Open();
  ASSERT_TRUE(taken && taken->Bind(set32::networkScannerPort));
  double unpainted = 1;
  meanwhile_ = [&] { unpainted = InkOn(FindWindowExW(desk_->Window(), nullptr, L"scan-desk-preview", nullptr)); };
  ASSERT_TRUE(Open(library_, L"", {.search = Search::usbAndNetwork}));
  EXPECT_LT(unpainted, 0.1) << "the desk's window stands on the screen before its panel searches";
  EXPECT_THAT(searches_, ElementsAre(HasSubstr(L"本端裝置"), HasSubstr(L"本端網路")));
  ClickRefresh();
  Pump();
  EXPECT_THAT(inks_, AllOf(testing::SizeIs(4), Each(AllOf(Gt(0.02), Lt(0.5))))) << "letters on a light ground";
}

TEST_F(Searching, ForgetsWhatIsDoneMeanwhile) {
  ASSERT_TRUE(Open());
  const auto before = Reports();
  meanwhile_ = [this] {
    for (int i = 0; i < 5; ++i) ClickRefresh();
    PressSpace();
    constexpr DWORD longerThanATick = 40;
    Sleep(longerThanATick);
  };
  ClickRefresh();
  Pump();
  EXPECT_EQ(Reports(), before + 1);
  EXPECT_EQ(GetFocus(), Control(set32::id::refreshButton));
  PressSpace();
  Pump();
  EXPECT_EQ(Reports(), before + 2) << "what is done afterwards counts";
}

}  // namespace
}  // namespace scan_desk
