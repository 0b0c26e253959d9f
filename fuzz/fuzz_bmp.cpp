// Any bytes as a bitmap file. What is read is refreshed with every stage, counted, and written; the written file is
// read again and gives the same picture.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <span>
#include <vector>

#include "adjust/histogram.h"
#include "adjust/own_image_library.h"
#include "adjust/preview.h"
#include "apps/stage/model/headless_windows.h"
#include "set32/dib_file.h"

namespace {

using namespace set32;

class Silence final : public DibTrouble {
 public:
  void Say(const char*) override { ++said; }
  int said = 0;
};

class Sink final : public DibFile {
 public:
  std::size_t Read(std::span<std::uint8_t>) override { return 0; }
  void Write(std::span<const std::uint8_t> more) override { bytes.insert(bytes.end(), more.begin(), more.end()); }
  std::uint64_t Remaining() override { return 0; }

  std::vector<std::uint8_t> bytes;
};

void RefreshInEveryMode(CDib& dib) {
  static HeadlessWindows windows;
  HostLink host(windows);
  OwnImageLibrary library;
  PreviewRenderer renderer(sheetPreview, library);
  for (const std::uint32_t scanMode : {mode::colour, mode::gray, mode::blackWhite}) {
    ScanSettings settings{};
    settings.mode = scanMode;
    settings.sharpness = 50;
    settings.hue = settings.saturation = 30;
    renderer.Refresh(settings, &dib, 128, host, true);
  }
  (void)ComputeHistogram(&dib);
}

bool SamePicture(const CDib& first, const CDib& second) {
  return first.imageSize == second.imageSize && first.colourCount == second.colourCount &&
         std::memcmp(first.header, second.header, sizeof(BitmapInfoHeader)) == 0 &&
         std::memcmp(first.sourcePixels, second.sourcePixels, first.imageSize) == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CDib dib;
  Silence trouble;
  if (!LoadBmp(dib, {data, size}, trouble)) {
    if (trouble.said != 1) std::abort();
    return 0;
  }
  if (dib.imageSize > MostClaimed(size)) std::abort();
  RefreshInEveryMode(dib);
  Sink sink;
  CDib again;
  if (!dib.Write(sink, trouble) || !LoadBmp(again, sink.bytes, trouble) || !SamePicture(dib, again)) std::abort();
  return 0;
}
