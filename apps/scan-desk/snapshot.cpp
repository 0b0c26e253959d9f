#include "apps/scan-desk/snapshot.h"

#include <vector>

namespace scan_desk {

bool SaveSnapshot(HWND window, const std::wstring& path) {
  RECT place{};
  if (!GetWindowRect(window, &place)) return false;
  const LONG width = place.right - place.left;
  const LONG height = place.bottom - place.top;

  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 24;
  const std::size_t size = (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4 * static_cast<std::size_t>(height);
  std::vector<char> pixels(size);

  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
  SelectObject(memory, before);
  const int rows = GetDIBits(screen, bitmap, 0, static_cast<UINT>(height), pixels.data(), &info, DIB_RGB_COLORS);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  if (rows != height) return false;

  BITMAPFILEHEADER file{};
  file.bfType = 0x4D42;  // "BM"
  file.bfOffBits = sizeof file + sizeof info.bmiHeader;
  file.bfSize = static_cast<DWORD>(file.bfOffBits + size);
  const HANDLE out = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  if (out == INVALID_HANDLE_VALUE) return false;
  DWORD written = 0;
  const bool whole = WriteFile(out, &file, sizeof file, &written, nullptr) &&
                     WriteFile(out, &info.bmiHeader, sizeof info.bmiHeader, &written, nullptr) &&
                     WriteFile(out, pixels.data(), static_cast<DWORD>(size), &written, nullptr);
  CloseHandle(out);
  return whole;
}

}  // namespace scan_desk
