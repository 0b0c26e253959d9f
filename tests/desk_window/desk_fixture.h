// The real desk with a real panel in it, used with mouse and keys.
#pragma once

#include <gmock/gmock.h>
#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <string>
#include <vector>

#include "apps/scan-desk/frames/view_scale.h"
#include "apps/scan-desk/window/desk_window.h"
#include "resources/ids.h"
#include "tests/support/scratch_folder.h"

namespace scan_desk {

inline std::wstring Wide(const std::string& text) {
  return {text.begin(), text.end()};
}

inline BOOL CALLBACK TakePage(HWND child, LPARAM found) {
  if (GetDlgItem(child, set32::id::frameTabs) == nullptr) return TRUE;
  *reinterpret_cast<HWND*>(found) = child;
  return FALSE;
}

inline HWND PageWithin(HWND window) {
  HWND page = nullptr;
  EnumChildWindows(window, TakePage, reinterpret_cast<LPARAM>(&page));
  return page;
}

// The pixels of a place in a window, or on the screen where there is none.
inline std::vector<COLORREF> PixelsIn(HWND window, const RECT& place) {
  const int width = place.right - place.left, height = place.bottom - place.top;
  const set32::win32::WindowDc dc(window);
  const set32::win32::OwnedDc memory(CreateCompatibleDC(dc.Get()));
  const set32::win32::OwnedBitmap bitmap(CreateCompatibleBitmap(dc.Get(), width, height));
  {
    const set32::win32::Selected selected(memory.Get(), bitmap.Get());
    BitBlt(memory.Get(), 0, 0, width, height, dc.Get(), place.left, place.top, SRCCOPY);
  }
  BITMAPINFO info{};
  info.bmiHeader = {sizeof info.bmiHeader, width, height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  std::vector<COLORREF> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  GetDIBits(dc.Get(), bitmap.Get(), 0, static_cast<UINT>(height), pixels.data(), &info, DIB_RGB_COLORS);
  return pixels;
}

// The library lies in a folder of its own and keeps its files there.
class Desk : public testing::Test {
 public:
  ~Desk() override {
    desk_.reset();
    SetEnvironmentVariableW(L"TMP", temp_);
  }

 protected:
  Desk() {
    library_ = Wide(folder_.Path("set32.dll"));
    CopyFileW((ProgramFolder() + L"set32.dll").c_str(), library_.c_str(), FALSE);
    GetEnvironmentVariableW(L"TMP", temp_, MAX_PATH);
    SetEnvironmentVariableW(L"TMP", library_.substr(0, library_.find_last_of(L"\\/")).c_str());
  }

  bool Open(const std::wstring& picture = {}) { return Open(library_, picture); }
  bool Open(const std::wstring& library, const std::wstring& picture, const PanelChoices& choices = {}) {
    desk_.emplace(DeskSetup{.library = library, .choices = choices, .say = [this](HWND, const std::wstring& text) {
                              said_.push_back(text);
                            }});
    const bool stands = desk_->Create(picture);
    preview_ = FindWindowExW(desk_->Window(), nullptr, L"scan-desk-preview", nullptr);
    log_ = FindWindowExW(desk_->Window(), nullptr, L"ListBox", nullptr);
    Pump();
    return stands;
  }

  // The program's own loop, until nothing is left to do.
  void Pump() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      if (desk_->TakeKey(message)) continue;
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }

  // A key for the window that has the focus, with Control and Shift as held down.
  void Press(WPARAM key, bool control = false, bool shift = false) {
    Hold(control, shift);
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
    Pump();
    Hold(false, false);
  }

  // Points are pixels of the picture, which the window shows smaller: At gives the one that a mouse can reach there.
  set32::Point At(set32::Point point) const {
    const set32::Point placed = OnWindow(point);
    return ToPicture(placed, Shown(), picture_);
  }
  void Button(UINT message, set32::Point point, WPARAM keys = 0) const {
    const set32::Point placed = OnWindow(point);
    SendMessageW(preview_, message, keys, MAKELPARAM(placed.x, placed.y));
  }
  void Drag(set32::Point from, set32::Point to, WPARAM keys = 0) {
    Button(WM_LBUTTONDOWN, from, keys | MK_LBUTTON);
    Button(WM_MOUSEMOVE, {(from.x + to.x) / 2, to.y}, keys | MK_LBUTTON);
    Button(WM_LBUTTONUP, to, keys);
    Pump();
  }
  static void Click(HWND window, int x, int y) {
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
  }

  HWND Page() const { return PageWithin(desk_->Window()); }
  HWND Control(int id) const { return GetDlgItem(Page(), id); }
  int Tabs() const { return static_cast<int>(SendMessageW(Control(set32::id::frameTabs), TCM_GETITEMCOUNT, 0, 0)); }
  int Tab() const { return static_cast<int>(SendMessageW(Control(set32::id::frameTabs), TCM_GETCURSEL, 0, 0)); }
  // Pixels between the panel's lowest control and the end of its place.
  int BelowFrames() const {
    RECT frames{}, log{}, desk{};
    GetWindowRect(Control(set32::id::frameTabs), &frames);
    GetWindowRect(log_, &log);
    GetWindowRect(desk_->Window(), &desk);
    return static_cast<int>((IsWindowVisible(log_) ? log.top : desk.bottom) - frames.bottom);
  }
  std::wstring Text(HWND window) const {
    wchar_t text[256] = L"";
    GetWindowTextW(window, text, 256);
    return text;
  }
  std::vector<std::wstring> Logged() const {
    std::vector<std::wstring> lines(static_cast<std::size_t>(SendMessageW(log_, LB_GETCOUNT, 0, 0)));
    for (std::size_t line = 0; line < lines.size(); ++line) {
      wchar_t text[256] = L"";
      SendMessageW(log_, LB_GETTEXT, line, reinterpret_cast<LPARAM>(text));
      lines[line] = text;
    }
    return lines;
  }
  // The last line of the log about a report to the panel.
  std::wstring Reported() const {
    std::wstring last;
    for (const std::wstring& line : Logged()) {
      if (line.starts_with(L"to the panel: 0x403 0, ")) last = line.substr(23);
    }
    return last;
  }

  set32::ScratchFolder folder_;
  std::wstring library_;
  std::vector<std::wstring> said_;
  std::optional<DeskWindow> desk_;
  HWND preview_ = nullptr;
  HWND log_ = nullptr;
  set32::Size picture_{850, 1169};  // white paper

 private:
  set32::Rect Shown() const {
    RECT client{};
    GetClientRect(preview_, &client);
    constexpr int margin = 8;
    return ShownPlace({client.right, client.bottom}, picture_, margin);
  }
  set32::Point OnWindow(set32::Point point) const {
    const set32::Rect placed = ToWindow({point.x, point.y, point.x, point.y}, Shown(), picture_);
    return {placed.left, placed.top};
  }
  static void Hold(bool control, bool shift) {
    BYTE keys[256] = {};
    constexpr BYTE down = 0x80;
    keys[VK_CONTROL] = control ? down : 0;
    keys[VK_SHIFT] = shift ? down : 0;
    SetKeyboardState(keys);
  }

  wchar_t temp_[MAX_PATH] = L"";
};

}  // namespace scan_desk
