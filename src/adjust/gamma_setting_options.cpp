// The radio buttons and check boxes of the advanced dialog.
#include "adjust/gamma_setting.h"
#include "boundary/option_file.h"
#include "resources/ids.h"

namespace set32 {

void CGammaSetting::FollowInPreview() {
  if (panel_.Preview() == nullptr) return;
  CopyToPreview();
  panel_.RefreshPreview();
}

void CGammaSetting::FollowGammasInPreview(std::span<const GammaRow> rows) {
  CDib* preview = panel_.Preview();
  if (preview == nullptr) return;
  for (const GammaRow& row : rows) Take(row, Record().*row.field, *preview);
  panel_.RefreshPreview();
}

void CGammaSetting::OnDefaultsClicked(const Event&) {
  ShowCustom(false);
  ChooseDefaults(Record());
  Get<CheckButton>(id103::highBitCheck).SetChecked(false);
  Get<CheckButton>(id103::descreenCheck).SetChecked(false);
  TellSettings();
  RefreshAdjustments();
  FollowInPreview();
}

void CGammaSetting::OnCustomClicked(const Event&) {
  SwitchToCustom();
  RefreshAdjustments();
  FollowInPreview();
}

void CGammaSetting::OnGammaAllClicked(const Event&) {
  ShowGammaAll();
  Record().bandGamma = 0;
  FollowGammasInPreview(gammaOfAll);
}

void CGammaSetting::OnGammaBandsClicked(const Event&) {
  ShowGammaBands();
  Record().bandGamma = 1;
  FollowGammasInPreview(gammasOfBands);
}

// Turning an option on shows that the settings are the person's own; the next refresh decides by the record.
void CGammaSetting::OnDescreenClicked(const Event&) {
  const bool on = Record().descreen == 0;
  Record().descreen = on ? 1 : 0;
  Get<CheckButton>(id103::highBitCheck)
      .SetEnabled(HighBitUsable(Record(), state_.highBitRestricted, HasLowLevelDriver()));
  Get<CheckButton>(id103::descreenCheck).SetChecked(on);
  if (on) ShowCustom(true);
  TellSettings();
  panel_.BuildResolutionList();
}

void CGammaSetting::OnHighBitClicked(const Event&) {
  const bool on = Record().highBitDepth == 0;
  Record().highBitDepth = on ? 1 : 0;
  Get<CheckButton>(id103::highBitCheck).SetChecked(on);
  CheckButton& descreen = Get<CheckButton>(id103::descreenCheck);
  const bool usable = DescreenUsable(Record(), panel_.RestrictedMaxDpi());
  if (!usable) {
    Record().descreen = 0;
    descreen.SetChecked(false);
  }
  descreen.SetEnabled(usable);
  if (on) {
    ShowCustom(true);
    WarnOfHighBit();
  }
  panel_.BuildResolutionList();
  TellSettings();
}

void CGammaSetting::WarnOfHighBit() {
  const int warning = HighBitWarning(state_.outputBits, Record().mode);
  if (warning == 0) return;
  state_.platform.boxes.Show(dialog_->Handle(), String(warning), state_.productName,
                             box_style::ok | box_style::information);
}

void CGammaSetting::OnSingleFileClicked(const Event&) {
  const bool on = Record().singleFile == 0;
  Record().singleFile = on ? 1 : 0;
  if (on) ShowCustom(true);
}

bool CGammaSetting::HasLowLevelDriver() const {
  const OptionFile options(state_.platform.profiles, state_.platform.system, state_.runtimeIniPath);
  return options.Read(option_key::lowLevelDriver) != 0;
}

}  // namespace set32
