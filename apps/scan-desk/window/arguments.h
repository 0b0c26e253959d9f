// The command line of scan-desk.
#pragma once

#include <optional>
#include <string>

#include "apps/scan-desk/window/panel_choices.h"

namespace scan_desk {

struct Arguments {
  std::wstring picture;   // empty for white paper
  std::wstring snapshot;  // empty for none
  PanelChoices choices;
  int page = 0;           // of the panel's sheet, on the snapshot
  int tab = 0;            // of the Advanced page
  bool drag = false;      // a slider is dragged and timed
  bool advanced = false;  // the inline face's dialog stands open
  bool once = false;
  bool help = false;  // the usage is wanted, and nothing else
};

extern const wchar_t usage[];

// As the system splits a command line, the program's name first. Empty for one that can't be followed; `trouble` then
// is a sentence that says why.
std::optional<Arguments> ReadArguments(const wchar_t* commandLine, std::wstring& trouble);

}  // namespace scan_desk
