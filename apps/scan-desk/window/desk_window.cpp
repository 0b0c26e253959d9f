#include "apps/scan-desk/window/desk_window.h"

#include <commdlg.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "apps/scan-desk/frames/desk_layout.h"
#include "apps/scan-desk/window/desk_menu.h"
#include "apps/scan-desk/window/host_lines.h"
#include "apps/scan-desk/window/system_text.h"
#include "apps/scan-desk/window/window_object.h"

namespace scan_desk {

namespace {

constexpr wchar_t className[] = L"scan-desk";
constexpr wchar_t caption[] = L"Scan desk";
constexpr DWORD style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
constexpr int sheetMargin = 5;  // pixels that a sheet stands wider than it was asked to

// Painted anew where it comes to lie, since what lies there may be of another pane.
void MoveTo(HWND window, const set32::Rect& place) {
  SetWindowPos(window, nullptr, place.left, place.top, place.Width(), place.Height(),
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

// Lets the system bring a new window to the screen, and a window manager put it where it will: over once nothing has
// come for a while. What a person does waits.
void SettleOnScreen() {
  constexpr DWORD quiet = 50, longest = 500;
  constexpr UINT kinds = PM_QS_PAINT | PM_QS_POSTMESSAGE | PM_QS_SENDMESSAGE;
  const ULONGLONG end = GetTickCount64() + longest;
  do {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | kinds)) {
      if (message.message == WM_QUIT) return PostQuitMessage(static_cast<int>(message.wParam));
      DispatchMessageW(&message);
    }
  } while (GetTickCount64() < end &&
           MsgWaitForMultipleObjects(0, nullptr, FALSE, quiet, kinds >> 16) == WAIT_OBJECT_0);
}

}  // namespace

void ShowBox(HWND owner, const std::wstring& text) {
  MessageBoxW(owner, text.c_str(), caption, MB_OK | MB_ICONEXCLAMATION);
}

DeskWindow::DeskWindow(DeskSetup setup)
    : setup_(std::move(setup)),
      panel_(setup_.library, setup_.choices),
      preview_(
          picture_, panel_, [this](const std::wstring& line) { Log(line); },
          [this](const std::wstring& device) {
            scanner_ = device;
            ShowTitle();
          }),
      keys_(MakeDeskKeys()),
      least_(Panel::LeastSize()) {}

bool DeskWindow::Create(const std::wstring& pictureFile) {
  if (!picture_.MakeBlank() || !MakeWindow() || !MakePanes()) {
    setup_.say(nullptr, L"The window can't be made: " + ErrorText(GetLastError()));
    return false;
  }
  preview_.PictureChanged();
  if (!pictureFile.empty()) ShowPicture(pictureFile);
  Lay();
  ShowState();
  // Before the panel, which is long in coming when it searches for scanners.
  ShowWindow(Window(), SW_SHOW);
  SetFocus(preview_.Window());
  RedrawWindow(Window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  SettleOnScreen();
  return Window() != nullptr && OpenPanel();
}

// With large fonts the window still fits on the screen.
bool DeskWindow::MakeWindow() {
  RegisterWindowClass<DeskWindow>(className, 0, cursor::arrow, GetSysColorBrush(COLOR_BTNFACE));
  RECT work{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  constexpr int across = 3;  // the picture gets as much room as the panel twice over
  set32::win32::OwnedMenu menu = MakeDeskMenu();
  const HWND window = CreateWindowExW(0, className, caption, style, CW_USEDEFAULT, CW_USEDEFAULT,
                                      std::min<int>(least_.width * across, (work.right - work.left) * 9 / 10),
                                      std::min<int>(least_.height * 3 / 2, (work.bottom - work.top) * 9 / 10),
                                      nullptr, menu.Get(), GetModuleHandleW(nullptr), this);
  if (window == nullptr) return false;
  menu.Release();
  window_ = set32::win32::OwnedWindow(window);
  return true;
}

bool DeskWindow::MakePanes() {
  if (!preview_.Create(Window())) return false;
  place_ = MakeChild(WS_EX_CONTROLPARENT, L"Static", WS_CLIPCHILDREN);
  log_ = MakeChild(WS_EX_CLIENTEDGE, L"ListBox", WS_VSCROLL | LBS_NOINTEGRALHEIGHT);
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0))
    font_ = set32::win32::OwnedFont(CreateFontIndirectW(&metrics.lfMessageFont));
  preview_.SetFont(font_.Get());
  SendMessageW(log_, WM_SETFONT, reinterpret_cast<WPARAM>(font_.Get()), FALSE);
  return place_ != nullptr && log_ != nullptr;
}

HWND DeskWindow::MakeChild(DWORD extendedStyle, const wchar_t* kind, DWORD childStyle) const {
  return CreateWindowExW(extendedStyle, kind, L"", WS_CHILD | WS_VISIBLE | childStyle, 0, 0, 0, 0, Window(), nullptr,
                         GetModuleHandleW(nullptr), nullptr);
}

bool DeskWindow::TakeKey(MSG& message) const {
  return TranslateAcceleratorW(Window(), keys_.Get(), &message) != 0;
}

LRESULT DeskWindow::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
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
      const SIZE least = LeastWindow();
      reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {least.cx, least.cy};
      return 0;
    }
    case WM_COMMAND:
      OnCommand(LOWORD(wParam));
      return 0;
    case WM_ACTIVATE:
      if (OnActivate(wParam)) return 0;
      break;
    case WM_SETFOCUS:
      SetFocus(preview_.Window());  // never on the frame itself, where no key does anything
      return 0;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    default:
      break;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

// The window has taken everything in it along. The library stays until this object ends: the message that closed the
// window may have come by way of one of the panel's controls.
void DeskWindow::OnGone() {
  window_.Release();
  place_ = log_ = focus_ = nullptr;
}

// The focus comes back to where it was. False where the system may do as it does.
bool DeskWindow::OnActivate(WPARAM wParam) {
  if (LOWORD(wParam) == WA_INACTIVE) {
    focus_ = GetFocus();
    return false;
  }
  if (HIWORD(wParam) != 0 || focus_ == nullptr || !IsChild(Window(), focus_) || !IsWindowVisible(focus_))
    return false;
  SetFocus(focus_);
  return true;
}

void DeskWindow::OnCommand(WORD id) {
  PanelChoices choices = panel_.Choices();
  switch (id) {
    case command::openPicture:
      AskForPicture();
      break;
    case command::quit:
      window_.Reset();
      break;
    case command::switchLog:
      SwitchLog();
      break;
    case command::nextPane:
      TurnPane(1);
      break;
    case command::previousPane:
      TurnPane(-1);
      break;
    case command::switchPanel:
      SwitchPanel();
      break;
    case command::showSheet:
    case command::showInlinePage:
      choices.face = id == command::showSheet ? Face::sheet : Face::inlinePage;
      Choose(choices);
      break;
    case command::switchJpegModes:
      choices.jpegModes = !choices.jpegModes;
      Choose(choices);
      break;
    case command::outputOf36:
    case command::outputOf42:
    case command::outputOf48:
      choices.outputBits = id == command::outputOf36 ? 36 : id == command::outputOf42 ? 42 : 48;
      Choose(choices);
      break;
    case command::refuseSources:
      preview_.RefuseSources(!preview_.RefusesSources());
      ShowState();
      break;
    case command::autoCrop:
      preview_.ReportAutoCrop();
      break;
    case command::askAddress:
      if (panel_.Page() != nullptr) Log(LineOfQuestion());
      panel_.AskAddress();
      break;
    case command::showKeys:
      MessageBoxW(Window(), keyLegend, L"Keys", MB_OK);
      break;
    default:
      break;
  }
}

// Room for the panel with a log below it and as much picture beside it.
SIZE DeskWindow::LeastWindow() const {
  RECT least{0, 0, least_.width * 2, least_.height * 6 / 5};
  AdjustWindowRectEx(&least, style, TRUE, 0);
  return {least.right - least.left, least.bottom - least.top};
}

void DeskWindow::Lay() {
  RECT client{};
  if (!GetClientRect(Window(), &client)) return;
  const DeskLayout layout = LayDesk({client.right, client.bottom}, least_, showsLog_);
  MoveTo(preview_.Window(), layout.picture);
  MoveTo(place_, layout.panel);
  MoveTo(log_, layout.log);
  if (!sizing_) PlacePanel();
}

// A later call moves the panel; it is no use to do so while the window's edge is still under way.
void DeskWindow::PlacePanel() {
  RECT place{};
  if (!GetClientRect(place_, &place)) return;
  const int height = std::max<int>(place.bottom, least_.height);
  if (std::exchange(panelHeight_, height) != height && panel_.Page() != nullptr) OpenPanel();
}

// A panel that comes into being has its controls where its own size wants them; only the next call stretches it.
bool DeskWindow::OpenPanel() {
  std::wstring trouble;
  const auto open = [&](int height) {
    return panel_.Open(place_, preview_.Window(), picture_.Dib(), {least_.width - sheetMargin, height}, trouble);
  };
  const bool stands =
      (panel_.Page() != nullptr || open(least_.height)) && open(std::max(panelHeight_, least_.height));
  if (stands) {
    ShowState();
  } else {
    ClosePanel();
    setup_.say(Window(), trouble);
  }
  return stands;
}

// It stands again with one frame.
void DeskWindow::ClosePanel() {
  panel_.Close(place_);
  preview_.PictureChanged();
  scanner_.clear();
  ShowTitle();
  ShowState();
  SetFocus(preview_.Window());
}

void DeskWindow::SwitchPanel() {
  if (panel_.Page() != nullptr) {
    ClosePanel();
    return;
  }
  if (place_ == nullptr) place_ = MakeChild(WS_EX_CONTROLPARENT, L"Static", WS_CLIPCHILDREN);
  Lay();
  OpenPanel();
}

// What a standing panel was opened with lasts until it ends.
void DeskWindow::Choose(const PanelChoices& choices) {
  if (choices == panel_.Choices()) return;
  const bool stood = panel_.Page() != nullptr;
  if (stood) ClosePanel();
  panel_.Choose(choices);
  if (stood) {
    SwitchPanel();
  } else {
    ShowState();
  }
}

void DeskWindow::AskForPicture() {
  constexpr std::size_t longestPath = 32768;
  std::vector<wchar_t> path(longestPath);
  OPENFILENAMEW ask{};
  ask.lStructSize = sizeof ask;
  ask.hwndOwner = Window();
  ask.lpstrFilter = L"Pictures\0*.bmp;*.dib;*.png;*.jpg;*.jpeg;*.tif;*.tiff\0All files\0*.*\0";
  ask.lpstrFile = path.data();
  ask.nMaxFile = static_cast<DWORD>(path.size());
  ask.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_DONTADDTORECENT;
  if (GetOpenFileNameW(&ask)) ShowPicture(path.data());
}

void DeskWindow::ShowPicture(const std::wstring& path) {
  std::wstring trouble;
  if (!picture_.Open(path, trouble)) {
    setup_.say(Window(), trouble);
    return;
  }
  file_ = path.substr(path.find_last_of(L"\\/") + 1);
  ShowTitle();
  preview_.PictureChanged();
  if (panel_.Page() != nullptr) OpenPanel();
}

void DeskWindow::ShowTitle() const {
  std::wstring title = caption;
  for (const std::wstring* part : {&scanner_, &file_}) {
    if (!part->empty()) title.insert(0, *part + L" - ");
  }
  SetWindowTextW(Window(), title.c_str());
}

void DeskWindow::SwitchLog() {
  showsLog_ = !showsLog_;
  ShowWindow(log_, showsLog_ ? SW_SHOWNA : SW_HIDE);
  ShowState();
  Lay();
}

void DeskWindow::ShowState() const {
  ShowDeskState(GetMenu(Window()), {.panelStands = panel_.Page() != nullptr,
                                    .logShows = showsLog_,
                                    .refusesSources = preview_.RefusesSources(),
                                    .choices = panel_.Choices()});
}

// What stands, in the order of the keys.
std::vector<HWND> DeskWindow::Panes() const {
  std::vector<HWND> panes{preview_.Window()};
  if (panel_.Page() != nullptr) panes.push_back(place_);
  if (showsLog_) panes.push_back(log_);
  return panes;
}

void DeskWindow::TurnPane(int step) {
  const std::vector<HWND> panes = Panes();
  const HWND focus = GetFocus();
  const auto here = std::find_if(panes.begin(), panes.end(),
                                 [=](HWND pane) { return pane == focus || IsChild(pane, focus) != FALSE; });
  const auto count = static_cast<int>(panes.size());
  const int at = here == panes.end() ? 0 : static_cast<int>(here - panes.begin()) + step;
  const HWND pane = panes[static_cast<std::size_t>((at + count) % count)];
  const HWND control = pane == place_ ? GetNextDlgTabItem(place_, nullptr, FALSE) : nullptr;
  SetFocus(control != nullptr ? control : pane);
}

void DeskWindow::Log(const std::wstring& line) const {
  constexpr LRESULT most = 1000;
  if (SendMessageW(log_, LB_GETCOUNT, 0, 0) >= most) SendMessageW(log_, LB_DELETESTRING, 0, 0);
  const LRESULT at = SendMessageW(log_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
  SendMessageW(log_, LB_SETTOPINDEX, static_cast<WPARAM>(at), 0);
}

}  // namespace scan_desk
