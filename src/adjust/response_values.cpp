// The values of the Advanced page: what sliders, edits, spins and Reset do to the copy, and how a change goes on to
// the preview, the screen and the record.
#include "adjust/response_page.h"
#include "resources/ids.h"

namespace set32 {

const CResponsePage::ValueControls& CResponsePage::ControlsOf(Slot slot) {
  static constexpr ValueControls controls[] = {
      {id148::firstEdit, id148::firstSlider, id148::firstSpin, id148::firstLabel},
      {id148::secondEdit, id148::secondSlider, id148::secondSpin, id148::secondLabel}};
  return controls[static_cast<std::size_t>(slot)];
}

CResponsePage::Slot CResponsePage::SlotOf(int controlId) {
  const ValueControls& second = ControlsOf(Slot::second);
  const bool isSecond = controlId == second.edit || controlId == second.slider || controlId == second.spin;
  return isSecond ? Slot::second : Slot::first;
}

// The slider stands where its own move or the person left it, which on the gamma's tab isn't quite the value. Only
// where it went to an end, which moves no value, it comes back.
void CResponsePage::OnScroll(const Event& event) {
  const Slot slot = SlotOf(event.controlId);
  if (event.code >= scroll_code::lineLeft && event.code <= scroll_code::thumbTrack) {
    ScrollValue(values_, ShownIn(slot), event.code, Get<Slider>(ControlsOf(slot).slider).Position());
    FollowChange(ValueOf(slot).adjustment);
    ShowText(slot);
  }
  SyncToSettings();
  if (event.code == scroll_code::leftEnd || event.code == scroll_code::rightEnd) ShowPosition(slot);
}

void CResponsePage::OnSpin(const Event& event) {
  const Slot slot = SlotOf(event.controlId);
  SpinValue(values_, ShownIn(slot), event.delta);
  FollowChange(ValueOf(slot).adjustment);
  ShowText(slot);
  ShowPosition(slot);
  SyncToSettings();
}

// Nobody can type here, but a gamma is rounded to the decimals on show. An edit that the page disables isn't left:
// its text may be of a record that is gone.
void CResponsePage::OnEditLeft(const Event& event) {
  constexpr std::size_t longestRead = 20;
  if (isEnabling_) return;
  const Slot slot = SlotOf(event.controlId);
  const std::string text = Get<Edit>(ControlsOf(slot).edit).Text().substr(0, longestRead);
  if (!TakeText(values_, ShownIn(slot), text)) ShowText(slot);
  FollowChange(ValueOf(slot).adjustment);
  ShowPosition(slot);
  SyncToSettings();
}

void CResponsePage::OnReset(const Event&) {
  Reset();
}

// To the neutral values of the tab, not to those of the profile.
void CResponsePage::Reset() {
  Get<Combo>(id148::bandCombo).SelectIndex(0);
  switch (CurrentView()) {
    case View::gammaCurve:
      values_.gammaAll = 1.0F;
      SpreadGammaAll(values_);
      values_.sharpness = 0;
      ShowValues();
      PushGamma();
      SyncToSettings();
      DrawGammaCurve(Band::all);
      PushSharpness();
      break;
    case View::histogram:
      values_.brightness = values_.contrast = 0;
      FollowChange(Adjustment::brightness);
      ShowValues();
      SyncToSettings();
      break;
    case View::hueWheel:
      values_.saturation = values_.hue = 0;
      PushHue();
      PushSaturation();
      ShowValues();
      SyncToSettings();
      break;
  }
}

// The steps behind a change of a value, whatever control caused it. The histogram shows what the preview became.
void CResponsePage::FollowChange(Adjustment adjustment) {
  switch (adjustment) {
    case Adjustment::gamma:
      if (SelectedBand() == Band::all) SpreadGammaAll(values_);
      PushGamma();
      DrawGammaCurve(SelectedBand());
      break;
    case Adjustment::sharpness:
      PushSharpness();
      break;
    case Adjustment::brightness:
    case Adjustment::contrast:
      PushBrightnessContrast();
      ShowNewHistogram();
      break;
    case Adjustment::saturation:
      PushSaturation();
      break;
    case Adjustment::hue:
      PushHue();
      break;
  }
}

void CResponsePage::PushGamma() {
  CDib* preview = panel_->Preview();
  if (preview != nullptr && GiveGamma(values_, SelectedBand(), *preview)) panel_->RefreshPreview();
}

// Each of the two shows on its own.
void CResponsePage::PushBrightnessContrast() {
  CDib* preview = panel_->Preview();
  if (preview != nullptr && preview->brightness != values_.brightness) {
    preview->brightness = values_.brightness;
    panel_->RefreshPreview();
  }
  preview = panel_->Preview();
  if (preview != nullptr && preview->contrast != values_.contrast) {
    preview->contrast = values_.contrast;
    panel_->RefreshPreview();
  }
}

// The preview takes these from the record. SyncToSettings then finds the record alike and tells nobody, so that the
// change is noted here.
void CResponsePage::PushToRecord(Adjustment adjustment) {
  if (GiveNumber(values_, adjustment, panel_->Settings())) pendingStore_ = true;
  panel_->RefreshPreview();
}

void CResponsePage::SyncToSettings() {
  ScanSettings& settings = panel_->Settings();
  if (!Differ(values_, settings)) return;
  pendingStore_ = true;
  StoreValues(values_, SelectedBand(), settings);
  settings.frameCommand = 0;
  panel_->Host().SettingsChanged(settings_change::values, settings);
}

void CResponsePage::ShowText(Slot slot) {
  Get<Edit>(ControlsOf(slot).edit).SetText(TextOf(values_, ShownIn(slot)));
}

void CResponsePage::ShowPosition(Slot slot) {
  Get<Slider>(ControlsOf(slot).slider).SetPosition(PositionOf(values_, ShownIn(slot)));
}

void CResponsePage::ShowValues() {
  for (const Slot slot : {Slot::first, Slot::second}) {
    ShowText(slot);
    ShowPosition(slot);
  }
}

}  // namespace set32
