// The advanced dialog agrees with the record.
#include "adjust/gamma_setting.h"
#include "controls/number_text.h"
#include "resources/ids.h"
#include "resources/pictures.h"

namespace set32 {

namespace {

// What the long dialog has and the short one hasn't.
constexpr int jpegControls[] = {id103::closeLong,   id103::jpegGroup,     id103::qualitySlider, id103::qualityEdit,
                                id103::qualitySpin, id103::smallestLabel, id103::bestLabel};

}  // namespace

void CGammaSetting::LoadAdjustmentDefaults() {
  set32::LoadAdjustmentDefaults(panel_.ReadAdjustmentDefaults(), Record(), panel_.Preview());
}

void CGammaSetting::RefreshAdjustments() {
  if (!HasWindow()) return;
  TakeDefaultOrCustom();
  CopyToPreview();
  ShowValues();
  ShowGammaGroup();
  ShowMode();
  ShowOptions();
  ShowQuality();
  Repaint();
}

void CGammaSetting::TakeDefaultOrCustom() {
  const bool custom = Record().useDefaults != 1;
  ShowCustom(custom);
  if (custom) {
    Get<Edit>(id103::brightnessEdit).SetEnabled(true);
    Get<ScrollBar>(id103::brightnessBar).SetEnabled(true);
  }
  if (RefreshClearsDescreen(Record())) ForbidDescreen();
  if (!custom) LoadAdjustmentDefaults();
}

void CGammaSetting::ForbidDescreen() {
  Record().descreen = 0;
  CheckButton& check = Get<CheckButton>(id103::descreenCheck);
  check.SetEnabled(false);
  check.SetChecked(false);
  TellSettings();
}

void CGammaSetting::CopyToPreview() {
  if (CDib* preview = panel_.Preview()) CopyAdjustmentsToPreview(Record(), *preview);
}

void CGammaSetting::ShowCustom(bool custom) {
  Get<CheckButton>(id103::customRadio).SetChecked(custom);
  Get<CheckButton>(id103::defaultsRadio).SetChecked(!custom);
}

void CGammaSetting::ShowValues() {
  for (const NumberRow& row : numberRows) ShowNumber(row);
  for (const GammaRow& row : gammaRows) ShowGamma(row);
}

void CGammaSetting::ShowNumber(const NumberRow& row) {
  const std::int32_t value = Record().*row.field;
  IntEdit(row.edit).Show(value);
  Get<ScrollBar>(row.bar).SetPosition(value);
}

void CGammaSetting::ShowGamma(const GammaRow& row) {
  Get<Edit>(row.edit).SetText(TwoDecimalsText(Record().*row.field));
  ShowGammaPosition(row);
}

void CGammaSetting::ShowGammaPosition(const GammaRow& row) {
  Get<ScrollBar>(row.bar).SetPosition(dialogGamma.PositionOf(Record().*row.field));
}

void CGammaSetting::ShowGammaGroup() {
  const std::uint32_t mode = Record().mode;
  if (FindModeLook(mode) != nullptr && !AllowedBy(mode, false).bandGamma) Record().bandGamma = 0;
  if (Record().bandGamma == 1) {
    ShowGammaBands();
  } else {
    ShowGammaAll();
  }
}

void CGammaSetting::ShowGammaAll() {
  ShowGammas(gammaOfAll, gammasOfBands);
  Get<CheckButton>(id103::gammaAllRadio).SetChecked(true);
  Get<CheckButton>(id103::gammaBandsRadio).SetChecked(false);
}

void CGammaSetting::ShowGammaBands() {
  ShowGammas(gammasOfBands, gammaOfAll);
  Get<CheckButton>(id103::gammaAllRadio).SetChecked(false);
  Get<CheckButton>(id103::gammaBandsRadio).SetChecked(true);
}

void CGammaSetting::ShowGammas(std::span<const GammaRow> shown, std::span<const GammaRow> hidden) {
  const auto show = [this](const GammaRow& row, bool visible) {
    for (const int id : {row.picture, row.edit, row.bar}) {
      Get<Control>(id).SetEnabled(visible);
      Get<Control>(id).SetVisible(visible);
    }
  };
  for (const GammaRow& row : shown) show(row, true);
  for (const GammaRow& row : hidden) show(row, false);
}

void CGammaSetting::ShowMode() {
  const std::uint32_t mode = Record().mode;
  const ModeLook* look = FindModeLook(mode);
  if (look == nullptr) return;
  const AllowedAdjustments allowed = AllowedBy(mode, false);
  Get<PictureControl>(id103::gammaAllPicture).SetPicture(LoadPicture(look->picture));
  Get<CheckButton>(id103::gammaAllRadio).SetText(String(look->gammaCaption));
  Get<CheckButton>(id103::gammaAllRadio).SetEnabled(true);
  Get<CheckButton>(id103::gammaBandsRadio).SetEnabled(allowed.bandGamma);
  Get<Edit>(id103::contrastEdit).SetEnabled(allowed.contrast);
  Get<ScrollBar>(id103::contrastBar).SetEnabled(allowed.contrast);
  if (state_.outputBits == output_bits::sixteenABand && look->sixteenBitCaption != 0) {
    Get<CheckButton>(id103::highBitCheck).SetText(String(look->sixteenBitCaption));
  }
}

// Gray gives up high-bit output where it can't be had, before descreen is judged by it.
void CGammaSetting::ShowOptions() {
  const bool hasLowLevelDriver = HasLowLevelDriver();
  if (Record().mode == mode::gray && (state_.highBitRestricted || !hasLowLevelDriver)) Record().highBitDepth = 0;
  CheckButton& descreen = Get<CheckButton>(id103::descreenCheck);
  descreen.SetEnabled(DescreenUsable(Record(), panel_.RestrictedMaxDpi()));
  descreen.SetChecked(Record().descreen != 0);
  CheckButton& highBit = Get<CheckButton>(id103::highBitCheck);
  highBit.SetEnabled(HighBitUsable(Record(), state_.highBitRestricted, hasLowLevelDriver));
  highBit.SetChecked(Record().highBitDepth != 0);
}

void CGammaSetting::ShowQuality() {
  ShowQualityValue();
  const bool allowed = AllowedBy(Record().mode, false).jpegQuality;
  Get<Slider>(id103::qualitySlider).SetEnabled(allowed);
  Get<Edit>(id103::qualityEdit).SetEnabled(allowed);
}

void CGammaSetting::ShowQualityValue() {
  qualityEdit_.Show(Record().jpegQuality);
  Get<Slider>(id103::qualitySlider).SetPosition(Record().jpegQuality);
}

// The window's lower edge lies below the button that closes it; all other edges stay.
void CGammaSetting::ShowJpegGroup(bool shown) {
  constexpr int belowButton = 10;  // pixels
  if (!HasWindow()) return;
  Rect place = dialog_->Place();
  const Size client = dialog_->ClientSize();
  const int frame = (place.Width() - client.width) / 2;
  const int clientTop = place.bottom - frame - client.height;
  const Rect button = Get<Button>(shown ? id103::closeLong : id103::closeShort).Place();
  place.bottom = clientTop + button.bottom + belowButton;
  dialog_->Move(place);
  Get<Button>(id103::closeShort).SetVisible(!shown);
  for (const int id : jpegControls) Get<Control>(id).SetVisible(shown);
}

}  // namespace set32
