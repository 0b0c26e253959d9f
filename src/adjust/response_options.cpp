// Descreen and high-bit output on the Advanced page, and what a tab and a mode enable there.
#include <algorithm>
#include <iterator>

#include "adjust/response_page.h"
#include "platform/guarded.h"
#include "resources/ids.h"

namespace set32 {

namespace {

struct KindRadio {
  int radio;
  std::uint32_t kind;
};

// The last one stands for every kind that isn't known.
constexpr KindRadio kindRadios[] = {{id148::magazineRadio, descreen_kind::magazine},
                                    {id148::newspaperRadio, descreen_kind::newspaper},
                                    {id148::picturePrintRadio, descreen_kind::picturePrint}};

constexpr std::initializer_list<int> kindRadioIds = {id148::magazineRadio, id148::newspaperRadio,
                                                     id148::picturePrintRadio};

}  // namespace

void CResponsePage::OnDescreenClicked(const Event&) {
  for (const KindRadio& row : kindRadios) {
    if (Get<CheckButton>(row.radio).IsChecked()) values_.descreenKind = row.kind;
  }
  const bool on = TurnCheck(id148::descreenCheck);
  values_.descreen = on ? 1 : 0;
  Enable(kindRadioIds, on);
  Enable({id148::highBitCheck}, !on && !state_.highBitRestricted);
  SyncToSettings();
  panel_->RefreshPanel();
}

void CResponsePage::OnDescreenKind(const Event& event) {
  const auto* row = std::ranges::find(kindRadios, event.controlId, &KindRadio::radio);
  values_.descreenKind = row->kind;
  CheckDescreenKind(row->kind);
  SyncToSettings();
}

void CResponsePage::OnHighBitClicked(const Event&) {
  const bool on = TurnCheck(id148::highBitCheck);
  values_.highBitDepth = on ? 1 : 0;
  EnableDescreenByHighBit();
  if (on) {
    TakeHighBit();
  } else {
    LeaveHighBit();
  }
}

void CResponsePage::EnableDescreenByHighBit() {
  if (values_.highBitDepth != 0) {
    Enable({id148::descreenCheck}, false);
  } else if (OnTransparency(panel_->Settings())) {
    Enable({id148::descreenCheck}, false);
    Enable(kindRadioIds, false);
  } else {
    Enable({id148::descreenCheck}, true);
  }
}

// Output of more bits has neither sharpening nor a change of colours.
void CResponsePage::TakeHighBit() {
  values_.sharpness = values_.saturation = values_.hue = 0;
  switch (CurrentView()) {
    case View::gammaCurve:
      Enable({id148::secondLabel, id148::secondEdit, id148::blurLabel, id148::sharpenLabel, id148::secondSlider},
             false);
      ShowText(Slot::second);
      ShowPosition(Slot::second);
      DrawGammaCurve(SelectedBand());
      break;
    case View::histogram:
      break;
    case View::hueWheel:
      Enable({id148::firstLabel, id148::secondLabel, id148::firstEdit, id148::secondEdit, id148::blurLabel,
              id148::sharpenLabel, id148::firstSlider, id148::secondSlider},
             false);
      Reset();
      break;
  }
  for (const Adjustment adjustment : {Adjustment::sharpness, Adjustment::hue, Adjustment::saturation}) {
    GiveNumber(values_, adjustment, panel_->Settings());
  }
  panel_->RefreshPreview();
  SyncToSettings();
}

void CResponsePage::LeaveHighBit() {
  const bool usable = CurrentView() != View::hueWheel || IsColourMode(panel_->Settings().mode);
  Enable({id148::firstLabel, id148::firstEdit, id148::firstSlider, id148::secondLabel, id148::secondEdit,
          id148::secondSlider, id148::blurLabel, id148::sharpenLabel},
         usable);
  SyncToSettings();
}

// A click turns no mark by itself. Result: the new mark.
bool CResponsePage::TurnCheck(int checkId) {
  CheckButton& check = Get<CheckButton>(checkId);
  const bool on = !check.IsChecked();
  check.SetChecked(on);
  return on;
}

void CResponsePage::CheckDescreenKind(std::uint32_t kind) {
  const auto* const last = std::prev(std::end(kindRadios));
  const auto* const checked = std::ranges::find(std::begin(kindRadios), last, kind, &KindRadio::kind);
  for (const KindRadio& row : kindRadios) Get<CheckButton>(row.radio).SetChecked(&row == checked);
}

void CResponsePage::UpdateEnabling(const ScanSettings& settings) {
  CheckDescreenKind(settings.descreenKind);
  if (const auto values = EnablingOf(CurrentView(), settings.mode, settings.highBitDepth != 0)) {
    Enable({id148::firstSlider, id148::firstEdit, id148::firstSpin, id148::firstLabel}, values->first);
    Enable({id148::secondSlider, id148::secondEdit, id148::secondSpin}, values->second);
    Enable({id148::secondLabel}, values->secondLabel);
    Enable({id148::blurLabel, id148::sharpenLabel}, values->scale);
  }
  Get<CheckButton>(id148::highBitCheck).SetText(String(HighBitCaption(settings.mode)));
  if (const auto options = EnablingOfOptions(settings, state_.highBitRestricted)) {
    Enable({id148::descreenCheck}, options->descreen);
    Enable(kindRadioIds, options->descreenKinds);
    Enable({id148::highBitCheck}, options->highBit);
  }
}

void CResponsePage::Enable(std::initializer_list<int> controlIds, bool enabled) {
  const Hold enabling(isEnabling_, true);
  for (const int controlId : controlIds) Get<Control>(controlId).SetEnabled(enabled);
}

void CResponsePage::Enable(std::initializer_list<int> controlIds, Enabling enabling) {
  if (enabling != Enabling::unchanged) Enable(controlIds, enabling == Enabling::on);
}

}  // namespace set32
