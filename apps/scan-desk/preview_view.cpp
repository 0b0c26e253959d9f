#include "apps/scan-desk/preview_view.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

#include "messages.h"
#include "pointer_word.h"

namespace scan_desk {

using set32::Point;
using set32::Rect;
using set32::ScanSettings;
using set32::Size;

namespace {

constexpr wchar_t className[] = L"scan-desk-preview";
constexpr int margin = 8;
constexpr int smallestFrame = 4;  // pixels of the picture; a shorter drag is a click

Point PointOf(LPARAM lParam) {
  return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
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
    std::swprintf(text, std::size(text), L"0x%X %d device", message, static_cast<int>(wParam));
  } else {
    std::swprintf(text, std::size(text), L"0x%X %d %d", message, static_cast<int>(wParam), static_cast<int>(lParam));
  }
  return text;
}

}  // namespace

PreviewView::PreviewView(Picture& picture, Panel& panel, std::function<void(const std::wstring&)> heard)
    : picture_(picture), panel_(panel), heard_(std::move(heard)) {}

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
  if (frames_.Count() == 0) frames_.Reset();
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
    default:
      return 0;
  }
}

// The panel's size and place for the current frame.
void PreviewView::OnFrameTold(const ScanSettings& settings) {
  const double dots = picture_.DotsPerInch();
  const auto pixels = [dots](double inches) {
    constexpr double most = 1e6;
    return static_cast<int>(std::lround(std::clamp(inches * dots, 0.0, most)));
  };
  const Rect frame =
      frames_.Between({settings.frameLeft, settings.frameTop},
                      {settings.frameLeft + pixels(settings.width), settings.frameTop + pixels(settings.height)});
  frames_.Put(frames_.Current(), frame);
  InvalidateRect(window_, nullptr, FALSE);
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
  panel_.Report({frame.left, frame.top}, stands ? frame.Width() / dots : settings.width,
                stands ? frame.Height() / dots : settings.height, {static_cast<std::uint32_t>(index), action});
  InvalidateRect(window_, nullptr, FALSE);
}

void PreviewView::OnButtonDown(Point at) {
  SetFocus(window_);
  SetCapture(window_);
  dragStart_ = ToPicture(at);
  const int under = frames_.Under(dragStart_);
  const bool whole = under >= 0 && frames_.At(under) == Rect{0, 0, picture_.Area().width, picture_.Area().height};
  // A frame over the whole picture can't be moved anywhere, so a drag inside it draws.
  drag_ = under >= 0 && !whole ? Drag::moves : Drag::draws;
  if (drag_ == Drag::moves) {
    frames_.Select(under);
    dragged_ = frames_.At(under);
  } else {
    dragged_ = {};
  }
  InvalidateRect(window_, nullptr, FALSE);
}

void PreviewView::OnPointer(Point at) {
  if (drag_ == Drag::none) return;
  const Point now = ToPicture(at);
  dragged_ = drag_ == Drag::draws
                 ? frames_.Between(dragStart_, now)
                 : frames_.Moved(frames_.At(frames_.Current()), now.x - dragStart_.x, now.y - dragStart_.y);
  InvalidateRect(window_, nullptr, FALSE);
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
  } else if (drag == Drag::moves) {
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
  if (key == VK_INSERT) {
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
  Tell(frames_.Count() == 0 ? 0 : current,
       frames_.Count() == 0 ? set32::frame_action::allGone : set32::frame_action::removed);
}

// As large as the window lets it, in the middle.
Rect PreviewView::Shown() const {
  RECT client{};
  GetClientRect(window_, &client);
  const Size area = picture_.Area();
  const int room = std::max<int>(client.right - 2 * margin, 1);
  const int height = std::max<int>(client.bottom - 2 * margin, 1);
  if (area.width <= 0 || area.height <= 0) return {};
  const double scale = std::min(static_cast<double>(room) / area.width, static_cast<double>(height) / area.height);
  const int shownWidth = std::max(static_cast<int>(area.width * scale), 1);
  const int shownHeight = std::max(static_cast<int>(area.height * scale), 1);
  const int left = (client.right - shownWidth) / 2;
  const int top = (client.bottom - shownHeight) / 2;
  return {left, top, left + shownWidth, top + shownHeight};
}

Point PreviewView::ToPicture(Point at) const {
  const Rect shown = Shown();
  const Size area = picture_.Area();
  if (shown.Width() <= 0 || shown.Height() <= 0) return {};
  return {MulDiv(at.x - shown.left, area.width, shown.Width()),
          MulDiv(at.y - shown.top, area.height, shown.Height())};
}

RECT PreviewView::ToWindow(const Rect& frame) const {
  const Rect shown = Shown();
  const Size area = picture_.Area();
  if (area.width <= 0 || area.height <= 0) return {};
  return {shown.left + MulDiv(frame.left, shown.Width(), area.width),
          shown.top + MulDiv(frame.top, shown.Height(), area.height),
          shown.left + MulDiv(frame.right, shown.Width(), area.width),
          shown.top + MulDiv(frame.bottom, shown.Height(), area.height)};
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
    const Rect& frame = current && drag_ == Drag::moves ? dragged_ : frames_.At(i);
    RECT place = ToWindow(frame);
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
    const RECT place = ToWindow(dragged_);
    DrawFocusRect(dc, &place);
  }
}

}  // namespace scan_desk
