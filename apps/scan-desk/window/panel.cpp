#include "apps/scan-desk/window/panel.h"

#include <utility>

#include "platform/win32/handle.h"
#include "set32/messages.h"

namespace scan_desk {

namespace {

// Nowhere else than where its files are laid.
std::wstring PathOf(const std::wstring& library) {
  return library.find_first_of(L"\\/") == std::wstring::npos ? ProgramFolder() + library : library;
}

constexpr wchar_t heldLibrary[] =
    L"\n\nThe library of the last panel is still in use. One of its messages may stand open, perhaps behind this "
    L"window: close it, then open the panel again.";

}  // namespace

PanelDevice::PanelDevice() {
  caps.words[set32::DeviceCaps::restrictedMaxDpiWord] = 600;
  caps.words[set32::DeviceCaps::sourceCapsWord] = set32::source_caps::feeder | set32::source_caps::transparency;
}

Panel::Panel(const std::wstring& library, const PanelChoices& choices, const PanelDevice& device,
             const std::wstring& prefix)
    : file_(PathOf(library)), choices_(choices), device_(device), installation_(file_, prefix) {}

bool Panel::Open(HWND parent, HWND host, set32::CDib& preview, set32::Size size, std::wstring& trouble) {
  const bool stood = page_ != nullptr;
  if (!stood && !(installation_.Lay(choices_, trouble) && library_.Load(file_, trouble))) return false;
  const set32::PanelRect place{0, 0, size.width, size.height};
  page_ = reinterpret_cast<HWND>(library_.FixSetting()(
      reinterpret_cast<set32::WindowHandle>(parent), reinterpret_cast<set32::WindowHandle>(host), &device_.limits,
      &settings_, &preview, choices_.jpegModes ? 1 : 0, 0, device_.threshold,
      static_cast<std::uint32_t>(choices_.outputBits), &place, &device_.caps));
  if (page_ == nullptr) {
    trouble = std::wstring(L"The panel can't be opened: uiFixSetting has no page for the ") +
              (IsInline() ? L"inline face." : L"sheet.") + (library_.WasHeld() ? heldLibrary : L"");
  } else if (stood && IsInline()) {  // which a later call leaves where it stands
    SetWindowPos(page_, nullptr, 0, 0, size.width, size.height, SWP_NOZORDER | SWP_NOACTIVATE);
  }
  return page_ != nullptr;
}

void Panel::Close(HWND& parent) {
  const HWND page = std::exchange(page_, nullptr);
  if (page != nullptr && IsInline()) {
    SendMessageW(page, WM_CLOSE, 0, 0);
    return;
  }
  DestroyWindow(std::exchange(parent, nullptr));
  library_.Unload();
}

// Posted, since the question stands until the person has answered it.
void Panel::AskAddress() {
  if (page_ != nullptr) PostMessageW(page_, set32::to_panel::askAddress, 0, 0);
}

set32::Size Panel::LeastSize() {
  constexpr int unitsAcross = 190, unitsDown = 285, points = 8, pointsAnInch = 72;
  constexpr wchar_t letters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  constexpr int letterCount = 52;
  const set32::win32::WindowDc screen(nullptr);
  const set32::win32::OwnedFont font(
      CreateFontW(-MulDiv(points, GetDeviceCaps(screen.Get(), LOGPIXELSY), pointsAnInch), 0, 0, 0, FW_NORMAL, FALSE,
                  FALSE, FALSE, DEFAULT_CHARSET, 0, 0, 0, 0, L"MS Sans Serif"));
  const set32::win32::Selected selected(screen.Get(), font.Get());
  SIZE size{};
  TEXTMETRICW metrics{};
  GetTextExtentPoint32W(screen.Get(), letters, letterCount, &size);
  GetTextMetricsW(screen.Get(), &metrics);
  // A dialog unit is a quarter of the letters' average width across and an eighth of their height down.
  const int across = (size.cx / (letterCount / 2) + 1) / 2;
  return {MulDiv(unitsAcross, across, 4), MulDiv(unitsDown, metrics.tmHeight, 8)};
}

}  // namespace scan_desk
