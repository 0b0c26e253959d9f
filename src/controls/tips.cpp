#include "controls/tips.h"

#include "resources/strings.h"

namespace set32 {

void AddTips(Dialog& dialog, System& system, std::span<const Tip> tips) {
  constexpr int delay = 1000;  // milliseconds
  Tooltip& tooltip = dialog.Tips();
  tooltip.Activate();
  tooltip.SetDelay(delay);
  for (const Tip& tip : tips) tooltip.AddTool(tip.controlId, LoadString(system, tip.textId));
}

}  // namespace set32
