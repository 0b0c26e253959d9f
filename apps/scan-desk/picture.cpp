#include "apps/scan-desk/picture.h"

#include <windows.h>

#include <cstring>
#include <vector>

#include "adjust/dib/dib_file.h"

namespace scan_desk {

namespace {

constexpr double metresAnInch = 0.0254;
constexpr int defaultDotsPerInch = 100;

struct Silent : set32::DibTrouble {
  void Say(const char*) override {}
};

// A bitmap file of 24 bits in memory, with room for the pixels.
std::string FileOf24Bits(LONG width, LONG height, LONG dotsAMetre) {
  const DWORD stride = (static_cast<DWORD>(width) * 3 + 3) / 4 * 4;
  BITMAPFILEHEADER file{};
  file.bfType = 0x4D42;  // "BM"
  file.bfOffBits = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER);
  file.bfSize = file.bfOffBits + stride * static_cast<DWORD>(height);
  BITMAPINFOHEADER info{};
  info.biSize = sizeof info;
  info.biWidth = width;
  info.biHeight = height;
  info.biPlanes = 1;
  info.biBitCount = 24;
  info.biSizeImage = stride * static_cast<DWORD>(height);
  info.biXPelsPerMeter = info.biYPelsPerMeter = dotsAMetre;
  std::string bytes(file.bfSize, '\xFF');
  std::memcpy(bytes.data(), &file, sizeof file);
  std::memcpy(bytes.data() + sizeof file, &info, sizeof info);
  return bytes;
}

// What the file says about its resolution; the system's own reader loses it.
LONG DotsAMetreOf(const std::wstring& path) {
  BITMAPINFOHEADER info{};
  DWORD read = 0;
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return 0;
  SetFilePointer(file, sizeof(BITMAPFILEHEADER), nullptr, FILE_BEGIN);
  const bool whole = ReadFile(file, &info, sizeof info, &read, nullptr) && read == sizeof info;
  CloseHandle(file);
  return whole && info.biSize >= sizeof info ? info.biXPelsPerMeter : 0;
}

}  // namespace

void Picture::MakeBlank() {
  constexpr LONG width = 850, height = 1169;
  Take(FileOf24Bits(width, height, static_cast<LONG>(defaultDotsPerInch / metresAnInch + 0.5)));
}

bool Picture::Open(const std::wstring& path, std::wstring& trouble) {
  const auto bitmap = static_cast<HBITMAP>(
      LoadImageW(nullptr, path.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION));
  BITMAP shape{};
  if (bitmap == nullptr || GetObjectW(bitmap, sizeof shape, &shape) == 0) {
    trouble = L"This is no bitmap that can be read:\n" + path;
    return false;
  }
  std::string bytes = FileOf24Bits(shape.bmWidth, shape.bmHeight, DotsAMetreOf(path));
  BITMAPINFO wanted{};
  std::memcpy(&wanted.bmiHeader, bytes.data() + sizeof(BITMAPFILEHEADER), sizeof wanted.bmiHeader);
  const HDC screen = GetDC(nullptr);
  const int rows =
      GetDIBits(screen, bitmap, 0, static_cast<UINT>(shape.bmHeight),
                bytes.data() + sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER), &wanted, DIB_RGB_COLORS);
  ReleaseDC(nullptr, screen);
  DeleteObject(bitmap);
  if (rows != shape.bmHeight || !Take(bytes)) {
    trouble = L"There is no room for the picture:\n" + path;
    return false;
  }
  return true;
}

bool Picture::Take(const std::string& bytes) {
  Silent silent;
  if (!set32::LoadBmp(dib_, {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, silent))
    return false;
  // Until the panel's first refresh the picture is shown as it was scanned.
  if (dib_.sourcePixels != nullptr && dib_.displayPixels != nullptr)
    std::memcpy(dib_.displayPixels, dib_.sourcePixels, dib_.imageSize);
  const double dots = dib_.header->pixelsPerMetreX * metresAnInch;
  dotsPerInch_ = dots >= 1 ? dots : defaultDotsPerInch;
  return true;
}

set32::Size Picture::Area() const {
  return dib_.header == nullptr ? set32::Size{} : set32::Size{dib_.header->width, dib_.header->height};
}

}  // namespace scan_desk
