// What the Win32 system alone has: code pages, its registry, clipboard, mutexes, devices and sockets.
#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <future>
#include <string_view>
#include <vector>

#include "platform/win32/code_page.h"
#include "platform/win32/handle.h"
#include "platform/win32/system_clipboard.h"
#include "platform/win32/win32_services.h"
#include "platform/win32/win32_sockets.h"
#include "platform/win32/win32_threads.h"
#include "platform/win32/win32_usb.h"
#include "platform/win32/win32_windows.h"
#include "platform/win32/windows_api.h"
#include "resources/dialogs.h"
#include "resources/ids.h"
#include "resources/strings.h"
#include "set32/panel_sizes.h"
#include "set32/windows_host.h"

namespace set32 {
namespace {

using win32::CodePage;

TEST(CodePage, ConvertsBothWaysAndCountsCharacters) {
  const CodePage big5(950), utf8(CP_UTF8), latin(1252);
  EXPECT_TRUE(big5.Holds("掃描器"));
  EXPECT_FALSE(latin.Holds("掃"));
  EXPECT_FALSE(CodePage(CP_UTF7).Holds("掃"));  // one that can't be asked is none to rely on
  EXPECT_EQ(big5.FromUtf8("全A"),
            "\xA5\xFE"
            "A");
  EXPECT_EQ(big5.ToUtf8("\xA5\xFE"
                        "A"),
            "全A");
  EXPECT_EQ(big5.Wide("\xA5\xFE"), L"全");
  EXPECT_EQ(utf8.Narrow(L"全"), "全");
  const struct {
    const CodePage& page;
    const char* text;
    std::size_t length;
  } cases[] = {{big5,
                "\xA5\xFE"
                "A",
                2},
               {big5, "A", 1},
               {big5, "\xA5", 1},
               {big5, "", 0},
               {utf8, "全A", 3},
               {utf8, "\xE5\x85", 1},
               {latin, "\xE9", 1}};
  for (const auto& c : cases) EXPECT_EQ(c.page.CharacterLength(c.text), c.length) << c.page.Number() << ' ' << c.text;
  EXPECT_EQ(utf8.ToUtf8("a\xFF"
                        "b"),
            "a\xEF\xBF\xBD"
            "b");
  EXPECT_EQ(big5.ToUtf8("\xA5"), "\xEF\xBF\xBD");
}

std::vector<std::string_view> OwnTexts() {
  std::vector<std::string_view> texts;
  for (int id = 0; id <= 0xFFFF; ++id) {
    if (!TextOf(id).empty()) texts.push_back(TextOf(id));
    const DialogTemplate* dialog = FindDialog(id);
    if (dialog == nullptr) continue;
    texts.emplace_back(dialog->caption);
    for (const ControlTemplate& control : dialog->controls) texts.emplace_back(control.caption);
  }
  return texts;
}

// The few characters that are asked about speak for all, in every code page that a system can have as its own.
TEST(CodePage, IsTheModulesOnlyIfItHoldsAllItsTexts) {
  const std::vector<std::string_view> texts = OwnTexts();
  std::vector<unsigned> taken;
  for (const unsigned number : {874U, 932U, 936U, 949U, 950U, 1250U, 1251U, 1252U, 1253U, 1254U, 1255U, 1256U, 1257U,
                                1258U, 54936U, 65001U}) {
    if (!IsValidCodePage(number)) continue;
    const CodePage page(number);
    const bool holdsAll = std::ranges::all_of(texts, [&](std::string_view text) { return page.Holds(text); });
    EXPECT_EQ(HoldsPanelTexts(page.Number()), holdsAll) << number;
    if (holdsAll) taken.push_back(number);
  }
  EXPECT_THAT(taken, testing::IsSupersetOf({936U, 950U, 65001U}));
}

TEST(CodePage, TellsCharactersFromUnits) {
  const std::wstring text =
      L"a\xD83D\xDE00"
      L"b";  // the second character takes two units
  EXPECT_EQ(win32::CharactersOfUnits(text, 3), 2);
  EXPECT_EQ(win32::CharactersOfUnits(text, 99), 3);
  EXPECT_EQ(win32::UnitsOfCharacters(text, 2), 3);
  EXPECT_EQ(win32::UnitsOfCharacters(text, 99), 4);
}

// A dialog unit is a quarter of the letters' average width across and an eighth of their height down.
TEST(PanelSizes, AreWhatTheDialogsFontAsksFor) {
  const DialogTemplate& page = *FindDialog(dialog::general);
  constexpr Size tabs{10, 24};  // what they take, in units
  constexpr wchar_t letters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  const win32::WindowDc screen(nullptr);
  for (const PanelSize& told : inlineSizes) {
    const win32::OwnedFont font(CreateFontW(-MulDiv(8, told.dpi, 72), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                                            DEFAULT_CHARSET, 0, 0, 0, 0, L"MS Sans Serif"));
    const win32::Selected selected(screen.Get(), font.Get());
    SIZE all{};
    TEXTMETRICW metrics{};
    GetTextExtentPoint32W(screen.Get(), letters, 52, &all);
    GetTextMetricsW(screen.Get(), &metrics);
    const int across = (all.cx / 26 + 1) / 2;
    const auto pixels = [&](Size units) {
      return Size{MulDiv(units.width, across, 4), MulDiv(units.height, metrics.tmHeight, 8)};
    };
    const PanelSize sheet = SizeAt(sheetSizes, told.dpi);
    EXPECT_EQ((Size{told.width, told.height}), pixels(page.size)) << told.dpi;
    EXPECT_EQ((Size{sheet.width, sheet.height}),
              pixels({page.size.width + tabs.width, page.size.height + tabs.height}))
        << told.dpi;
  }
}

TEST(SystemRegistry, ReadsEnumeratesAndDeletes) {
  constexpr wchar_t path[] = L"Software\\set32-test\\inner";
  HKEY made = nullptr;
  ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, 0, KEY_WRITE, nullptr, &made, nullptr), 0);
  constexpr wchar_t unterminated[] = {L'1', L'.', L'2'};
  RegSetValueExW(made, L"text", 0, REG_SZ, reinterpret_cast<const BYTE*>(unterminated), sizeof unterminated);
  const DWORD number = 7;
  RegSetValueExW(made, L"number", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), sizeof number);
  RegCloseKey(made);

  Win32Registry registry;
  std::uint32_t result = 99;
  const auto root = registry.CurrentUser();
  {
    const auto key = root->Open("Software\\set32-test", RegistryAccess::enumerateAndDelete, result);
    ASSERT_NE(key, nullptr);
    std::string name, value;
    EXPECT_EQ(key->SubKeyName(0, name), registry_result::success);
    EXPECT_EQ(name, "inner");
    EXPECT_EQ(key->SubKeyName(1, name), registry_result::noMoreItems);
    const auto inner = key->Open("inner", RegistryAccess::read, result);
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ(inner->ReadString("text", 100, value), registry_result::success);
    EXPECT_EQ(value, "1.2");
    EXPECT_EQ(inner->ReadString("text", 2, value), registry_result::success);
    EXPECT_EQ(value, "1.");
    EXPECT_NE(inner->ReadString("number", 100, value), registry_result::success);
    EXPECT_EQ(inner->ReadString("missing", 100, value), registry_result::fileNotFound);
    EXPECT_EQ(key->DeleteSubKey("inner"), registry_result::success);
  }
  EXPECT_EQ(root->DeleteSubKey("Software\\set32-test"), registry_result::success);
  EXPECT_EQ(root->Open("Software\\set32-test", RegistryAccess::read, result), nullptr);
  EXPECT_EQ(result, registry_result::fileNotFound);
}

TEST(SystemClipboard, KeepsText) {
  SystemClipboard clipboard;
  std::string text;
  clipboard.Write("1.5");
  EXPECT_EQ(clipboard.Read(text), ClipboardRead::text);
  EXPECT_EQ(text, "1.5");
  ASSERT_TRUE(OpenClipboard(nullptr));
  EmptyClipboard();
  CloseClipboard();
  EXPECT_EQ(clipboard.Read(text), ClipboardRead::noText);
}

TEST(SystemClipboard, IsWaitedForWhileAnotherWindowHasItOpen) {
  std::promise<void> opened;
  auto another = std::async(std::launch::async, [&] {
    const HWND window = CreateWindowExW(0, L"Static", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    EXPECT_TRUE(OpenClipboard(window));
    opened.set_value();
    Sleep(15);
    CloseClipboard();
    DestroyWindow(window);
  });
  opened.get_future().wait();
  SystemClipboard clipboard;
  clipboard.Write("2.5");
  another.wait();
  std::string text;
  EXPECT_EQ(clipboard.Read(text), ClipboardRead::text);
  EXPECT_EQ(text, "2.5");
}

// Most of what a message to a host carries is an address, which means nothing elsewhere.
TEST(SystemWindows, NothingIsSentToAWindowOfAnotherProcess) {
  Win32Windows windows;
  const HWND desktop = GetDesktopWindow();
  ASSERT_EQ(SendMessageW(desktop, WM_QUERYOPEN, 0, 0), TRUE);
  EXPECT_EQ(windows.Send(reinterpret_cast<WindowHandle>(desktop), WM_QUERYOPEN, 0, 0), 0);
}

TEST(SystemThreads, AMutexIsWaitedForAndGivenBack) {
  Win32Threads threads;
  const auto first = threads.MakeMutex("set32 test", true);
  std::atomic<int> got{-1};
  const auto ask = [&] {
    got = -1;
    ASSERT_TRUE(threads.Start(ThreadPriority::aboveNormal, [&] {
      const auto second = threads.MakeMutex("set32 test", true);
      got = second->Wait(20) ? 1 : 0;
    }));
    while (got < 0) Sleep(1);
  };
  ask();
  EXPECT_EQ(got, 0);
  first->Release();
  ask();
  EXPECT_EQ(got, 1);
}

TEST(SystemUsb, NumbersWithoutADeviceGiveNone) {
  Win32UsbDevices devices;
  for (const int number : {-1, 0, lastUsbNumber, lastUsbNumber + 1}) EXPECT_EQ(devices.Open(number), nullptr);
}

TEST(SystemSockets, DatagramsCrossTheLoopback) {
  constexpr std::uint32_t loopback = 0x7F000001;
  constexpr std::uint16_t port = 53551;
  Win32Sockets sockets;
  ASSERT_TRUE(sockets.Start(0x0202));
  {
    const auto socket = sockets.Open();
    ASSERT_TRUE(socket->Bind(port));
    std::array<std::uint8_t, 4> into{};
    EXPECT_EQ(socket->Receive(into, 10).status, ReceiveStatus::timeOut);
    const std::array<std::uint8_t, 6> bytes{1, 2, 3, 4, 5, 6};
    ASSERT_TRUE(socket->Send(std::span(bytes).first(3), loopback, port));
    const Received received = socket->Receive(into, 2000);
    EXPECT_EQ(received.status, ReceiveStatus::datagram);
    EXPECT_EQ(received.size, 3U);
    EXPECT_EQ(received.sender, loopback);
    EXPECT_EQ(into[2], 3);
    // One that is too long is an error at once; one to nobody harms no later one.
    ASSERT_TRUE(socket->Send(bytes, loopback, port));
    EXPECT_EQ(socket->Receive(into, 2000).status, ReceiveStatus::error);
    socket->Send(bytes, loopback, port + 1);
    EXPECT_EQ(socket->Receive(into, 50).status, ReceiveStatus::timeOut);
  }
  sockets.Stop();
}

}  // namespace
}  // namespace set32
