// A width or height that was typed on the inline face: the size is the person's own from then on, whatever was typed.
#include "panel/inline/inline_setting_page.h"

namespace set32 {

void CInlineSettingPage::LeaveSizeEdit(Dimension dimension) {
  TakeUserSize();
  const TypedSize typed = ReadTypedSize(dimension);
  if (IsGood(typed, dimension)) {
    LengthOf(*settings_, dimension) = typed.inches;
    ClearAutoCrop();
  } else {
    RefuseTypedSize(dimension);
  }
  CustomLengthOf(*settings_, dimension) = LengthOf(*settings_, dimension);
  host_.CustomSizeTaken(*settings_);
  host_.AreaChanged(*settings_);
  host_.AutoCropChanged(auto_crop_change::checkBox, *settings_);
}

}  // namespace set32
