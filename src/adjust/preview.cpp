#include "adjust/preview.h"

#include <numeric>
#include <utility>

#include "adjust/adjustment_rules.h"
#include "adjust/picture_view.h"
#include "adjust/pixel_roads.h"
#include "adjust/tone_tables.h"

namespace set32 {

namespace {

constexpr std::int32_t libraryScale = 10;

bool IsGray(std::uint32_t scanMode) {
  return scanMode == mode::gray || scanMode == mode::jpegGray;
}

// Contrast means nothing in black and white; the preview keeps its own.
void BuildTablesForMode(CDib& preview, std::uint32_t scanMode) {
  const std::int32_t kept = preview.contrast;
  if (scanMode == mode::blackWhite) preview.contrast = 0;
  BuildToneTables(preview);
  preview.contrast = kept;
}

// A level above the limit is white, any other black.
ToneTable BlackWhiteTable(std::int64_t limit) {
  ToneTable table;
  for (int level = 0; level < 256; ++level) table[static_cast<std::size_t>(level)] = level > limit ? 255 : 0;
  return table;
}

ToneTable UnchangedTable() {
  ToneTable table;
  std::iota(table.begin(), table.end(), std::uint8_t{0});
  return table;
}

enum class ReduceFrom { source, display };

void Reduce(const PictureView& view, ReduceFrom from, const std::uint8_t* table, const PixelRoad& road) {
  for (int row = 0; row < view.height; ++row) {
    const std::uint8_t* pixels = from == ReduceFrom::source ? view.SourceRow(row) : view.DisplayRow(row);
    road.levels(pixels, view.DisplayRow(row), static_cast<std::size_t>(view.width), table);
  }
}

}  // namespace

void PreviewRenderer::Refresh(ScanSettings& settings, CDib* preview, std::uint32_t bwThreshold, HostLink& host,
                              bool notifySize) {
  if (!preview) return;
  Render(settings, *preview, bwThreshold);
  if (face_.tellsArea) host.AreaChanged(settings, notifySize ? 0 : 1);
  host.AskRepaint();
}

void PreviewRenderer::Render(const ScanSettings& settings, CDib& preview, std::uint32_t bwThreshold) {
  BuildTablesForMode(preview, settings.mode);
  const auto view = ViewOf(preview);
  if (!view) return;

  const bool blackWhite = settings.mode == mode::blackWhite;
  const bool reduced = blackWhite || IsGray(settings.mode);
  const std::int64_t limit = std::int64_t{bwThreshold} - (face_.brightnessShiftsLimit ? preview.brightness : 0);
  const Filters filters = FiltersOf(settings);
  const bool filtered = NeedsLibrary(settings.mode, filters);

  // Nobody sees the toned colours: toning and reduction are one table then, and one pass.
  if (reduced && !filtered && preview.kind != dib_kind::keepsToned) {
    if (blackWhite) {
      Reduce(*view, ReduceFrom::source, BlackWhiteTable(limit).data(), road_);
    } else {
      Reduce(*view, ReduceFrom::source, preview.toneGreen, road_);
    }
    return;
  }

  // Filters tone the rows on their way, unless somebody wants to see the toned picture or it is to stay untoned.
  const PixelTables tables(TablesOf(preview));
  const bool tonedByFilters = filtered && !blackWhite && preview.kind != dib_kind::keepsToned;
  if (!tonedByFilters) {
    const auto [width, height] = preview.GetDimensions();
    const ToneUse use = blackWhite ? ToneUse::copyUnchanged : ToneUse::useTables;
    ApplyToneTables(preview, {0, 0, width, height}, use, road_);
  }
  if (filtered) RunLibrary(settings.mode, filters, *view, tonedByFilters ? &tables : nullptr);
  if (reduced) {
    Reduce(*view, ReduceFrom::display, (blackWhite ? BlackWhiteTable(limit) : UnchangedTable()).data(), road_);
  }
}

PreviewRenderer::Filters PreviewRenderer::FiltersOf(const ScanSettings& settings) {
  // A colour out of range would turn the picture into another one; a sharpness only means too much of it.
  return {.sharpness = sharpnessRange.Held(settings.sharpness),
          .saturation = saturationRange.HeldOrZero(settings.saturation),
          .hue = hueRange.HeldOrZero(settings.hue)};
}

bool PreviewRenderer::NeedsLibrary(std::uint32_t scanMode, const Filters& filters) const {
  if (!face_.libraryStage) return false;
  const bool sharpness = filters.sharpness != 0 || last_.sharpness != 0;
  const bool colours = filters.saturation != 0 || filters.hue != 0 || last_.saturation != 0 || last_.hue != 0;
  if (IsColourMode(scanMode)) return sharpness || colours;
  return sharpness && (IsGray(scanMode) || scanMode == mode::blackWhite);
}

// With tables to go through the display pixels hold nothing yet.
void PreviewRenderer::RunLibrary(std::uint32_t scanMode, const Filters& filters, const PictureView& view,
                                 const PixelTables* toning) {
  const Filters last = std::exchange(last_, filters);
  const auto bitmap = library_.Create(view.width, view.height, 24);
  if (!bitmap) {
    if (toning) ToneRows(view, *toning, road_);
    return;
  }
  if (toning) {
    bitmap->TakeOverToned(view, *toning);
  } else {
    bitmap->TakeOver(view);
  }
  if (filters.sharpness != 0 || last.sharpness != 0) bitmap->Sharpen(filters.sharpness * libraryScale);
  if (IsColourMode(scanMode)) {
    if (filters.saturation != 0 || last.saturation != 0) bitmap->ChangeSaturation(filters.saturation * libraryScale);
    if (filters.hue != 0 || last.hue != 0) bitmap->TurnHue(filters.hue);
  }
  bitmap->GiveBack();
}

}  // namespace set32
