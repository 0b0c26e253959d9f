// The panel as a data source uses it: the record that it edits, the place that it gets, the reports that it takes.
#pragma once

#include <windows.h>

#include <string>

#include "apps/scan-desk/window/installation.h"
#include "apps/scan-desk/window/panel_choices.h"
#include "apps/scan-desk/window/panel_library.h"
#include "platform/geometry.h"
#include "set32/dib.h"
#include "set32/host_records.h"
#include "set32/new_settings.h"

namespace scan_desk {

// What the panel is told of the device.
struct PanelDevice {
  PanelDevice();  // one that can do all there is

  set32::DeviceLimits limits{7, 0x1FFE, 4800, 75};  // each resolution up to the highest
  set32::DeviceCaps caps{};
  std::uint32_t threshold = 128;  // of black and white
};

class Panel {
 public:
  // `library` is a path, or a name that lies beside this module; it is loaded when the panel is opened. `prefix` is
  // the installation's.
  Panel(const std::wstring& library, const PanelChoices& choices, const PanelDevice& device = {},
        const std::wstring& prefix = {});
  Panel(const Panel&) = delete;
  Panel& operator=(const Panel&) = delete;

  const PanelChoices& Choices() const { return choices_; }
  // Only while no page stands.
  void Choose(const PanelChoices& choices) { choices_ = choices; }

  // Opens the panel as large as `parent`, or binds a standing one anew and moves it. On false no page stands and
  // `trouble` is a sentence that says why.
  bool Open(HWND parent, HWND host, set32::CDib& preview, set32::Size size, std::wstring& trouble);
  // Ends the panel, or what a failed opening left of it. The inline page ends by a close message and stands again
  // when it is opened; the sheet ends with its parent, which is null then, and stands again only in a library loaded
  // anew.
  void Close(HWND& parent);

  // The window that takes the host's messages; null while no panel stands.
  HWND Page() const { return page_; }
  bool IsInline() const { return choices_.face == Face::inlinePage; }
  set32::ScanSettings& Settings() { return settings_; }
  const set32::ScanSettings& Settings() const { return settings_; }

  // Asks the person for a scanner's address.
  void AskAddress();

  // Pixels that the panel needs at the least, by the size of the font that its dialogs use.
  static set32::Size LeastSize();

 private:
  std::wstring file_;
  PanelChoices choices_;
  PanelDevice device_;
  Installation installation_;
  PanelLibrary library_;
  set32::ScanSettings settings_ = set32::NewSettings();
  HWND page_ = nullptr;  // ends with its parent
};

}  // namespace scan_desk
