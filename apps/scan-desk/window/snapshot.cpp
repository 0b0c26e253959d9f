#include "apps/scan-desk/window/snapshot.h"

// The system's picture library names the types of a larger windows.h.
#include <objidl.h>

#include <commctrl.h>

#include <gdiplus.h>

#include "platform/win32/handle.h"
#include "resources/ids.h"

namespace scan_desk {

namespace {

constexpr CLSID pngWriter = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

class PictureLibrary {
 public:
  PictureLibrary() {
    const Gdiplus::GdiplusStartupInput input;
    stands_ = Gdiplus::GdiplusStartup(&token_, &input, nullptr) == Gdiplus::Ok;
  }
  ~PictureLibrary() {
    if (stands_) Gdiplus::GdiplusShutdown(token_);
  }
  PictureLibrary(const PictureLibrary&) = delete;
  PictureLibrary& operator=(const PictureLibrary&) = delete;
  bool Stands() const { return stands_; }

 private:
  ULONG_PTR token_ = 0;
  bool stands_ = false;
};

// Its popups stand beside it: boxes, dialogs, lists that are down.
BOOL CALLBACK AddPlace(HWND window, LPARAM found) {
  RECT place{};
  auto& whole = *reinterpret_cast<RECT*>(found);
  if (IsWindowVisible(window) && GetWindowRect(window, &place)) UnionRect(&whole, &whole, &place);
  return TRUE;
}

void TurnTab(HWND bar, int tab) {
  if (bar != nullptr) SendMessageW(bar, TCM_SETCURFOCUS, static_cast<WPARAM>(tab), 0);
}

}  // namespace

bool SaveSnapshot(const std::wstring& path) {
  RECT place{};
  EnumThreadWindows(GetCurrentThreadId(), AddPlace, reinterpret_cast<LPARAM>(&place));
  // Windows may hang over the screen's edges, where there is nothing to copy.
  const RECT whole{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  if (!IntersectRect(&place, &place, &whole)) return false;
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;

  const set32::win32::WindowDc screen(nullptr);
  const set32::win32::OwnedDc memory(CreateCompatibleDC(screen.Get()));
  const set32::win32::OwnedBitmap bitmap(CreateCompatibleBitmap(screen.Get(), width, height));
  {
    const set32::win32::Selected selected(memory.Get(), bitmap.Get());
    if (!BitBlt(memory.Get(), 0, 0, width, height, screen.Get(), place.left, place.top, SRCCOPY)) return false;
  }
  const PictureLibrary library;
  if (!library.Stands()) return false;
  Gdiplus::Bitmap picture(bitmap.Get(), nullptr);
  return picture.Save(path.c_str(), &pngWriter, nullptr) == Gdiplus::Ok;
}

void TurnToPage(HWND general, int page, int tab) {
  const HWND sheet = GetParent(general);
  if (page == 0 || GetDlgItem(sheet, set32::id_sheet::tabs) == nullptr) return;
  TurnTab(GetDlgItem(sheet, set32::id_sheet::tabs), page);
  for (HWND other = GetWindow(sheet, GW_CHILD); other != nullptr; other = GetWindow(other, GW_HWNDNEXT))
    TurnTab(GetDlgItem(other, set32::id148::viewTabs), tab);
}

void OpenAdvanced(HWND page) {
  SendMessageW(GetDlgItem(page, set32::id::advancedButton), BM_CLICK, 0, 0);
}

}  // namespace scan_desk
