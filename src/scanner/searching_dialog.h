// CSearchingDlg: says that a search is under way. Nothing is dispatched while the search blocks the thread, so the
// window keeps what it painted at the start.
#pragma once

#include <memory>
#include <string_view>

#include "platform/windows.h"

namespace set32 {

// Stands, centred over the page and painted, from construction to destruction. Where the window can't be made the
// search runs without it.
class CSearchingDlg : public DialogHandler {
 public:
  // An empty text leaves the dialog's own.
  CSearchingDlg(Windows& windows, WindowHandle page, std::string_view text);
  void Paint();

 private:
  std::unique_ptr<Dialog> window_;
};

}  // namespace set32
