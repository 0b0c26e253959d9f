#include "apps/scan-desk/window/picture.h"

#include <utility>

#include "apps/scan-desk/window/picture_file.h"

namespace scan_desk {

namespace {

constexpr double metresAnInch = 0.0254;
constexpr int defaultDotsPerInch = 100;

}  // namespace

bool Picture::MakeBlank() {
  constexpr int width = 850, height = 1169;
  set32::CDib blank;
  if (!MakeTrueColour(blank, width, height, defaultDotsPerInch, defaultDotsPerInch)) return false;
  TakeOver(blank);
  return true;
}

bool Picture::Open(const std::wstring& path, std::wstring& trouble) {
  set32::CDib read;
  if (!ReadPicture(path, read, trouble)) return false;
  TakeOver(read);
  return true;
}

// Header and pixels change their owner; the adjustment values stay.
void Picture::TakeOver(set32::CDib& from) {
  dib_.Empty();
  dib_.header = std::exchange(from.header, nullptr);
  dib_.headerOwner = std::exchange(from.headerOwner, set32::header_owner::nobody);
  dib_.colourTable = std::exchange(from.colourTable, nullptr);
  dib_.sourcePixels = std::exchange(from.sourcePixels, nullptr);
  dib_.displayPixels = std::exchange(from.displayPixels, nullptr);
  dib_.savedPixels = std::exchange(from.savedPixels, nullptr);
  dib_.pixelOwner = std::exchange(from.pixelOwner, 0);
  dib_.imageSize = std::exchange(from.imageSize, 0);
  dib_.stride = std::exchange(from.stride, 0);
}

set32::Size Picture::Area() const {
  return dib_.header == nullptr ? set32::Size{} : set32::Size{dib_.header->width, dib_.header->height};
}

double Picture::DotsPerInch() const {
  const double dots = dib_.header == nullptr ? 0 : dib_.header->pixelsPerMetreX * metresAnInch;
  return dots >= 1 ? dots : defaultDotsPerInch;
}

}  // namespace scan_desk
