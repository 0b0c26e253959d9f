#include "apps/scan-desk/window/snapshot.h"

// The system's picture library names the types of a larger windows.h.
#include <objidl.h>

#include <commctrl.h>

#include <gdiplus.h>

#include "platform/win32/handle.h"

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

BOOL CALLBACK TakeTallestTabBar(HWND child, LPARAM found) {
  wchar_t name[32] = L"";
  GetClassNameW(child, name, 32);
  auto& tallest = *reinterpret_cast<HWND*>(found);
  RECT place{}, before{};
  GetClientRect(child, &place);
  if (tallest != nullptr) GetClientRect(tallest, &before);
  if (lstrcmpW(name, WC_TABCONTROLW) == 0 && place.bottom > before.bottom) tallest = child;
  return TRUE;
}

}  // namespace

bool SaveSnapshot(HWND window, const std::wstring& path) {
  RECT place{};
  if (!GetWindowRect(window, &place)) return false;
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

void TurnToPage(HWND within, int page) {
  HWND bar = nullptr;
  EnumChildWindows(within, TakeTallestTabBar, reinterpret_cast<LPARAM>(&bar));
  if (bar != nullptr) SendMessageW(bar, TCM_SETCURFOCUS, static_cast<WPARAM>(page), 0);
}

}  // namespace scan_desk
