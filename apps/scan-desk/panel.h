// The panel as a data source uses it: the library loaded by name, the record that it edits, the place that it gets.
#pragma once

#include <windows.h>

#include <optional>

#include "dib.h"
#include "host_records.h"
#include "platform/geometry.h"
#include "ui_fix_setting.h"

namespace scan_desk {

class Panel {
 public:
  Panel();
  ~Panel();
  Panel(const Panel&) = delete;
  Panel& operator=(const Panel&) = delete;

  // Loads the library by its name. Result: whether it and its function were found.
  bool Load();
  // Forgets the library when the panel's parent has ended: on the sheet face a panel stands again only in a library
  // loaded anew.
  void Unload();
  bool IsLoaded() const { return fixSetting_ != nullptr; }

  // Opens the panel as large as `parent`, or binds a standing one anew and moves it. Result: whether a page stands.
  bool Open(HWND parent, HWND host, set32::CDib& preview, set32::Size size);
  HWND Page() const { return page_; }

  set32::ScanSettings& Settings() { return settings_; }

  // Reports a frame, for one of frame_report::, with what was done to it. The frame is in inches and in pixels of the
  // preview.
  void Report(WPARAM kind, set32::Point corner, double width, double height,
              std::optional<set32::FrameCommand> command = {});
  // Asks the person for a scanner's address.
  void AskAddress();

  // Pixels that the panel needs at the least, by the size of the font that its dialogs use.
  static set32::Size LeastSize();

 private:
  HMODULE library_ = nullptr;
  set32::UiFixSettingFunction fixSetting_ = nullptr;
  set32::ScanSettings settings_{};
  HWND page_ = nullptr;
};

}  // namespace scan_desk
