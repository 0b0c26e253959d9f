// Mode, paper source and frames: what the combos offer and what a choice resets.
//
// Free functions over values; no window, no state, any thread.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "panel/rules/face_rules.h"
#include "set32/host_records.h"

namespace set32 {

struct ModeEntry {
  int stringId;
  std::uint32_t mode;     // mode::
  std::string_view icon;  // picture::
};

// The entries in the order of the mode combo, which is also the order of their positions.
std::span<const ModeEntry> AllModes();

// Whether an entry stands in the combo. JPEG wants the flatbed, black and white anything but film.
bool ModeStands(std::uint32_t mode, std::uint32_t source, bool jpegModesOn);

// Position in the combo, -1 for a code that is none. Entries that don't stand are always the last ones, so the
// positions hold without them.
int IndexOfMode(std::uint32_t mode);

// What a person's choice of a mode resets, and what a refresh with it does (mode_reset::).
unsigned ResetByChoice(std::uint32_t mode, const FaceRules& rules);
unsigned ResetByRefresh(std::uint32_t mode);

void ResetFields(ScanSettings& settings, unsigned reset);

struct SourceEntry {
  int stringId;
  std::uint32_t source;      // paper_source::, the entry's data
  std::uint32_t neededCaps;  // source_caps::, 0 for none
};

// The entries in the order of the source combo. Their codes aren't their positions: carry the code as data.
std::span<const SourceEntry> AllSources();
bool SourceStands(const SourceEntry& entry, std::uint32_t sourceCaps);

// The row that a change to a source selects on the sheet face; -1: the one that the store found.
int RowOfSource(std::uint32_t source);

// Frames: the image of a tab that is added behind `count` tabs (the strip has ten, later tabs share the last), and
// the tab that is current after the last one was removed, -1 when none is left.
int ImageOfNewTab(int count);
int CurrentAfterRemoval(int current, int countAfter);

}  // namespace set32
