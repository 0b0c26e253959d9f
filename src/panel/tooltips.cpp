// Tips of the controls that both faces have.
#include "controls/tips.h"
#include "panel/page.h"
#include "resources/ids.h"

namespace set32 {

namespace {

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
};

}  // namespace

void CPanelPage::AddTooltips() {
  AddTips(*dialog_, state_.platform.system, tips);
}

}  // namespace set32
