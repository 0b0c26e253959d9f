#include "apps/data-source/window/dialog_window.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "apps/scan-desk/frames/desk_layout.h"
#include "apps/scan-desk/frames/view_scale.h"
#include "apps/scan-desk/window/window_object.h"

namespace data_source {

using set32::Rect;
using set32::Size;

const wchar_t dialogClass[] = L"set32-data-source";

namespace {

constexpr wchar_t caption[] = L"Scan";
constexpr DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN;
constexpr int sheetMargin = 5;  // pixels that a sheet stands wider than it was asked to

// The names of the files that the source lays for its panel begin so.
constexpr wchar_t filePrefix[] = L"set32-source-";

scan_desk::PanelDevice DeviceOf(const Negotiation& agreed) {
  scan_desk::PanelDevice told;
  told.limits = {7, 0x11FE, device::highestDpi, device::lowestDpi};  // up to 600 dpi, and numbers of one's own
  told.caps.words[set32::DeviceCaps::sourceCapsWord] = set32::source_caps::feeder;
  told.threshold = agreed.threshold;
  return told;
}

// More than 8 bits a band go through memory alone.
scan_desk::PanelChoices ChoicesOf(const Negotiation& agreed) {
  scan_desk::PanelChoices choices;
  choices.highBits = agreed.mechanism == twain::mechanism::memory;
  return choices;
}

// Windows of another thread can't own one of this thread without tying both threads together.
HWND OwnerOf(twain::Handle parent) {
  const auto window = static_cast<HWND>(parent);
  return window != nullptr && GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId()
             ? GetAncestor(window, GA_ROOT)
             : nullptr;
}

std::string Utf8(const std::wstring& text) {
  const int size =
      WideCharToMultiByte(CP_UTF8, 0, text.c_str(), static_cast<int>(text.size()), nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.c_str(), static_cast<int>(text.size()), bytes.data(), size, nullptr, nullptr);
  return bytes;
}

void MoveTo(HWND window, const Rect& place) {
  SetWindowPos(window, nullptr, place.left, place.top, place.Width(), place.Height(),
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

int Scaled(int pixels) {
  const set32::win32::WindowDc screen(nullptr);
  return MulDiv(pixels, GetDeviceCaps(screen.Get(), LOGPIXELSX), USER_DEFAULT_SCREEN_DPI);
}

}  // namespace

DialogWindow::DialogWindow(const DialogOrder& order, const Scanner& scanner, const DialogActs& acts)
    : owner_(OwnerOf(order.parent)),
      isModal_(order.isModal),
      onlySettings_(order.onlySettings),
      agreed_(order.agreed),
      scanner_(scanner),
      acts_(acts),
      panel_(L"set32.dll", ChoicesOf(order.agreed), DeviceOf(order.agreed), filePrefix),
      preview_(
          picture_, panel_, [](const std::wstring&) {}, [](const std::wstring&) {}),
      least_(scan_desk::Panel::LeastSize()) {}

// The panel ends with its place, and its library goes once no window of it is left.
DialogWindow::~DialogWindow() {
  if (isModal_ && owner_ != nullptr) EnableWindow(owner_, TRUE);
  panel_.Close(place_);
  window_.Reset();
  scan_desk::PreviewView::ForgetClass();
  scan_desk::ForgetWindowClass(dialogClass);
}

bool DialogWindow::Open(std::wstring& trouble) {
  trouble = L"The window can't be made.";
  if (!picture_.MakeBlank() || !MakeWindow() || !MakeControls()) return false;
  preview_.PictureChanged();
  Lay();
  if (!OpenPanel(trouble)) return false;
  LayFrames();
  if (isModal_ && owner_ != nullptr) EnableWindow(owner_, FALSE);
  ShowWindow(window_.Get(), SW_SHOW);
  SetFocus(preview_.Window());
  return true;
}

bool DialogWindow::MakeWindow() {
  scan_desk::RegisterWindowClass<DialogWindow>(dialogClass, 0, scan_desk::cursor::arrow,
                                               GetSysColorBrush(COLOR_BTNFACE));
  RECT work{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  const int width = std::min<int>(least_.width * 3, (work.right - work.left) * 9 / 10);
  const int height = std::min<int>(least_.height * 5 / 4, (work.bottom - work.top) * 9 / 10);
  window_ = set32::win32::OwnedWindow(CreateWindowExW(WS_EX_CONTROLPARENT, dialogClass, caption, style,
                                                      work.left + (work.right - work.left - width) / 2,
                                                      work.top + (work.bottom - work.top - height) / 2, width, height,
                                                      owner_, nullptr, set32::win32::ModuleInstance(), this));
  return static_cast<bool>(window_);
}

bool DialogWindow::MakeControls() {
  if (!preview_.Create(window_.Get())) return false;
  place_ = CreateWindowExW(WS_EX_CONTROLPARENT, L"Static", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 0, 0,
                           window_.Get(), nullptr, set32::win32::ModuleInstance(), nullptr);
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0))
    font_ = set32::win32::OwnedFont(CreateFontIndirectW(&metrics.lfMessageFont));
  preview_.SetFont(font_.Get());
  buttons_ = {MakeButton(L"&Preview", button::preview, BS_PUSHBUTTON),
              MakeButton(onlySettings_ ? L"OK" : L"&Scan", button::scan, BS_DEFPUSHBUTTON),
              MakeButton(onlySettings_ ? L"Cancel" : L"Close", button::close, BS_PUSHBUTTON)};
  return place_ != nullptr && std::ranges::find(buttons_, nullptr) == buttons_.end();
}

HWND DialogWindow::MakeButton(const wchar_t* text, WORD id, DWORD buttonStyle) const {
  const HWND made =
      CreateWindowExW(0, L"Button", text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | buttonStyle, 0, 0, 0, 0, window_.Get(),
                      reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), set32::win32::ModuleInstance(), nullptr);
  SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(font_.Get()), FALSE);
  return made;
}

// Where source and panel meet. The first call lays what a person used last over the record; the application's own
// values are laid over it then, and a second call shows them. A panel that comes into being has its controls where
// its own size wants them; that call stretches it too. The page keeps the paper source that it has.
bool DialogWindow::OpenPanel(std::wstring& trouble) {
  const auto open = [&](int height) {
    return panel_.Open(place_, preview_.Window(), picture_.Dib(), {least_.width - sheetMargin, height}, trouble);
  };
  if (panel_.Page() == nullptr) {
    panel_.Settings() = agreed_.settings;
    if (!open(least_.height)) return false;
    LayOver(agreed_, true, panel_.Settings());
  }
  laidHeight_ = PanelHeight();
  return open(laidHeight_);
}

// Several areas that the application wants become frames; a single one is the record's own.
void DialogWindow::LayFrames() {
  if (agreed_.frames.size() < 2 || panel_.Settings().paperSource != set32::paper_source::flatbed) return;
  std::vector<Rect> frames;
  for (const Area& area : agreed_.frames) {
    const set32::ScanSettings at = [&] {
      set32::ScanSettings settings{};
      PutArea(settings, area);
      return settings;
    }();
    frames.push_back(scan_desk::FrameOf({at.frameLeft, at.frameTop}, area.width, area.height, picture_.DotsPerInch(),
                                        picture_.Area()));
  }
  preview_.LayFrames(frames);
}

// Nothing for one area, which the record tells to the last digit. Of several the current one is the record's too.
std::vector<Area> DialogWindow::Areas() const {
  const scan_desk::Frames& frames = preview_.Laid();
  if (frames.Count() < 2 || panel_.Settings().paperSource != set32::paper_source::flatbed) return {};
  std::vector<Area> areas;
  const double dots = picture_.DotsPerInch();
  for (int i = 0; i < frames.Count(); ++i) {
    const Rect& frame = frames.At(i);
    areas.push_back({frame.left / dots, frame.top / dots, frame.Width() / dots, frame.Height() / dots});
  }
  return areas;
}

void DialogWindow::SetBusy(bool isBusy) {
  EnableWindow(window_.Get(), isBusy ? FALSE : TRUE);
}

// The panel's keys are its own affair.
bool DialogWindow::TakeEvent(MSG& message) {
  return window_ && IsDialogMessageW(window_.Get(), &message) != FALSE;
}

LRESULT DialogWindow::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      Lay();
      return 0;
    case WM_GETMINMAXINFO:
      reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {least_.width * 2, least_.height * 6 / 5};
      return 0;
    case WM_COMMAND:
      OnCommand(LOWORD(wParam));
      return 0;
    case WM_CLOSE:
      acts_.close();
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(wParam) == WA_INACTIVE) focus_ = GetFocus();
      break;
    case WM_SETFOCUS:
      OnFocus();
      return 0;
    case DM_GETDEFID:
      return MAKELONG(button::scan, DC_HASDEFID);
    default:
      break;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

// Ended by its owner's end, for example.
void DialogWindow::OnGone() {
  window_.Release();
  place_ = focus_ = nullptr;
  buttons_.clear();
}

// It comes back to where it was.
void DialogWindow::OnFocus() {
  const bool stands = focus_ != nullptr && IsChild(window_.Get(), focus_) && IsWindowVisible(focus_);
  SetFocus(stands ? focus_ : preview_.Window());
}

void DialogWindow::OnCommand(WORD id) {
  switch (id) {
    case button::preview:
      ShowPreview();
      break;
    case button::scan:
      Scan();
      break;
    case button::close:
      acts_.close();
      break;
    default:
      break;
  }
}

// An edit that is being written in is left first, so that what stands in it counts.
void DialogWindow::Scan() {
  SetFocus(GetDlgItem(window_.Get(), button::scan));
  const std::string trouble = acts_.scan(panel_.Settings(), Areas());
  if (trouble.empty()) return;
  const std::wstring text(trouble.begin(), trouble.end());
  MessageBoxW(window_.Get(), text.c_str(), caption, MB_OK | MB_ICONEXCLAMATION);
}

// Into the same picture, whose size never changes; the panel then renders it anew.
void DialogWindow::ShowPreview() {
  const HCURSOR before = SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(32514)));  // the hourglass
  const ScanResult scanned = scanner_.ScanPreview();
  set32::CDib& dib = picture_.Dib();
  std::wstring trouble = L"The page can't be read.";
  bool isShown =
      scanned.trouble == ScanTrouble::none && Size{scanned.image.width, scanned.image.height} == picture_.Area();
  if (isShown) {
    std::vector<std::uint8_t> bitmap(BitmapSize(scanned.image));
    WriteBitmap(scanned.image, bitmap);
    std::memcpy(dib.sourcePixels, bitmap.data() + sizeof(set32::BitmapInfoHeader), dib.imageSize);
    isShown = OpenPanel(trouble);
  }
  SetCursor(before);
  if (!isShown) MessageBoxW(window_.Get(), trouble.c_str(), caption, MB_OK | MB_ICONEXCLAMATION);
}

void DialogWindow::Lay() {
  RECT client{};
  if (buttons_.empty() || !GetClientRect(window_.Get(), &client)) return;
  const int margin = Scaled(8), high = Scaled(23), wide = Scaled(90), strip = high + 2 * margin;
  const Size above{client.right, client.bottom - strip};
  const scan_desk::DeskLayout layout = scan_desk::LayDesk(above, least_, false);
  MoveTo(preview_.Window(), layout.picture);
  MoveTo(place_, layout.panel);
  int right = client.right - margin;
  for (std::size_t i = buttons_.size(); i-- > 0; right -= wide + margin) {
    const int top = client.bottom - margin - high;
    MoveTo(buttons_[i], {right - wide, top, right, top + high});
  }
  std::wstring ignored;
  if (panel_.Page() != nullptr && PanelHeight() != laidHeight_) OpenPanel(ignored);
}

int DialogWindow::PanelHeight() const {
  RECT place{};
  return GetClientRect(place_, &place) ? std::max<int>(place.bottom, least_.height) : least_.height;
}

bool WindowedDialog::Open(const DialogOrder& order, std::string& trouble) {
  window_ = std::make_unique<DialogWindow>(order, scanner_, acts_);
  std::wstring why;
  if (window_->Open(why)) return true;
  trouble = Utf8(why);
  return false;
}

void WindowedDialog::Close() {
  window_.reset();
}

void WindowedDialog::SetBusy(bool isBusy) {
  if (window_) window_->SetBusy(isBusy);
}

bool WindowedDialog::TakeEvent(twain::Handle event) {
  return window_ && window_->TakeEvent(*static_cast<MSG*>(event));
}

}  // namespace data_source
