// What an application and the data source have agreed on: the record of the coming scan, and beside it what no field
// of the record holds.
#pragma once

#include <cstdint>
#include <vector>

#include "apps/data-source/scanner/scanner.h"
#include "apps/data-source/twain_protocol.h"
#include "set32/host_records.h"

namespace data_source {

// Parts of the record that the application has set. The panel's first call lays the last used settings over the
// record, so these are laid over it once more.
struct LaidParts {
  bool mode = false, resolution = false, area = false, depth = false, brightness = false, contrast = false,
       gamma = false, units = false, quality = false, source = false;
  bool all = false;  // a stored record
};

struct Negotiation {
  Negotiation();

  set32::ScanSettings settings;
  LaidParts laid;
  std::vector<Area> frames;  // one image each; without any the record tells one area
  std::uint32_t threshold = 128;
  std::int16_t count = -1;  // images that the application wants, -1 for all
  std::uint16_t mechanism = twain::mechanism::native;
  std::uint16_t fileFormat = twain::file_format::bmp;
  bool indicators = true;
  bool autoFeed = true;
};

// 100 dpi, colour, a page of 8.5 by 11 inches.
set32::ScanSettings NewSettings();

// Where the record has its area. Its corner is told in pixels of the preview.
Area AreaOf(const set32::ScanSettings& settings);
void PutArea(set32::ScanSettings& settings, const Area& area);

// A resolution and its code.
void PutDpi(set32::ScanSettings& settings, int dpi);

// The application's values into the panel's record. `pageKeepsSource`: the page has a paper source of its own.
void LayOver(const Negotiation& from, bool pageKeepsSource, set32::ScanSettings& settings);

// Whether a stored record holds nothing that the device or the panel couldn't take.
bool IsScannable(const set32::ScanSettings& settings);

// Lengths in the unit that was agreed on, twain::unit.
double InUnits(double inches, const set32::ScanSettings& settings);
double FromUnits(double length, const set32::ScanSettings& settings);

}  // namespace data_source
