#include "host/inline_face.h"

#include <utility>

#include "host/binding_hold.h"
#include "platform/guarded.h"
#include "resources/dialogs.h"
#include "resources/ids.h"

namespace set32 {

WindowHandle InlineFace::FixSetting(const FixSettingArguments& arguments) {
  const BindingHold binding(thePanelPage_, *arguments.settings);
  if (arguments.caps != nullptr) thePanelPage_.SetCaps(*arguments.caps);
  return thePanelPage_.Window() != 0 ? OpenAgain(arguments) : Open(arguments);
}

WindowHandle InlineFace::Open(const FixSettingArguments& arguments) {
  if (!state_.platform.windows.IsWindow(arguments.parentWindow)) return 0;
  std::unique_ptr<Dialog> made;
  const OnFailure giveUp([&] {
    if (made == nullptr && thePanelPage_.HasDialog()) return;  // another one, which the host opened inside the start
    made.reset();
    thePanelPage_.LeaveWindow();
  });
  state_.jpegModesOn = arguments.jpegModes;
  thePanelPage_.Bind(arguments.limits, *arguments.settings, arguments.hostWindow, arguments.preview);
  state_.hostParent = arguments.parentWindow;
  made = state_.platform.windows.Create(*FindDialog(dialog::general), arguments.parentWindow, thePanelPage_);
  if (made == nullptr) {
    // Gone inside its start; the host may have opened another one there.
    if (thePanelPage_.Window() == 0) thePanelPage_.Unbind();
    return thePanelPage_.Window();
  }
  made->Move(arguments.Place());
  if (thePanelPage_.Window() != 0) thePanelPage_.FinishOpening();
  window_ = std::move(made);
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
