// Tips of the page's controls.
#include "panel/page.h"
#include "resources/ids.h"
#include "resources/strings.h"

namespace set32 {

namespace {

struct Tip {
  int controlId;
  int textId;
};

constexpr Tip tips[] = {
    {id::modeCombo, text::modeTip},
    {id::colourButton, text::colour},
    {id::colourRadio, text::colour},
    {id::grayButton, text::gray},
    {id::grayRadio, text::gray},
    {id::bwButton, text::blackWhite},
    {id::bwRadio, text::blackWhite},
    {id::resolutionCombo, text::resolutionTip},
    {id::resolutionEdit, text::resolutionTip},
    {id::widthPicture, text::widthTip},
    {id::widthEdit, text::widthTip},
    {id::heightPicture, text::heightTip},
    {id::heightEdit, text::heightTip},
    {id::unitCombo, text::unitTip},
    {id::sizeCombo, text::sizeTip},
    {id::advancedButton, text::advancedTip},
    {id::saveButton, text::saveTip},
    {id::deleteButton, text::deleteTip},
    {id::autoCropCheck, text::autoCropTip},
    {id::removeFrameButton, text::removeFrameTip},
};

}  // namespace

// A face without frames leaves their button out.
void CPanelPage::AddTooltips(Frames frames) {
  constexpr int delay = 1000;  // milliseconds
  Tooltip& tooltip = dialog_->Tips();
  tooltip.Activate();
  tooltip.SetDelay(delay);
  for (const Tip& tip : tips) {
    if (tip.controlId == id::removeFrameButton && frames == Frames::none) continue;
    tooltip.AddTool(tip.controlId, String(tip.textId));
  }
}

}  // namespace set32
