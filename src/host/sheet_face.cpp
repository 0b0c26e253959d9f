#include "host/sheet_face.h"

#include <algorithm>

#include "host/binding_hold.h"
#include "platform/guarded.h"

namespace set32 {

WindowHandle SheetFace::FixSetting(const FixSettingArguments& arguments) {
  return thePanelSheet_ == nullptr ? Open(arguments) : OpenAgain(arguments);
}

WindowHandle SheetFace::Open(const FixSettingArguments& arguments) {
  if (!state_.platform.windows.IsWindow(arguments.parentWindow)) return 0;
  const OnFailure drop([this] { thePanelSheet_.reset(); });
  thePanelSheet_ = std::make_unique<CAdvanceMainSheet>(state_, "Test", 0);
  CAdvanceMainSheet& sheet = *thePanelSheet_;
  CSettingBoxPage& page = sheet.GeneralPage();
  const BindingHold binding(page, *arguments.settings);
  if (arguments.caps != nullptr) page.SetCaps(*arguments.caps);
  page.Bind(arguments.limits, *arguments.settings, arguments.hostWindow, arguments.preview);
  state_.notifySize = false;
  if (!sheet.Create(arguments.parentWindow)) {
    thePanelSheet_.reset();
    state_.notifySize = true;
    return 0;
  }
  sheet.Show();
  sheet.Move(arguments.Place());
  sheet.FitSheet();
  if (page.Window() != 0) page.RefreshPanel();
  for (int i = 0; i < CAdvanceMainSheet::pageCount; ++i) sheet.Activate(i);
  sheet.Activate(0);
  state_.notifySize = true;
  return page.Window();
}

// The panel stands: it moves to where the host wants it and takes the new pointers. Once its window is gone with the
// host's, there is nothing left to open.
WindowHandle SheetFace::OpenAgain(const FixSettingArguments& arguments) {
  CAdvanceMainSheet& sheet = *thePanelSheet_;
  CSettingBoxPage& page = sheet.GeneralPage();
  if (!sheet.HasWindow() || page.Window() == 0) return 0;
  const BindingHold binding(page, *arguments.settings);
  Rect place = arguments.Place();
  place.left = std::max(place.left, 0);
  place.top = std::max(place.top, 0);
  sheet.Move(place);
  sheet.FitSheet();
  sheet.Show();
  sheet.Activate(sheet.ActivePage());
  page.Bind(arguments.limits, *arguments.settings, arguments.hostWindow, arguments.preview);
  page.RefreshPanel();
  return page.Window();
}

}  // namespace set32
