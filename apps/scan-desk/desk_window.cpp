#include "apps/scan-desk/desk_window.h"

#include <commdlg.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace scan_desk {

namespace {

constexpr wchar_t className[] = L"scan-desk";
constexpr wchar_t caption[] = L"Scan desk";

enum Command : WORD { openPicture = 100, quit, switchLog, nextPane, autoCrop, askAddress, switchPanel };

HMENU MakeMenu() {
  const HMENU file = CreatePopupMenu();
  AppendMenuW(file, MF_STRING, openPicture, L"&Open preview...\tCtrl+O");
  AppendMenuW(file, MF_SEPARATOR, 0, nullptr);
  AppendMenuW(file, MF_STRING, quit, L"E&xit\tAlt+F4");
  const HMENU view = CreatePopupMenu();
  AppendMenuW(view, MF_STRING | MF_CHECKED, switchLog, L"&Log of messages\tCtrl+L");
  AppendMenuW(view, MF_STRING, nextPane, L"&Next pane\tF6");
  const HMENU panel = CreatePopupMenu();
  AppendMenuW(panel, MF_STRING | MF_CHECKED, switchPanel, L"&Open\tCtrl+P");
  AppendMenuW(panel, MF_STRING, autoCrop, L"Report &auto crop\tCtrl+R");
  AppendMenuW(panel, MF_STRING, askAddress, L"Ask for a &scanner's address...\tCtrl+I");
  const HMENU bar = CreateMenu();
  AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), L"&File");
  AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(view), L"&View");
  AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(panel), L"&Panel");
  return bar;
}

HACCEL MakeKeys() {
  ACCEL keys[] = {{FVIRTKEY | FCONTROL, 'O', openPicture}, {FVIRTKEY | FCONTROL, 'L', switchLog},
                  {FVIRTKEY | FCONTROL, 'R', autoCrop},    {FVIRTKEY | FCONTROL, 'I', askAddress},
                  {FVIRTKEY | FCONTROL, 'P', switchPanel}, {FVIRTKEY, VK_F6, nextPane}};
  return CreateAcceleratorTableW(keys, static_cast<int>(std::size(keys)));
}

}  // namespace

DeskWindow::DeskWindow()
    : preview_(
          picture_, panel_, [this](const std::wstring& line) { Log(line); },
          [this](const std::wstring& device) {
            scanner_ = device;
            ShowTitle();
          },
          [this] { NextPane(); }),
      keys_(MakeKeys()) {}

DeskWindow::~DeskWindow() {
  if (window_ != nullptr && IsWindow(window_)) DestroyWindow(window_);
  if (font_ != nullptr) DeleteObject(font_);
  if (keys_ != nullptr) DestroyAcceleratorTable(keys_);
}

bool DeskWindow::Create(const std::wstring& pictureFile) {
  if (!MakeWindows()) return false;
  if (!panel_.IsLoaded()) {
    Say(L"There is no set32.dll beside this program.");
    return false;
  }
  picture_.MakeBlank();
  preview_.PictureChanged();
  Lay();
  if (!pictureFile.empty()) ShowPicture(pictureFile);
  if (!panel_.Open(place_, preview_.Window(), picture_.Dib(), panelSize_)) {
    Say(L"The panel can't be opened.");
    return false;
  }
  ShowWindow(window_, SW_SHOW);
  SetFocus(preview_.Window());
  return true;
}

bool DeskWindow::MakeWindows() {
  WNDCLASSEXW kind{};
  kind.cbSize = sizeof kind;
  kind.lpfnWndProc = Procedure;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
  kind.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  kind.lpszClassName = className;
  RegisterClassExW(&kind);
  panelSize_ = Panel::LeastSize();
  RECT work{};  // with large fonts the window still fits on the screen
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  constexpr int across = 3;  // the picture gets as much room twice over
  window_ =
      CreateWindowExW(0, className, caption, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT,
                      std::min<int>(panelSize_.width * across, (work.right - work.left) * 9 / 10),
                      std::min<int>(panelSize_.height * 3 / 2, (work.bottom - work.top) * 9 / 10), nullptr,
                      MakeMenu(), kind.hInstance, nullptr);
  if (window_ == nullptr) return false;
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  MakePlace();
  log_ = CreateWindowExW(WS_EX_CLIENTEDGE, L"ListBox", L"", WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_NOINTEGRALHEIGHT,
                         0, 0, 0, 0, window_, nullptr, kind.hInstance, nullptr);
  MakeFont();
  return place_ != nullptr && log_ != nullptr && preview_.Create(window_);
}

void DeskWindow::MakePlace() {
  place_ = CreateWindowExW(WS_EX_CONTROLPARENT, L"Static", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 0, 0,
                           window_, nullptr, GetModuleHandleW(nullptr), nullptr);
}

void DeskWindow::MakeFont() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0))
    font_ = CreateFontIndirectW(&metrics.lfMessageFont);
  if (font_ != nullptr) SendMessageW(log_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
}

LRESULT CALLBACK DeskWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* desk = reinterpret_cast<DeskWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  return desk == nullptr ? DefWindowProcW(window, message, wParam, lParam) : desk->OnMessage(message, wParam, lParam);
}

LRESULT DeskWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      Lay();
      return 0;
    case WM_ENTERSIZEMOVE:
      sizing_ = true;
      return 0;
    case WM_EXITSIZEMOVE:
      sizing_ = false;
      PlacePanel();
      return 0;
    case WM_GETMINMAXINFO: {
      const set32::Size least = Panel::LeastSize();
      reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {least.width * 2, least.height * 6 / 5};
      return 0;
    }
    case WM_COMMAND:
      OnCommand(LOWORD(wParam));
      return 0;
    case WM_ACTIVATE:
      // The focus comes back to where it was.
      if (LOWORD(wParam) == WA_INACTIVE) {
        focus_ = GetFocus();
      } else if (IsWindow(focus_)) {
        SetFocus(focus_);
        return 0;
      }
      break;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    case WM_NCDESTROY:
      SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
      window_ = nullptr;
      return 0;
    default:
      break;
  }
  return DefWindowProcW(window_, message, wParam, lParam);
}

void DeskWindow::OnCommand(WORD id) {
  switch (id) {
    case openPicture:
      OpenPicture();
      break;
    case quit:
      DestroyWindow(window_);
      break;
    case switchLog:
      SwitchLog();
      break;
    case nextPane:
      NextPane();
      break;
    case autoCrop:
      preview_.ReportAutoCrop();
      break;
    case switchPanel:
      SwitchPanel();
      break;
    case askAddress:
      panel_.AskAddress();
      break;
    default:
      break;
  }
}

// The panel keeps its width; the picture takes what is left.
void DeskWindow::Lay() {
  RECT client{};
  GetClientRect(window_, &client);
  const int wide = panelSize_.width;
  const int logHeight = showsLog_ ? client.bottom / 6 : 0;
  const int height = std::max<int>(client.bottom - logHeight, 0);
  const int pictureWidth = std::max<int>(client.right - wide, 0);
  MoveWindow(preview_.Window(), 0, 0, pictureWidth, height, TRUE);
  MoveWindow(place_, pictureWidth, 0, wide, height, TRUE);
  MoveWindow(log_, 0, height, client.right, logHeight, TRUE);
  if (!sizing_) PlacePanel();
}

// A later call moves the panel; it is no use to do so while the window's edge is still under way.
void DeskWindow::PlacePanel() {
  RECT place{};
  if (!GetClientRect(place_, &place)) return;
  const int height = std::max<int>(place.bottom, Panel::LeastSize().height);
  if (height == panelSize_.height) return;
  panelSize_.height = height;
  if (panel_.Page() != nullptr) panel_.Open(place_, preview_.Window(), picture_.Dib(), panelSize_);
}

void DeskWindow::OpenPicture() {
  wchar_t path[MAX_PATH] = L"";
  OPENFILENAMEW ask{};
  ask.lStructSize = sizeof ask;
  ask.hwndOwner = window_;
  ask.lpstrFilter = L"Bitmaps (*.bmp)\0*.bmp;*.dib\0All files\0*.*\0";
  ask.lpstrFile = path;
  ask.nMaxFile = static_cast<DWORD>(std::size(path));
  ask.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_DONTADDTORECENT;
  if (GetOpenFileNameW(&ask)) ShowPicture(path);
}

void DeskWindow::ShowPicture(const std::wstring& path) {
  std::wstring trouble;
  if (!picture_.Open(path, trouble)) {
    Say(trouble);
    return;
  }
  file_ = path.substr(path.find_last_of(L"\\/") + 1);
  ShowTitle();
  preview_.PictureChanged();
  if (panel_.Page() != nullptr) panel_.Open(place_, preview_.Window(), picture_.Dib(), panelSize_);
}

void DeskWindow::ShowTitle() {
  std::wstring title = caption;
  for (const std::wstring* part : {&scanner_, &file_}) {
    if (!part->empty()) title = *part + L" - " + title;
  }
  SetWindowTextW(window_, title.c_str());
}

// The sheet's panel ends with its parent.
void DeskWindow::SwitchPanel() {
  const bool stood = panel_.Page() != nullptr;
  if (stood) {
    DestroyWindow(std::exchange(place_, nullptr));
    panel_.Unload();
    preview_.PictureChanged();  // the panel starts with one frame when it stands again
    scanner_.clear();
    ShowTitle();
    SetFocus(preview_.Window());
  } else {
    MakePlace();
    Lay();
    if (!panel_.Load() || !panel_.Open(place_, preview_.Window(), picture_.Dib(), panelSize_)) {
      Say(L"The panel can't be opened.");
    }
  }
  CheckMenuItem(GetMenu(window_), switchPanel, panel_.Page() != nullptr ? MF_CHECKED : MF_UNCHECKED);
}

void DeskWindow::SwitchLog() {
  showsLog_ = !showsLog_;
  ShowWindow(log_, showsLog_ ? SW_SHOWNA : SW_HIDE);
  CheckMenuItem(GetMenu(window_), switchLog, showsLog_ ? MF_CHECKED : MF_UNCHECKED);
  Lay();
}

// Preview, panel, log, and again the preview.
void DeskWindow::NextPane() {
  const HWND focus = GetFocus();
  if (focus == preview_.Window() && panel_.Page() != nullptr) {
    const HWND first = GetNextDlgTabItem(panel_.Page(), nullptr, FALSE);
    SetFocus(first != nullptr ? first : panel_.Page());
  } else {
    SetFocus(focus != log_ && focus != preview_.Window() && showsLog_ ? log_ : preview_.Window());
  }
}

void DeskWindow::Log(const std::wstring& line) {
  constexpr LRESULT most = 1000;
  if (SendMessageW(log_, LB_GETCOUNT, 0, 0) >= most) SendMessageW(log_, LB_DELETESTRING, 0, 0);
  const LRESULT at = SendMessageW(log_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
  SendMessageW(log_, LB_SETTOPINDEX, static_cast<WPARAM>(at), 0);
}

void DeskWindow::Say(const std::wstring& text) const {
  MessageBoxW(window_, text.c_str(), caption, MB_OK | MB_ICONEXCLAMATION);
}

}  // namespace scan_desk
