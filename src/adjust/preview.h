// RefreshPreview: the display pixels of the host's preview from its source pixels, after every change of a value.
//
// Always from the untouched source, so adjustments never pile up. Both faces run the same steps; what differs is
// data. Host's thread.
#pragma once

#include <cstdint>

#include "adjust/image_library.h"
#include "boundary/host_link.h"
#include "set32/dib.h"
#include "set32/host_records.h"

namespace set32 {

// How a face's preview differs.
struct PreviewFace {
  bool libraryStage;           // sharpness, saturation and hue are seen
  bool brightnessShiftsLimit;  // the limit of black and white is the threshold less the preview's brightness
  bool tellsArea;              // the host hears the size before the repaint
};

inline constexpr PreviewFace sheetPreview{.libraryStage = true, .brightnessShiftsLimit = true, .tellsArea = false};
inline constexpr PreviewFace inlinePreview{.libraryStage = false, .brightnessShiftsLimit = false, .tellsArea = true};

class PreviewRenderer {
 public:
  // The library is used by a face with a library stage; it and the road outlive the renderer.
  PreviewRenderer(const PreviewFace& face, ImageLibrary& library, const PixelRoad& road = BestRoad())
      : face_(face), library_(library), road_(road) {}

  // A null preview: nothing at all, and the host hears nothing. A preview that isn't certain (ViewOf) keeps its
  // pixels, and the host is told all the same.
  void Refresh(ScanSettings& settings, CDib* preview, std::uint32_t bwThreshold, HostLink& host, bool notifySize);
  // The same pixels, and nobody is told: for a scan that is adjusted as its preview was.
  void Render(const ScanSettings& settings, CDib& preview, std::uint32_t bwThreshold);

 private:
  // The values of one refresh, or the last ones that the library stage used.
  struct Filters {
    std::int32_t sharpness = 0;
    std::int32_t saturation = 0;
    std::int32_t hue = 0;
  };

  static Filters FiltersOf(const ScanSettings& settings);
  bool NeedsLibrary(std::uint32_t scanMode, const Filters& filters) const;
  void RunLibrary(std::uint32_t scanMode, const Filters& filters, const PictureView& view, const PixelTables* toning);

  PreviewFace face_;
  ImageLibrary& library_;
  const PixelRoad& road_;
  // A value that went back to 0 takes effect by one more run of the stage.
  Filters last_;
};

}  // namespace set32
