#include "host/module.h"

#include <algorithm>
#include <string>

#include "boundary/module_state.h"
#include "host/main_sheet.h"
#include "host/start_up.h"
#include "profile/options.h"

namespace set32 {

namespace {

// A window system's places are 16 bits wide; within them no later sum passes the ints.
Rect ToRect(const PanelRect& place) {
  const auto held = [](std::int32_t edge) { return std::clamp(edge, -0x8000, 0x7FFF); };
  return {held(place.left), held(place.top), held(place.right), held(place.bottom)};
}

// The face: everything but 0 is the sheet.
bool IsSheetFace(ModuleState& state) {
  return !RuntimeOptions(state.platform.profiles, state.platform.system, state.runtimeIniPath).IsInlineFace();
}

}  // namespace

struct Module::Inside {
  explicit Inside(Platform& platform) : state(platform) {}

  ModuleState state;
  bool openFlag = false;
  std::unique_ptr<CAdvanceMainSheet> thePanelSheet;  // set once it has a window

  WindowHandle OpenSheet(const FixSettingArguments& arguments);
  WindowHandle ReopenSheet(const FixSettingArguments& arguments);
};

Module::Module(Platform& platform) : inside_(std::make_unique<Inside>(platform)) {
  StartUp(inside_->state);
}

Module::~Module() = default;

WindowHandle Module::FixSetting(const FixSettingArguments& arguments) {
  if (arguments.parentWindow == 0 || arguments.hostWindow == 0 || arguments.settings == nullptr ||
      arguments.panelRect == nullptr) {
    return 0;
  }
  inside_->state.bwThreshold = arguments.bwThreshold;
  if (!IsSheetFace(inside_->state)) return 0;  // the inline face comes later
  return inside_->thePanelSheet == nullptr ? inside_->OpenSheet(arguments) : inside_->ReopenSheet(arguments);
}

bool Module::IsSettingOpen() const {
  return inside_->openFlag;
}

WindowHandle Module::Inside::OpenSheet(const FixSettingArguments& arguments) {
  if (!state.platform.windows.IsWindow(arguments.parentWindow)) return 0;
  thePanelSheet = std::make_unique<CAdvanceMainSheet>(state, "Test", 0);
  CAdvanceMainSheet& sheet = *thePanelSheet;
  CSettingBoxPage& page = sheet.GeneralPage();
  if (arguments.caps != nullptr) page.SetCaps(*arguments.caps);
  page.Bind(arguments.limits, *arguments.settings, arguments.hostWindow, arguments.preview);
  state.notifySize = false;
  if (!sheet.Create(arguments.parentWindow)) {
    thePanelSheet.reset();
    state.notifySize = true;
    return 0;
  }
  sheet.Show();
  sheet.Move(ToRect(*arguments.panelRect));
  sheet.FitSheet();
  if (page.Window() != 0) page.RefreshPanel();
  for (int i = 0; i < CAdvanceMainSheet::pageCount; ++i) sheet.Activate(i);
  sheet.Activate(0);
  state.notifySize = true;
  return page.Window();
}

// The panel stands: it moves to where the host wants it and takes the new pointers. Once its window is gone with the
// host's, there is nothing left to open.
WindowHandle Module::Inside::ReopenSheet(const FixSettingArguments& arguments) {
  CAdvanceMainSheet& sheet = *thePanelSheet;
  CSettingBoxPage& page = sheet.GeneralPage();
  if (!sheet.HasWindow() || page.Window() == 0) return 0;
  Rect place = ToRect(*arguments.panelRect);
  if (place.left < 0) place.left = 0;
  if (place.top < 0) place.top = 0;
  sheet.Move(place);
  sheet.FitSheet();
  sheet.Show();
  sheet.Activate(sheet.ActivePage());
  page.Bind(arguments.limits, *arguments.settings, arguments.hostWindow, arguments.preview);
  page.RefreshPanel();
  return page.Window();
}

}  // namespace set32
