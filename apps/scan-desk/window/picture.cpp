#include "apps/scan-desk/window/picture.h"

#include <cmath>

#include "adjust/dib/dib_file.h"
#include "apps/scan-desk/pixels/true_colour.h"
#include "apps/scan-desk/window/file_on_disk.h"
#include "apps/scan-desk/window/system_text.h"

namespace scan_desk {

namespace {

constexpr double metresAnInch = 0.0254;
constexpr int defaultDotsPerInch = 100;

// What a failed reading said; the sentence for the person follows from where it failed.
struct Silent : set32::DibTrouble {
  void Say(const char*) override { spoke = true; }
  bool spoke = false;
};

}  // namespace

bool Picture::MakeBlank() {
  set32::BitmapInfoHeader header{};
  header.headerSize = sizeof header;
  header.width = 850;
  header.height = 1169;
  header.planes = 1;
  header.bitCount = 24;
  header.pixelsPerMetreX = header.pixelsPerMetreY = static_cast<int>(std::lround(defaultDotsPerInch / metresAnInch));
  set32::CDib blank;
  blank.header = &header;  // which the object doesn't own
  blank.ComputeMetrics();
  std::wstring trouble;
  return blank.AllocatePixels(false) && Take(blank, trouble);
}

bool Picture::Open(const std::wstring& path, std::wstring& trouble) {
  FileOnDisk file(path);
  set32::CDib held;
  Silent said;
  const bool whole = file.Error() == ERROR_SUCCESS && held.Read(file, said);
  if (whole && Take(held, trouble)) return true;
  if (file.Error() != ERROR_SUCCESS) {
    trouble = ErrorText(file.Error());
  } else if (!whole) {
    trouble = said.spoke ? L"This is no bitmap file, or a damaged one." : ErrorText(ERROR_NOT_ENOUGH_MEMORY);
  }
  trouble += L"\n" + path;
  return false;
}

bool Picture::Take(const set32::CDib& held, std::wstring& trouble) {
  set32::CDib made;
  switch (MakeTrueColour(held, made)) {
    case TrueColour::made:
      HandOver(made, dib_);
      return true;
    case TrueColour::unknownKind:
      trouble = L"This bitmap is packed in a way that isn't known here, or damaged.";
      return false;
    case TrueColour::noRoom:
      break;
  }
  trouble = ErrorText(ERROR_NOT_ENOUGH_MEMORY);
  return false;
}

set32::Size Picture::Area() const {
  return dib_.header == nullptr ? set32::Size{} : set32::Size{dib_.header->width, dib_.header->height};
}

double Picture::DotsPerInch() const {
  const double dots = dib_.header == nullptr ? 0 : dib_.header->pixelsPerMetreX * metresAnInch;
  return dots >= 1 ? dots : defaultDotsPerInch;
}

}  // namespace scan_desk
