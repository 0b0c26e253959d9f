// The road that a scan takes on real windows: the source behind the system's manager, its pages, its windows, and a
// person's hands on them.
#pragma once

#include <windows.h>

#include <gmock/gmock.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <vector>

#include "apps/acquire/road/acquisition.h"
#include "apps/data-source/core/negotiation.h"
#include "apps/data-source/scanner/scanner.h"
#include "apps/data-source/window/dialog_window.h"
#include "apps/scan-desk/window/snapshot.h"
#include "resources/ids.h"
#include "set32/dib.h"

namespace scan_road {

namespace fs = std::filesystem;
using acquire::Acquisition;
using acquire::Bitmap;
using data_source::Area;

inline constexpr char sourceName[] = "set32 data source";

inline fs::path PagesFolder() {
  wchar_t folder[MAX_PATH] = L"";
  GetEnvironmentVariableW(L"SCANNER_PAGES", folder, MAX_PATH);
  return folder;
}

// Of a colour that changes across, another that changes down, and a third that does both.
inline void WritePage(const fs::path& file) {
  constexpr int width = 425, height = 550, dpi = 50;
  data_source::ScannedImage page = data_source::EmptyImage(data_source::PixelKind::colour24, width, height, dpi);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const int levels[] = {x * 255 / width, y * 255 / height, (x + y) % 256};
      for (std::size_t band = 0; band < 3; ++band)
        page.Row(y)[static_cast<std::size_t>(x) * 3 + band] = static_cast<std::uint8_t>(levels[band]);
    }
  }
  Bitmap bitmap(data_source::BitmapSize(page));
  data_source::WriteBitmap(page, bitmap);
  const std::vector<std::uint8_t> head = data_source::BitmapFileHead(page);
  std::ofstream stream(file, std::ios::binary);
  stream.write(reinterpret_cast<const char*>(head.data()), static_cast<std::streamsize>(head.size()));
  stream.write(reinterpret_cast<const char*>(bitmap.data()), static_cast<std::streamsize>(bitmap.size()));
}

inline set32::BitmapInfoHeader HeaderOf(const Bitmap& bitmap) {
  set32::BitmapInfoHeader header{};
  if (bitmap.size() >= sizeof header) std::memcpy(&header, bitmap.data(), sizeof header);
  return header;
}

inline BOOL CALLBACK TakePage(HWND child, LPARAM found) {
  if (GetDlgItem(child, set32::id::frameTabs) == nullptr) return TRUE;
  *reinterpret_cast<HWND*>(found) = child;
  return FALSE;
}

// The source's windows, and a person's hands on them: every act is a message that the application's loop gets.
class Person {
 public:
  explicit Person(Acquisition& application) : application_(application) {
    dialog_ = FindWindowW(data_source::dialogClass, nullptr);
    EnumChildWindows(dialog_, TakePage, reinterpret_cast<LPARAM>(&page_));
    preview_ = FindWindowExW(dialog_, nullptr, L"scan-desk-preview", nullptr);
  }

  HWND Dialog() const { return dialog_; }
  HWND Page() const { return page_; }
  HWND Control(int control) const { return GetDlgItem(page_, control); }

  void Press(HWND control, WPARAM key, int times = 1) const {
    SetFocus(control);
    for (int i = 0; i < times; ++i) {
      PostMessageW(control, WM_KEYDOWN, key, 1);
      PostMessageW(control, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
      application_.Wait(0);
    }
  }
  void Click(WORD button) const {
    PostMessageW(GetDlgItem(dialog_, button), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    PostMessageW(GetDlgItem(dialog_, button), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  }
  // From one place of the preview's window to another, in parts of a thousand of it.
  void Drag(int fromX, int fromY, int toX, int toY) const {
    RECT client{};
    GetClientRect(preview_, &client);
    application_.Wait(0);
    const auto at = [&](int x, int y) { return MAKELPARAM(client.right * x / 1000, client.bottom * y / 1000); };
    PostMessageW(preview_, WM_LBUTTONDOWN, MK_LBUTTON, at(fromX, fromY));
    PostMessageW(preview_, WM_MOUSEMOVE, MK_LBUTTON, at(toX, toY));
    PostMessageW(preview_, WM_LBUTTONUP, 0, at(toX, toY));
    application_.Wait(0);
  }
  // What stands in an edit beside another control.
  static int Number(HWND beside, int edit) {
    wchar_t text[16] = L"";
    GetWindowTextW(GetDlgItem(GetParent(beside), edit), text, 16);
    return static_cast<int>(std::wcstol(text, nullptr, 10));
  }
  // The upper slider of a tab of the Advanced page.
  HWND Slider(int tab) const {
    scan_desk::TurnToPage(page_, 1, tab);
    for (HWND page = GetWindow(GetParent(page_), GW_CHILD); page != nullptr; page = GetWindow(page, GW_HWNDNEXT)) {
      if (const HWND slider = GetDlgItem(page, set32::id148::firstSlider)) return slider;
    }
    return nullptr;
  }

 private:
  Acquisition& application_;
  HWND dialog_ = nullptr;
  HWND page_ = nullptr;
  HWND preview_ = nullptr;
};

class ScanRoad : public testing::Test {
 public:
  ~ScanRoad() override { DestroyWindow(parent_); }

 protected:
  ScanRoad() {
    fs::remove_all(PagesFolder());
    fs::create_directories(PagesFolder() / "feeder");
    WritePage(PagesFolder() / "page.bmp");
    parent_ = CreateWindowExW(0, L"Static", L"application", WS_OVERLAPPEDWINDOW, 0, 0, 300, 100, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
  }
  void Open(Acquisition& application) {
    ASSERT_TRUE(application.OpenManager(parent_)) << application.Trouble();
    ASSERT_TRUE(application.OpenSource(sourceName)) << application.Trouble();
  }

  // All images that are ready.
  static std::vector<Bitmap> Take(
      Acquisition& application, const std::function<void()>& before = [] {}) {
    std::vector<Bitmap> images;
    int waiting = 0;
    do {
      before();
      const std::optional<Bitmap> image = application.Transfer();
      EXPECT_TRUE(image) << application.Trouble();
      images.push_back(image.value_or(Bitmap()));
      waiting = application.EndTransfer();
    } while (waiting > 0);
    EXPECT_EQ(waiting, 0);
    return images;
  }

  // What the scanner behind the source makes of an area by itself.
  static Bitmap Expected(const set32::ScanSettings& settings, const Area& area) {
    const data_source::Scanner scanner(PagesFolder());
    const data_source::ScanResult scanned = scanner.Scan(PagesFolder() / "page.bmp", {settings, area, 128});
    Bitmap bitmap(data_source::BitmapSize(scanned.image));
    data_source::WriteBitmap(scanned.image, bitmap);
    return bitmap;
  }
  static Area LayoutOf(Acquisition& application) {
    twain::ImageLayout layout{};
    EXPECT_EQ(application.Call(twain::group::image, twain::data::imageLayout, twain::message::get, &layout),
              twain::result::success);
    const double left = data_source::FromFixed(layout.frame.left), top = data_source::FromFixed(layout.frame.top);
    return {left, top, data_source::FromFixed(layout.frame.right) - left,
            data_source::FromFixed(layout.frame.bottom) - top};
  }

  HWND parent_ = nullptr;
};

}  // namespace scan_road
