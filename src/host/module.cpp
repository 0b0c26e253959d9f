#include "host/module.h"

#include <optional>
#include <utility>

#include "boundary/module_state.h"
#include "host/inline_face.h"
#include "host/sheet_face.h"
#include "host/start_up.h"
#include "platform/guarded.h"
#include "profile/options.h"

namespace set32 {

struct Module::Inside {
  explicit Inside(Platform& platform) : state(platform), inlined(std::in_place, state), sheet(state) {}

  ModuleState state;
  std::optional<InlineFace> inlined;
  SheetFace sheet;
  std::uint32_t callsThrough = 0;
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
  ModuleState& state = inside_->state;
  // What a call inside a message of this one has brought about stays.
  PanelState before = state;
  const std::uint32_t callsBefore = inside_->callsThrough;
  const OnFailure putBack([&] {
    if (inside_->callsThrough == callsBefore) static_cast<PanelState&>(state) = std::move(before);
  });
  state.bwThreshold = arguments.bwThreshold;
  const RuntimeOptions options(state.platform.profiles, state.platform.system, state.runtimeIniPath);
  const WindowHandle page =
      options.IsInlineFace() ? inside_->inlined->FixSetting(arguments) : inside_->sheet.FixSetting(arguments);
  ++inside_->callsThrough;
  return page;
}

bool Module::IsSettingOpen() const {
  return inside_->inlined->IsOpen();
}

void Module::ForgetWindows() {
  inside_->inlined.emplace(inside_->state);
  inside_->sheet.ForgetWindows();
}

}  // namespace set32
