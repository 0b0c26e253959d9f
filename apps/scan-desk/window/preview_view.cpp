#include "apps/scan-desk/window/preview_view.h"

#include <cmath>
#include <utility>

#include "apps/scan-desk/frames/auto_crop.h"
#include "apps/scan-desk/window/host_lines.h"
#include "apps/scan-desk/window/preview_painting.h"
#include "apps/scan-desk/window/system_text.h"
#include "apps/scan-desk/window/window_object.h"
#include "platform/win32/handle.h"
#include "set32/messages.h"
#include "set32/pointer_word.h"
#include "set32/windows_host.h"

namespace scan_desk {

using set32::Point;
using set32::Rect;
using set32::ScanSettings;
using set32::Size;

namespace {

constexpr wchar_t className[] = L"scan-desk-preview";
constexpr int margin = 8;  // this and the length below at 96 dots an inch
constexpr int reach = 5;   // of the pointer, to a frame's edge
constexpr double leastInches = 0.3;

// Posted to itself, to report what a message of the panel left to do once that message is answered.
enum Later : UINT { layFrame = WM_APP, reportCurrent, cropFrame };

Point PointOf(LPARAM lParam) {
  return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

bool IsDown(int key) {
  return GetKeyState(key) < 0;
}

}  // namespace

PreviewView::PreviewView(Picture& picture, Panel& panel, Told heard, Told deviceTold)
    : picture_(picture), panel_(panel), heard_(std::move(heard)), deviceTold_(std::move(deviceTold)) {}

bool PreviewView::Create(HWND parent) {
  RegisterWindowClass<PreviewView>(className, CS_HREDRAW | CS_VREDRAW, cursor::cross, nullptr);
  window_ = CreateWindowExW(WS_EX_CLIENTEDGE, className, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 0, 0, parent,
                            nullptr, set32::win32::ModuleInstance(), this);
  return window_ != nullptr;
}

void PreviewView::ForgetClass() {
  ForgetWindowClass(className);
}

void PreviewView::LayFrames(std::span<const Rect> frames) {
  if (panel_.Page() == nullptr) return;
  while (frames_.Count() > 0) frames_.Remove(0);
  Tell({0, set32::frame_action::allGone});
  for (const Rect& frame : frames) Tell({frames_.Add(frame), set32::frame_action::added});
}

void PreviewView::PictureChanged() {
  drag_.Cancel(frames_);
  frames_.SetArea(picture_.Area(), static_cast<int>(std::ceil(leastInches * picture_.DotsPerInch())));
  frames_.Reset();
  TellOfLoneFrame();
  Repaint();
}

// The panel's frames are those of another picture.
void PreviewView::TellOfLoneFrame() {
  if (panel_.Page() == nullptr) return;
  Tell({0, set32::frame_action::allGone});
  Tell({0, set32::frame_action::added});
}

LRESULT PreviewView::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  window_ = window;
  switch (message) {
    case WM_PAINT:
      OnPaint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_LBUTTONDOWN:
      OnButtonDown(PointOf(lParam), (wParam & MK_CONTROL) != 0);
      return 0;
    case WM_MOUSEMOVE:
      OnPointer(PointOf(lParam));
      return 0;
    case WM_LBUTTONUP:
      OnPointer(PointOf(lParam));
      OnButtonUp();
      return 0;
    case WM_CAPTURECHANGED:
      OnCaptureLost();
      return 0;
    case WM_SETCURSOR:
      if (LOWORD(lParam) == HTCLIENT && OnCursor()) return TRUE;
      break;
    case WM_GETDLGCODE:  // of a dialog that it stands in
      return drag_.Now() == FrameDrag::Kind::none ? DLGC_WANTARROWS : DLGC_WANTALLKEYS;
    case WM_KEYDOWN:
      OnKey(wParam);
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      Repaint();
      return 0;
    case layFrame:
      LayFrame();
      return 0;
    case reportCurrent:
      if (frames_.Current() >= 0) Tell({frames_.Current(), set32::frame_action::select});
      return 0;
    case cropFrame:
      ReportAutoCrop();
      return 0;
    default:
      break;
  }
  if (message >= set32::to_host::resolutionChanged && message <= set32::to_host::deviceSelected)
    return OnPanelMessage(message, wParam, lParam);
  return DefWindowProcW(window, message, wParam, lParam);
}

// The record holds the new values already.
LRESULT PreviewView::OnPanelMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  heard_(LineOfMessage(message, wParam, lParam));
  const ScanSettings* settings = RecordOf(message, lParam);
  switch (message) {
    case set32::to_host::areaChanged:
      if (settings != nullptr && wParam == 0) OnAreaTold(*settings);
      Repaint();  // the picture too, which the inline face tells of in this way
      return 0;
    case set32::to_host::settingsChanged:
      if (settings != nullptr && wParam == set32::settings_change::values) OnFrameCommand(*settings);
      return refusesSources_ && wParam == set32::settings_change::askSource ? 0 : 1;
    case set32::to_host::autoCropChanged:
      if (settings != nullptr && wParam == set32::auto_crop_change::checkBox && settings->autoCrop != 0)
        PostMessageW(window_, cropFrame, 0, 0);
      return 0;
    case set32::to_host::unitChosen:
      panel_.Settings().units = static_cast<std::uint32_t>(wParam);
      return 0;
    case set32::to_host::frameTabChanged:
      OnTabTold(static_cast<int>(wParam));
      return 0;
    case set32::to_host::deviceSelected:
      deviceTold_(wParam == 0 ? WideText(reinterpret_cast<const char*>(lParam)) : std::wstring());
      return 0;
    default:
      return 0;
  }
}

// The panel's size and place for the current frame.
void PreviewView::OnAreaTold(const ScanSettings& settings) {
  if (frames_.Count() == 0) PostMessageW(window_, layFrame, 0, 0);
  frames_.PutAsTold(frames_.Current(), RecordedFrame(settings));
}

// A chosen configuration takes all frames away and brings an area of its own.
void PreviewView::LayFrame() {
  if (frames_.Count() != 0 || panel_.Page() == nullptr) return;
  frames_.Lay(RecordedFrame(panel_.Settings()));
  Tell({0, set32::frame_action::added});
}

Rect PreviewView::RecordedFrame(const ScanSettings& settings) const {
  return FrameOf({settings.frameLeft, settings.frameTop}, settings.width, settings.height, picture_.DotsPerInch(),
                 picture_.Area());
}

void PreviewView::OnFrameCommand(const ScanSettings& settings) {
  if (settings.frameCommand == 0) return;
  drag_.Cancel(frames_);
  const auto& command = *set32::FromWord<set32::FrameCommand>(settings.frameCommand);
  if (command.action == set32::frame_action::removed) frames_.Remove(static_cast<int>(command.index));
  Repaint();
}

// The panel shows that tab, but its record still holds the frame before.
void PreviewView::OnTabTold(int index) {
  drag_.Cancel(frames_);
  frames_.Select(index);
  PostMessageW(window_, reportCurrent, 0, 0);
  Repaint();
}

void PreviewView::ReportAutoCrop() {
  const set32::CDib& dib = picture_.Dib();
  if (panel_.Page() == nullptr) return;
  const Rect found = ContentOf({dib.sourcePixels, dib.imageSize}, picture_.Area(), dib.stride);
  const Rect frame = frames_.Between({found.left, found.top}, {found.right, found.bottom});
  const double dots = picture_.DotsPerInch();
  if (frames_.Count() == 0) frames_.Lay(frame);
  frames_.PutAsTold(frames_.Current(), frame);
  heard_(LineOfAutoCrop(frame));
  set32::ReportCrop(panel_.Page(), panel_.Settings(),
                    {frame.left, frame.top, frame.Width() / dots, frame.Height() / dots});
  Repaint();
}

// Where the record has the frame already, or there is none, the record's own size is reported: pixels would round it,
// and the picture's edge may have cut it.
void PreviewView::Tell(const FrameChange& change) {
  const bool stands = change.index >= 0 && change.index < frames_.Count();
  const Rect frame = stands ? frames_.At(change.index) : Rect{};
  const ScanSettings& settings = panel_.Settings();
  const bool isRecorded = !stands || frame == RecordedFrame(settings);
  const double dots = picture_.DotsPerInch();
  heard_(LineOfReport(change, frame));
  set32::ReportFrame(panel_.Page(), settings, static_cast<std::uint32_t>(change.index), change.action,
                     {frame.left, frame.top, isRecorded ? settings.width : frame.Width() / dots,
                      isRecorded ? settings.height : frame.Height() / dots});
  Repaint();
}

void PreviewView::OnButtonDown(Point at, bool wantsNew) {
  SetFocus(window_);
  SetCapture(window_);
  drag_.Begin(frames_, InPicture(at), GripUnder(at), wantsNew);
  Repaint();
}

void PreviewView::OnPointer(Point at) {
  if (drag_.Now() == FrameDrag::Kind::none) return;
  drag_.To(frames_, InPicture(at));
  Repaint();
}

// First the end of the drag, since giving up the mouse cancels one that is under way.
void PreviewView::OnButtonUp() {
  const std::optional<FrameChange> change = drag_.End(frames_);
  ReleaseCapture();
  if (change) Tell(*change);
}

void PreviewView::OnCaptureLost() {
  drag_.Cancel(frames_);
  Repaint();
}

Grip PreviewView::GripUnder(Point at) const {
  if (frames_.Current() < 0) return {};
  return GripAt(ToWindow(frames_.At(frames_.Current()), Shown(), picture_.Area()), at, Wide(reach));
}

// Over an edge the pointer says which way it can be dragged.
bool PreviewView::OnCursor() const {
  POINT at{};
  if (!GetCursorPos(&at) || !ScreenToClient(window_, &at)) return false;
  const Grip grip = GripUnder({at.x, at.y});
  if (!grip.Any() || IsDown(VK_CONTROL)) return false;
  const bool isCorner = (grip.left || grip.right) && (grip.top || grip.bottom);
  const WORD shape = isCorner                  ? (grip.left == grip.top ? cursor::risesLeft : cursor::risesRight)
                     : grip.left || grip.right ? cursor::across
                                               : cursor::down;
  SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(shape)));
  return true;
}

void PreviewView::OnKey(WPARAM key) {
  const int step = IsDown(VK_CONTROL) ? 1 : 10;
  const int across = key == VK_RIGHT ? step : key == VK_LEFT ? -step : 0;
  const int down = key == VK_DOWN ? step : key == VK_UP ? -step : 0;
  const int current = frames_.Current();
  if (key == VK_ESCAPE) {
    ReleaseCapture();
  } else if (drag_.Now() != FrameDrag::Kind::none) {
    return;  // the mouse has the frames
  } else if (key == VK_INSERT) {
    NewFrame();
  } else if (key == VK_DELETE) {
    DeleteFrame();
  } else if (current >= 0 && (key == VK_PRIOR || key == VK_NEXT)) {
    SelectFrame((current + (key == VK_NEXT ? 1 : frames_.Count() - 1)) % frames_.Count());
  } else if (current >= 0 && (across != 0 || down != 0)) {
    const Rect frame = frames_.At(current);
    frames_.Put(current,
                IsDown(VK_SHIFT) ? frames_.Stretched(frame, across, down) : frames_.Moved(frame, across, down));
    Tell({current, set32::frame_action::select});
  }
}

// In the middle, half as wide and high as the picture.
void PreviewView::NewFrame() {
  const Size area = picture_.Area();
  const Point corner{area.width / 4, area.height / 4};
  const Rect frame = frames_.Between(corner, {corner.x + area.width / 2, corner.y + area.height / 2});
  Tell({frames_.Add(frame), set32::frame_action::added});
}

void PreviewView::SelectFrame(int index) {
  frames_.Select(index);
  Tell({index, set32::frame_action::select});
}

void PreviewView::DeleteFrame() {
  const int current = frames_.Current();
  if (current < 0) return;
  frames_.Remove(current);
  if (frames_.Count() == 0) {
    Tell({0, set32::frame_action::allGone});
  } else {
    Tell({current, set32::frame_action::removed});
    SelectFrame(frames_.Current());
  }
}

int PreviewView::Wide(int pixels) const {
  const set32::win32::WindowDc dc(window_);
  return WidePixels(dc.Get(), pixels);
}

Rect PreviewView::Shown() const {
  RECT client{};
  GetClientRect(window_, &client);
  return ShownPlace({client.right, client.bottom}, picture_.Area(), Wide(margin));
}

void PreviewView::Repaint() const {
  if (window_ != nullptr) InvalidateRect(window_, nullptr, FALSE);
}

void PreviewView::OnPaint() {
  const set32::win32::PaintDc dc(window_);
  RECT client{};
  GetClientRect(window_, &client);
  PaintPreview(dc.Get(), client, {picture_.Dib(), frames_, drag_, Shown(), GetFocus() == window_, font_});
}

}  // namespace scan_desk
