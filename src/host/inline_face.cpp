#include "host/inline_face.h"

#include <utility>

#include "resources/dialogs.h"
#include "resources/ids.h"

namespace set32 {

WindowHandle InlineFace::FixSetting(const FixSettingArguments& arguments) {
  if (arguments.caps != nullptr) thePanelPage_.SetCaps(*arguments.caps);
  return thePanelPage_.Window() != 0 ? OpenAgain(arguments) : Open(arguments);
}

WindowHandle InlineFace::Open(const FixSettingArguments& arguments) {
  if (!state_.platform.windows.IsWindow(arguments.parentWindow)) return 0;
  state_.jpegModesOn = arguments.jpegModes;
  thePanelPage_.Bind(arguments.limits, *arguments.settings, arguments.hostWindow, arguments.preview);
  state_.hostParent = arguments.parentWindow;
  auto made = state_.platform.windows.Create(*FindDialog(dialog::general), arguments.parentWindow, thePanelPage_);
  if (made == nullptr) {
    // Gone inside its start; the host may have opened another one there.
    if (thePanelPage_.Window() == 0) thePanelPage_.Unbind();
    return thePanelPage_.Window();
  }
  window_ = std::move(made);
  window_->Move(arguments.Place());
  if (thePanelPage_.Window() != 0) thePanelPage_.FinishOpening();
  state_.outputBits = arguments.outputBits;
  return thePanelPage_.Window();
}

// The page stands where it stood and takes the new pointers, without a word of sizes.
WindowHandle InlineFace::OpenAgain(const FixSettingArguments& arguments) {
  thePanelPage_.Bind(arguments.limits, *arguments.settings, arguments.hostWindow, arguments.preview);
  state_.notifySize = false;
  thePanelPage_.RefreshPanel();
  state_.notifySize = true;
  return thePanelPage_.Window();
}

}  // namespace set32
