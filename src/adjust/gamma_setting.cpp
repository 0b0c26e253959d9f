// The advanced dialog's message table, and what its page tells it.
#include "adjust/gamma_setting.h"

#include "resources/ids.h"
#include "resources/strings.h"

namespace set32 {

std::span<const MessageRow<CGammaSetting>> CGammaSetting::Messages() {
  using Dlg = CGammaSetting;
  static constexpr MessageRow<Dlg> rows[] = {
      {EventKind::clicked, id103::defaultsRadio, &Dlg::OnDefaultsClicked},
      {EventKind::clicked, id103::customRadio, &Dlg::OnCustomClicked},
      {EventKind::editUpdate, id103::brightnessEdit, &Dlg::OnIntEditUpdate},
      {EventKind::editUpdate, id103::contrastEdit, &Dlg::OnIntEditUpdate},
      {EventKind::editChanged, id103::brightnessEdit, &Dlg::OnNumberChanged},
      {EventKind::editChanged, id103::contrastEdit, &Dlg::OnNumberChanged},
      {EventKind::focusLost, id103::brightnessEdit, &Dlg::OnNumberLeft},
      {EventKind::focusLost, id103::contrastEdit, &Dlg::OnNumberLeft},
      {EventKind::scrolled, id103::brightnessBar, &Dlg::OnNumberScrolled},
      {EventKind::scrolled, id103::contrastBar, &Dlg::OnNumberScrolled},
      {EventKind::clicked, id103::gammaAllRadio, &Dlg::OnGammaAllClicked},
      {EventKind::clicked, id103::gammaBandsRadio, &Dlg::OnGammaBandsClicked},
      {EventKind::focusLost, id103::gammaAllEdit, &Dlg::OnGammaLeft},
      {EventKind::focusLost, id103::gammaRedEdit, &Dlg::OnGammaLeft},
      {EventKind::focusLost, id103::gammaGreenEdit, &Dlg::OnGammaLeft},
      {EventKind::focusLost, id103::gammaBlueEdit, &Dlg::OnGammaLeft},
      {EventKind::scrolled, id103::gammaAllBar, &Dlg::OnGammaScrolled},
      {EventKind::scrolled, id103::gammaRedBar, &Dlg::OnGammaScrolled},
      {EventKind::scrolled, id103::gammaGreenBar, &Dlg::OnGammaScrolled},
      {EventKind::scrolled, id103::gammaBlueBar, &Dlg::OnGammaScrolled},
      {EventKind::clicked, id103::descreenCheck, &Dlg::OnDescreenClicked},
      {EventKind::clicked, id103::highBitCheck, &Dlg::OnHighBitClicked},
      {EventKind::clicked, id103::singleFileCheck, &Dlg::OnSingleFileClicked},
      {EventKind::scrolled, id103::qualitySlider, &Dlg::OnQualityScrolled},
      {EventKind::released, id103::qualitySlider, &Dlg::OnQualityReleased},
      {EventKind::editUpdate, id103::qualityEdit, &Dlg::OnIntEditUpdate},
      {EventKind::editChanged, id103::qualityEdit, &Dlg::OnQualityChanged},
      {EventKind::clicked, id103::closeShort, &Dlg::OnCloseClicked},  // the other one is the dialog's Cancel
  };
  return rows;
}

CGammaSetting::CGammaSetting(ModuleState& state, PanelServices& panel)
    : state_(state),
      panel_(panel),
      run_(state.platform.threads),
      message_(state),
      gammaEdits_{
          CRangeRealEdit(state.platform, EnterKey::isOwners), CRangeRealEdit(state.platform, EnterKey::isOwners),
          CRangeRealEdit(state.platform, EnterKey::isOwners), CRangeRealEdit(state.platform, EnterKey::isOwners)} {}

void CGammaSetting::OnEvent(const Event& event) {
  Dispatch(*this, Messages(), event);
}

// The dialog stays, and so does the focus.
void CGammaSetting::OnOk() {
  if (!HasWindow()) return;
  if (const Control* focused = dialog_->Focused()) {
    OnEvent(Event{.kind = EventKind::focusLost, .controlId = focused->Id()});
  }
}

void CGammaSetting::OnModeSet() {
  if (Record().useDefaults == 1) LoadAdjustmentDefaults();
}

void CGammaSetting::OnPreviewDone() {
  if (Record().mode != mode::gray) Repaint();
}

void CGammaSetting::OnSourceChanged() {
  switch (Record().paperSource) {
    case paper_source::flatbed:
      if (state_.jpegModesOn) ShowJpegGroup(true);
      break;
    case paper_source::feeder:
    case paper_source::positive:
    case paper_source::negative:
      ShowJpegGroup(false);
      break;
    default:
      break;
  }
}

void CGammaSetting::Repaint() {
  if (HasWindow()) dialog_->Update();
}

void CGammaSetting::SetEnabled(bool enabled) {
  if (HasWindow()) dialog_->SetEnabled(enabled);
}

std::string CGammaSetting::String(int id) const {
  return LoadString(state_.platform.system, id);
}

}  // namespace set32
