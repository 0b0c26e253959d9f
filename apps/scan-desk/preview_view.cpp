#include "apps/scan-desk/preview_view.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

#include "messages.h"
#include "platform/win32/handle.h"
#include "pointer_word.h"

namespace scan_desk {

using set32::Point;
using set32::Rect;
using set32::ScanSettings;
using set32::Size;

namespace {

constexpr wchar_t className[] = L"scan-desk-preview";
constexpr int margin = 8;         // this and the lengths below at 96 dots an inch
constexpr int reach = 5;          // of the pointer, to a frame's edge
constexpr int smallestFrame = 4;  // pixels of the picture; a shorter drag is a click

Point PointOf(LPARAM lParam) {
  return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

// The panel's bytes are UTF-8 where the system's code page can't hold its texts.
std::wstring WideText(const char* bytes) {
  if (bytes == nullptr) return {};
  for (const UINT page : {UINT{CP_UTF8}, UINT{CP_ACP}}) {
    const int size = MultiByteToWideChar(page, page == CP_UTF8 ? MB_ERR_INVALID_CHARS : 0, bytes, -1, nullptr, 0);
    if (size <= 0) continue;
    std::wstring text(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(page, 0, bytes, -1, text.data(), size);
    text.pop_back();  // the zero
    return text;
  }
  return {};
}

bool CarriesRecord(UINT message) {
  return message == set32::to_host::areaChanged || message == set32::to_host::settingsChanged ||
         message == set32::to_host::customSizeTaken || message == set32::to_host::autoCropChanged;
}

std::wstring LineOf(UINT message, WPARAM wParam, LPARAM lParam) {
  wchar_t text[160];
  if (CarriesRecord(message)) {
    const auto& settings = *reinterpret_cast<const ScanSettings*>(lParam);
    std::swprintf(text, std::size(text), L"0x%X %d settings: mode %u, %d dpi, %.2f x %.2f in, source %u%ls", message,
                  static_cast<int>(wParam), settings.mode, settings.dpi, settings.width, settings.height,
                  settings.paperSource, settings.frameCommand != 0 ? L", frame command" : L"");
  } else if (message == set32::to_host::deviceSelected) {
    return L"0x40C " + std::to_wstring(wParam) + L" \"" + WideText(reinterpret_cast<const char*>(lParam)) + L"\"";
  } else {
    std::swprintf(text, std::size(text), L"0x%X %d %d", message, static_cast<int>(wParam), static_cast<int>(lParam));
  }
  return text;
}

}  // namespace

PreviewView::PreviewView(Picture& picture, Panel& panel, Told heard, Told deviceTold, std::function<void()> leave)
    : picture_(picture),
      panel_(panel),
      heard_(std::move(heard)),
      deviceTold_(std::move(deviceTold)),
      leave_(std::move(leave)) {}

bool PreviewView::Create(HWND parent) {
  WNDCLASSEXW kind{};
  kind.cbSize = sizeof kind;
  kind.style = CS_HREDRAW | CS_VREDRAW;
  kind.lpfnWndProc = Procedure;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32515));  // the cross
  kind.lpszClassName = className;
  RegisterClassExW(&kind);
  window_ = CreateWindowExW(WS_EX_CLIENTEDGE, className, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 0, 0, parent,
                            nullptr, kind.hInstance, nullptr);
  if (window_ != nullptr) SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  PictureChanged();
  return window_ != nullptr;
}

void PreviewView::PictureChanged() {
  frames_.SetArea(picture_.Area());
  frames_.Reset();
  drag_ = Drag::none;
  if (panel_.Page() != nullptr) {
    Tell(0, set32::frame_action::allGone);
    Tell(0, set32::frame_action::added);
  }
  InvalidateRect(window_, nullptr, FALSE);
}

LRESULT CALLBACK PreviewView::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* view = reinterpret_cast<PreviewView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  return view == nullptr ? DefWindowProcW(window, message, wParam, lParam) : view->OnMessage(message, wParam, lParam);
}

LRESULT PreviewView::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      OnPaint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_LBUTTONDOWN:
      OnButtonDown(PointOf(lParam));
      return 0;
    case WM_MOUSEMOVE:
      OnPointer(PointOf(lParam));
      return 0;
    case WM_LBUTTONUP:
      OnButtonUp();
      return 0;
    case WM_CAPTURECHANGED:
      drag_ = Drag::none;
      InvalidateRect(window_, nullptr, FALSE);
      return 0;
    case WM_SETCURSOR:
      if (LOWORD(lParam) == HTCLIENT && OnCursor()) return TRUE;
      break;
    case WM_KEYDOWN:
      OnKey(wParam);
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      InvalidateRect(window_, nullptr, FALSE);
      return 0;
    case WM_NCDESTROY:
      SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
      return 0;
    default:
      break;
  }
  if (message >= set32::to_host::resolutionChanged && message <= set32::to_host::deviceSelected)
    return OnPanelMessage(message, wParam, lParam);
  return DefWindowProcW(window_, message, wParam, lParam);
}

// The record holds the new values already.
LRESULT PreviewView::OnPanelMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  heard_(LineOf(message, wParam, lParam));
  switch (message) {
    case set32::to_host::areaChanged:
      OnFrameTold(*reinterpret_cast<const ScanSettings*>(lParam));
      return 0;
    case set32::to_host::settingsChanged: {
      const auto& settings = *reinterpret_cast<const ScanSettings*>(lParam);
      if (wParam == set32::settings_change::values && settings.frameCommand != 0) {
        const auto& command = *set32::FromWord<set32::FrameCommand>(settings.frameCommand);
        if (command.action == set32::frame_action::removed) frames_.Remove(static_cast<int>(command.index));
        InvalidateRect(window_, nullptr, FALSE);
      }
      return 1;  // also lets the paper source change
    }
    case set32::to_host::unitChosen:
      panel_.Settings().units = static_cast<std::uint32_t>(wParam);
      return 0;
    case set32::to_host::frameTabChanged:
      frames_.Select(static_cast<int>(wParam));
      InvalidateRect(window_, nullptr, FALSE);
      return 0;
    case set32::to_host::deviceSelected:
      deviceTold_(wParam == 0 ? WideText(reinterpret_cast<const char*>(lParam)) : std::wstring());
      return 0;
    default:
      return 0;
  }
}

// The panel's size and place for the current frame.
void PreviewView::OnFrameTold(const ScanSettings& settings) {
  frames_.Put(frames_.Current(), FrameOf({settings.frameLeft, settings.frameTop}, settings.width, settings.height,
                                         picture_.DotsPerInch(), picture_.Area()));
  InvalidateRect(window_, nullptr, FALSE);
}

void PreviewView::ReportAutoCrop() {
  const int current = frames_.Current();
  const Rect frame = current >= 0 ? frames_.At(current) : Rect{0, 0, picture_.Area().width, picture_.Area().height};
  const double dots = picture_.DotsPerInch();
  heard_(L"to the panel: 0x403 2, auto crop");
  panel_.Report(set32::frame_report::cropped, {frame.left, frame.top}, frame.Width() / dots, frame.Height() / dots);
}

void PreviewView::Tell(int index, std::uint32_t action) {
  const bool stands = index >= 0 && index < frames_.Count();
  const Rect frame = stands ? frames_.At(index) : Rect{};
  const double dots = picture_.DotsPerInch();
  const std::wstring what = action == set32::frame_action::added     ? L"added"
                            : action == set32::frame_action::select  ? L"moved"
                            : action == set32::frame_action::removed ? L"removed"
                                                                     : L"all gone";
  heard_(L"to the panel: 0x403 0, frame " + std::to_wstring(index) + L" " + what);
  const ScanSettings& settings = panel_.Settings();
  panel_.Report(set32::frame_report::drawn, {frame.left, frame.top}, stands ? frame.Width() / dots : settings.width,
                stands ? frame.Height() / dots : settings.height,
                set32::FrameCommand{static_cast<std::uint32_t>(index), action});
  InvalidateRect(window_, nullptr, FALSE);
}

void PreviewView::OnButtonDown(Point at) {
  SetFocus(window_);
  SetCapture(window_);
  dragStart_ = ToPicture(at, Shown(), picture_.Area());
  grip_ = GripUnder(at);
  const int under = frames_.Under(dragStart_);
  const bool whole = under >= 0 && frames_.At(under) == Rect{0, 0, picture_.Area().width, picture_.Area().height};
  // A frame over the whole picture can't be moved anywhere, so a drag inside it draws.
  drag_ = grip_.Any() ? Drag::resizes : under >= 0 && !whole ? Drag::moves : Drag::draws;
  if (drag_ == Drag::moves) frames_.Select(under);
  dragged_ = drag_ == Drag::draws ? Rect{} : frames_.At(frames_.Current());
  InvalidateRect(window_, nullptr, FALSE);
}

void PreviewView::OnPointer(Point at) {
  const Point now = ToPicture(at, Shown(), picture_.Area());
  if (drag_ == Drag::draws) dragged_ = frames_.Between(dragStart_, now);
  if (drag_ == Drag::moves)
    dragged_ = frames_.Moved(frames_.At(frames_.Current()), now.x - dragStart_.x, now.y - dragStart_.y);
  if (drag_ == Drag::resizes) dragged_ = Resized(frames_.At(frames_.Current()), grip_, now, picture_.Area());
  if (drag_ != Drag::none) InvalidateRect(window_, nullptr, FALSE);
}

Grip PreviewView::GripUnder(Point at) const {
  if (frames_.Current() < 0) return {};
  return GripAt(ToWindow(frames_.At(frames_.Current()), Shown(), picture_.Area()), at, Wide(reach));
}

// Over an edge the pointer says which way it can be dragged.
bool PreviewView::OnCursor() const {
  constexpr WORD risesLeft = 32642, risesRight = 32643, across = 32644, down = 32645;
  POINT at{};
  GetCursorPos(&at);
  ScreenToClient(window_, &at);
  const Grip grip = GripUnder({at.x, at.y});
  if (!grip.Any()) return false;
  const bool isCorner = (grip.left || grip.right) && (grip.top || grip.bottom);
  const WORD shape = isCorner                  ? (grip.left == grip.top ? risesLeft : risesRight)
                     : grip.left || grip.right ? across
                                               : down;
  SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(shape)));
  return true;
}

int PreviewView::Wide(int pixels) const {
  const set32::win32::WindowDc dc(window_);
  return MulDiv(pixels, GetDeviceCaps(dc.Get(), LOGPIXELSX), USER_DEFAULT_SCREEN_DPI);
}

void PreviewView::OnButtonUp() {
  const Drag drag = drag_;
  const Rect frame = dragged_;
  drag_ = Drag::none;
  ReleaseCapture();
  if (drag == Drag::draws && frame.Width() >= smallestFrame && frame.Height() >= smallestFrame) {
    // The first frame drawn takes the place of the one over the whole picture.
    const bool first =
        frames_.Count() == 1 && frames_.At(0) == Rect{0, 0, picture_.Area().width, picture_.Area().height};
    if (first) {
      frames_.Put(0, frame);
      Tell(0, set32::frame_action::select);
    } else {
      Tell(frames_.Add(frame), set32::frame_action::added);
    }
  } else if (drag != Drag::none && drag != Drag::draws && frame != frames_.At(frames_.Current())) {
    frames_.Put(frames_.Current(), frame);
    Tell(frames_.Current(), set32::frame_action::select);
  }
}

void PreviewView::OnKey(WPARAM key) {
  const bool stretches = GetKeyState(VK_SHIFT) < 0;
  const int step = GetKeyState(VK_CONTROL) < 0 ? 1 : 10;
  const int across = key == VK_RIGHT ? step : key == VK_LEFT ? -step : 0;
  const int down = key == VK_DOWN ? step : key == VK_UP ? -step : 0;
  const int current = frames_.Current();
  if (key == VK_TAB) {
    leave_();
  } else if (key == VK_INSERT) {
    NewFrame();
  } else if (key == VK_DELETE) {
    DeleteFrame();
  } else if (current >= 0 && (key == VK_PRIOR || key == VK_NEXT)) {
    frames_.Select((current + (key == VK_NEXT ? 1 : frames_.Count() - 1)) % frames_.Count());
    Tell(frames_.Current(), set32::frame_action::select);
  } else if (current >= 0 && (across != 0 || down != 0)) {
    const Rect frame = frames_.At(current);
    frames_.Put(current, stretches ? frames_.Stretched(frame, across, down) : frames_.Moved(frame, across, down));
    Tell(current, set32::frame_action::select);
  }
}

// In the middle, half as wide and high as the picture.
void PreviewView::NewFrame() {
  const Size area = picture_.Area();
  const Point corner{area.width / 4, area.height / 4};
  Tell(frames_.Add(frames_.Between(corner, {corner.x + area.width / 2, corner.y + area.height / 2})),
       set32::frame_action::added);
}

void PreviewView::DeleteFrame() {
  const int current = frames_.Current();
  if (current < 0) return;
  frames_.Remove(current);
  Tell(frames_.Current() < 0 ? 0 : frames_.Current(),
       frames_.Count() == 0 ? set32::frame_action::allGone : set32::frame_action::removed);
  if (frames_.Count() > 0) Tell(frames_.Current(), set32::frame_action::select);
}

Rect PreviewView::Shown() const {
  RECT client{};
  GetClientRect(window_, &client);
  return ShownPlace({client.right, client.bottom}, picture_.Area(), Wide(margin));
}

RECT PreviewView::Placed(const Rect& frame) const {
  const Rect place = ToWindow(frame, Shown(), picture_.Area());
  return {place.left, place.top, place.right, place.bottom};
}

// Into memory first, so that a dragged frame doesn't flicker.
void PreviewView::OnPaint() {
  PAINTSTRUCT paint{};
  const HDC dc = BeginPaint(window_, &paint);
  RECT client{};
  GetClientRect(window_, &client);
  const HDC memory = CreateCompatibleDC(dc);
  const HBITMAP bitmap = CreateCompatibleBitmap(dc, std::max<int>(client.right, 1), std::max<int>(client.bottom, 1));
  const HGDIOBJ before = SelectObject(memory, bitmap);
  FillRect(memory, &client, GetSysColorBrush(COLOR_APPWORKSPACE));
  Paint(memory);
  BitBlt(dc, 0, 0, client.right, client.bottom, memory, 0, 0, SRCCOPY);
  SelectObject(memory, before);
  DeleteObject(bitmap);
  DeleteDC(memory);
  EndPaint(window_, &paint);
}

void PreviewView::Paint(HDC dc) {
  const set32::CDib& dib = picture_.Dib();
  const Rect shown = Shown();
  if (dib.header == nullptr || dib.displayPixels == nullptr) return;
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = dib.header->width;
  info.bmiHeader.biHeight = dib.header->height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = dib.header->bitCount;
  SetStretchBltMode(dc, HALFTONE);
  SetBrushOrgEx(dc, 0, 0, nullptr);
  StretchDIBits(dc, shown.left, shown.top, shown.Width(), shown.Height(), 0, 0, dib.header->width, dib.header->height,
                dib.displayPixels, &info, DIB_RGB_COLORS, SRCCOPY);
  SetBkMode(dc, TRANSPARENT);
  for (int i = 0; i < frames_.Count(); ++i) {
    const bool current = i == frames_.Current();
    const Rect& frame = current && (drag_ == Drag::moves || drag_ == Drag::resizes) ? dragged_ : frames_.At(i);
    RECT place = Placed(frame);
    const HBRUSH brush = CreateSolidBrush(current ? RGB(208, 32, 32) : RGB(32, 96, 208));
    FrameRect(dc, &place, brush);
    InflateRect(&place, -1, -1);
    FrameRect(dc, &place, brush);
    DeleteObject(brush);
    const std::wstring number = std::to_wstring(i);
    SetTextColor(dc, current ? RGB(208, 32, 32) : RGB(32, 96, 208));
    TextOutW(dc, place.left + margin / 2, place.top + margin / 4, number.c_str(), static_cast<int>(number.size()));
    if (current && GetFocus() == window_) {
      InflateRect(&place, -2, -2);
      DrawFocusRect(dc, &place);
    }
  }
  if (drag_ == Drag::draws) {
    const RECT place = Placed(dragged_);
    DrawFocusRect(dc, &place);
  }
}

}  // namespace scan_desk
