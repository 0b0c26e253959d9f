#include "platform/win32/simple_controls.h"

#include <algorithm>

#include "platform/win32/code_page.h"
#include "platform/win32/gdi_canvas.h"
#include "platform/win32/rects.h"
#include "platform/win32/win32_dialog.h"

#include <commctrl.h>

namespace set32::win32 {

void RealLabel::SetColour(std::optional<Colour> colour) {
  if (!Exists() || colour_ == colour) return;
  colour_ = colour;
  InvalidateRect(Window(), nullptr, TRUE);
}

void ClickedIn(const Win32Dialog& dialog, int id) {
  switch (id) {
    case IDOK:
      dialog.Accept();
      break;
    case IDCANCEL:
      dialog.Cancel();
      break;
    default:
      dialog.Deliver(Event{.kind = EventKind::clicked, .controlId = id});
  }
}

// A radio button without its mark counts the focus alone as a click, which Tab and a dialog that appears would give
// it.
RealCheck::RealCheck(Win32Dialog& dialog, HWND window, const ControlTemplate& source)
    : RealClickable(dialog, window, source) {
  if (source.kind == ControlKind::radio) Ask(BM_SETDONTCLICK, TRUE);
}

RealPictureButton::RealPictureButton(Win32Dialog& dialog, HWND window, const ControlTemplate& source)
    : RealClickable(dialog, window, source), caption_(ModuleText().FromUtf8(source.caption)) {}

void RealPictureButton::SetPictures(const ButtonPictures& pictures) {
  if (!Exists()) return;
  pictures_ = pictures;
  InvalidateRect(Window(), nullptr, TRUE);
  if (pictures.up.Empty()) return;
  SetWindowPos(Window(), nullptr, 0, 0, pictures.up.size.width, pictures.up.size.height,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void RealPictureButton::OnDrawItem(const DRAWITEMSTRUCT& item) {
  const Picture* picture = &pictures_.up;
  const auto prefer = [&](UINT state, const Picture& other) {
    if ((item.itemState & state) != 0 && !other.Empty()) picture = &other;
  };
  prefer(ODS_FOCUS, pictures_.focused);
  prefer(ODS_SELECTED, pictures_.down);
  prefer(ODS_DISABLED, pictures_.disabled);
  GdiCanvas canvas(item.hDC, Inside());
  canvas.Fill(FromRECT(item.rcItem), canvas.ColourOf(SystemColour::buttonFace));
  canvas.Draw(*picture, {item.rcItem.left, item.rcItem.top});
}

void RealPicture::SetPicture(const Picture& picture) {
  if (!Exists()) return;
  picture_ = picture;
  stopIcon_ = false;
  InvalidateRect(Window(), nullptr, TRUE);
}

void RealPicture::SetStopIcon() {
  if (!Exists()) return;
  picture_ = {};
  stopIcon_ = true;
  InvalidateRect(Window(), nullptr, TRUE);
}

void RealPicture::OnDrawItem(const DRAWITEMSTRUCT& item) {
  GdiCanvas canvas(item.hDC, Inside());
  canvas.Fill(FromRECT(item.rcItem), canvas.ColourOf(SystemColour::buttonFace));
  if (stopIcon_) {
    DrawIcon(item.hDC, 0, 0, LoadIconW(nullptr, MAKEINTRESOURCEW(32513)));  // the system's icon of errors
  } else {
    canvas.Draw(picture_, {});
  }
}

void RealFrame::Draw(const std::function<void(Canvas&)>& drawing) {
  if (!Exists()) return;
  const Size area = ClientSize();
  auto drawn = std::make_unique<PixelBitmap>(area);
  const OwnedDc memory(CreateCompatibleDC(nullptr));
  if (!*drawn || !memory) return;
  {
    const Selected selected(memory.Get(), drawn->Handle());
    const std::unique_ptr<GdiCanvas> canvas = CanvasOn(memory.Get(), *drawn);
    canvas->Fill({0, 0, area.width, area.height}, canvas->ColourOf(SystemColour::buttonFace));
    if (drawn_ != nullptr && drawn_->Area() == area) ShowOn(memory.Get());
    drawing(*canvas);
  }
  if (!Exists()) return;
  drawn_ = std::move(drawn);
  const WindowDc dc(Window());
  ShowOn(dc.Get());
}

std::unique_ptr<GdiCanvas> RealFrame::CanvasOn(HDC dc, const PixelBitmap& bitmap) const {
  return std::make_unique<GdiCanvas>(dc, bitmap.Area());
}

void RealFrame::OnDrawItem(const DRAWITEMSTRUCT& item) {
  if (drawn_ != nullptr) {
    ShowOn(item.hDC);
  } else {
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_BTNFACE));
  }
}

void RealFrame::ShowOn(HDC dc) const {
  const OwnedDc memory(CreateCompatibleDC(dc));
  if (!memory) return;
  const Selected selected(memory.Get(), drawn_->Handle());
  BitBlt(dc, 0, 0, drawn_->Area().width, drawn_->Area().height, memory.Get(), 0, 0, SRCCOPY);
}

int RealAddress::Fields(std::array<std::uint8_t, 4>& fields) const {
  fields = {};
  if (!Exists()) return 0;
  DWORD address = 0;
  const int filled = AskNumber(IPM_GETADDRESS, 0, reinterpret_cast<LPARAM>(&address));
  for (std::size_t i = 0; i < fields.size(); ++i) fields[i] = static_cast<std::uint8_t>(address >> (24 - 8 * i));
  return filled;
}

std::string RealAddress::Text() const {
  std::string text;
  bool any = false;
  for (const HWND field : FieldWindows()) {
    std::array<wchar_t, 8> digits{};
    GetWindowTextW(field, digits.data(), static_cast<int>(digits.size()));
    if (digits[0] != L'\0') any = true;
    text += NarrowText(digits.data()) + ".";
  }
  if (!any) return {};
  text.pop_back();
  return text;
}

bool RealAddress::HasFocus() const {
  return Exists() && Covers(GetFocus());
}

std::array<HWND, 4> RealAddress::FieldWindows() const {
  std::array<HWND, 4> fields{};
  if (!Exists()) return fields;
  std::size_t count = 0;
  for (HWND child = GetWindow(Window(), GW_CHILD); child != nullptr && count < fields.size();
       child = GetWindow(child, GW_HWNDNEXT)) {
    fields[count++] = child;
  }
  // Their order among each other is the class's own affair; their places tell which is which.
  std::sort(fields.begin(), fields.begin() + static_cast<std::ptrdiff_t>(count), [](HWND left, HWND right) {
    RECT one{}, other{};
    GetWindowRect(left, &one);
    GetWindowRect(right, &other);
    return one.left < other.left;
  });
  return fields;
}

}  // namespace set32::win32
