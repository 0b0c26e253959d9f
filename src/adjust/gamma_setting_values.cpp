// The values of the advanced dialog: what a person does in its edits and at its bars and slider.
#include "adjust/gamma_setting.h"
#include "controls/format.h"
#include "controls/number_text.h"
#include "resources/ids.h"

namespace set32 {

namespace {

bool BeginsNumber(const std::string& text) {
  return !text.empty() && ((text.front() >= '0' && text.front() <= '9') || text.front() == '-');
}

}  // namespace

// The record has a value, the preview takes it.
template <typename Row>
void CGammaSetting::GiveToPreview(const Row& row, Rendering rendering) {
  CDib* preview = panel_.Preview();
  if (preview == nullptr) return;
  const bool differed = Take(row, Record().*row.field, *preview);
  if (differed || rendering == Rendering::always) panel_.RefreshPreview();
}

void CGammaSetting::SwitchToCustom() {
  ShowCustom(true);
  Record().useDefaults = 0;
}

CRangeIntEdit& CGammaSetting::IntEdit(int editId) {
  for (std::size_t i = 0; i < numberEdits_.size(); ++i) {
    if (numberRows[i].edit == editId) return numberEdits_[i];
  }
  return qualityEdit_;
}

void CGammaSetting::OnIntEditUpdate(const Event& event) {
  IntEdit(event.controlId).OnUpdate();
}

void CGammaSetting::OnNumberChanged(const Event& event) {
  const NumberRow& row = NumberRowOf(event.controlId);
  if (IntEdit(row.edit).IsShowing()) return;
  const std::int32_t number = ReadWholeNumber(Get<Edit>(row.edit).Text());
  if (number == Record().*row.field) return;
  Record().*row.field = number;
  SwitchToCustom();
  Get<ScrollBar>(row.bar).SetPosition(number);
  GiveToPreview(row, Rendering::always);
}

void CGammaSetting::OnNumberLeft(const Event& event) {
  SwitchToCustom();
  const NumberRow& row = NumberRowOf(event.controlId);
  const Edit& edit = Get<Edit>(row.edit);
  if (!BeginsNumber(edit.Text())) IntEdit(row.edit).Show(0);
  Record().*row.field = ReadWholeNumber(edit.Text());
  GiveToPreview(row, Rendering::always);
}

void CGammaSetting::OnNumberScrolled(const Event& event) {
  SwitchToCustom();
  const NumberRow& row = NumberRowOf(event.controlId);
  std::int32_t& value = Record().*row.field;
  value = NumberAfterScroll(row.range, dialogScroll, value, event.code, event.position);
  ShowNumber(row);
  if (event.code != scroll_code::endScroll) GiveToPreview(row, Rendering::whenItDiffers);
}

void CGammaSetting::OnGammaLeft(const Event& event) {
  SwitchToCustom();
  const GammaRow& row = GammaRowOf(event.controlId);
  const std::optional<double> typed = TypedGamma(Get<Edit>(row.edit).Text());
  if (!typed) return RefuseGamma(row);
  Record().*row.field = *typed;
  ShowGammaPosition(row);
  GiveToPreview(row, Rendering::always);
}

// Nothing is said over a dialog that leaves the screen, with its owner perhaps.
void CGammaSetting::RefuseGamma(const GammaRow& row) {
  Get<Edit>(row.edit).SetText(RestoredGammaText(Record().*row.field));
  if (!dialog_->IsVisible()) return;
  message_.Show(dialog_->Handle(), state_.productName, FormatText(String(text::decimalRange), 0, 1, 9, 99));
}

void CGammaSetting::OnGammaScrolled(const Event& event) {
  SwitchToCustom();
  const GammaRow& row = GammaRowOf(event.controlId);
  double& value = Record().*row.field;
  value = GammaAfterScroll(dialogGamma, value, event.code, event.position);
  ShowGamma(row);
  if (event.code != scroll_code::endScroll) GiveToPreview(row, Rendering::whenItDiffers);
}

// A typed quality, or one of the spin, doesn't turn the dialog to the person's own settings.
void CGammaSetting::OnQualityChanged(const Event&) {
  if (qualityEdit_.IsShowing()) return;
  const std::int32_t number = ReadWholeNumber(Get<Edit>(id103::qualityEdit).Text());
  if (number == Record().jpegQuality) return;
  Record().jpegQuality = number;
  Get<Slider>(id103::qualitySlider).SetPosition(number);
}

void CGammaSetting::OnQualityScrolled(const Event& event) {
  SwitchToCustom();
  const int position = Get<Slider>(id103::qualitySlider).Position();
  Record().jpegQuality = QualityAfterScroll(Record().jpegQuality, event.code, position);
  ShowQualityValue();
}

void CGammaSetting::OnQualityReleased(const Event&) {
  Record().jpegQuality = Get<Slider>(id103::qualitySlider).Position();
  qualityEdit_.Show(Record().jpegQuality);
}

}  // namespace set32
