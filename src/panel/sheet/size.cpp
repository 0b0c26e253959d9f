// A width or height that was typed on the sheet face.
#include "panel/sheet/setting_box_page.h"

namespace set32 {

namespace {

std::int32_t FrameStartOf(const ScanSettings& settings, Dimension dimension) {
  return dimension == Dimension::width ? settings.frameLeft : settings.frameTop;
}

}  // namespace

bool CSettingBoxPage::PassesPreviewEdge(double inches, Dimension dimension) const {
  const std::optional<PreviewFacts> facts = FactsOf(preview_);
  return facts && !FitsPreview(inches, FrameStartOf(*settings_, dimension), dimension, *facts);
}

void CSettingBoxPage::LeaveSizeEdit(Dimension dimension) {
  // The width is compared with what stood before, the height with what was remembered.
  const double before = dimension == Dimension::width ? settings_->width : CustomLengthOf(*settings_, dimension);
  TypedSize typed = ReadTypedSize(dimension);
  if (PassesPreviewEdge(typed.inches, dimension)) {
    ShowLength(dimension, before);
    typed = {ReadTypedSize(dimension).text, before};
  }
  if (IsGood(typed, dimension)) {
    LengthOf(*settings_, dimension) = typed.inches;
    ClearAutoCrop();
    host_.AutoCropChanged(auto_crop_change::taken, *settings_);
  } else {
    RefuseTypedSize(dimension);
  }
  CustomLengthOf(*settings_, dimension) = LengthOf(*settings_, dimension);
  if (CustomLengthOf(*settings_, dimension) != before) {
    TakeUserSize();
    AutoSaveConfig();
  }
  host_.AreaChanged(*settings_);
  host_.AreaChanged(*settings_);
}

}  // namespace set32
