#include "controls/thread_message.h"

namespace set32 {

namespace {
constexpr std::size_t longestText = 255;
}

void ShowMessageOnThread(ModuleState& state, std::string_view text) {
  Platform& platform = state.platform;
  platform.boxes.ShowOnThread(state.boxOwner, CutAtCharacter(platform.system, text, longestText), state.productName,
                              box_style::ok | box_style::stop);
}

}  // namespace set32
