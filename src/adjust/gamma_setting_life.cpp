// How the advanced dialog opens, where it stands, and how it ends.
#include <utility>

#include "adjust/gamma_setting.h"
#include "controls/tips.h"
#include "platform/guarded.h"
#include "resources/dialogs.h"
#include "resources/ids.h"
#include "resources/pictures.h"

namespace set32 {

namespace {

constexpr Tip tips[] = {
    {id103::customRadio, text::userDefinedTip},
    {id103::defaultsRadio, text::defaultsTip},
    {id103::gammaAllRadio, text::mixedGammaTip},
    {id103::gammaBandsRadio, text::bandGammaTip},
    {id103::gammaAllPicture, text::gammaAllTip},
    {id103::gammaAllEdit, text::gammaAllTip},
    {id103::gammaAllBar, text::gammaAllTip},
    {id103::gammaRedPicture, text::gammaRedTip},
    {id103::gammaRedEdit, text::gammaRedTip},
    {id103::gammaRedBar, text::gammaRedTip},
    {id103::gammaGreenPicture, text::gammaGreenTip},
    {id103::gammaGreenEdit, text::gammaGreenTip},
    {id103::gammaGreenBar, text::gammaGreenTip},
    {id103::gammaBluePicture, text::gammaBlueTip},
    {id103::gammaBlueEdit, text::gammaBlueTip},
    {id103::gammaBlueBar, text::gammaBlueTip},
    {id103::brightnessIcon, text::brightnessTip},
    {id103::brightnessEdit, text::brightnessTip},
    {id103::brightnessBar, text::brightnessTip},
    {id103::contrastIcon, text::contrastTip},
    {id103::contrastEdit, text::contrastTip},
    {id103::contrastBar, text::contrastTip},
    {id103::descreenCheck, text::descreenTip},
    {id103::qualitySlider, text::jpegTip},
    {id103::qualityEdit, text::jpegTip},
};

struct Icon {
  int controlId;
  std::string_view picture;
};

// The picture of the gamma for all bands goes by the mode.
constexpr Icon icons[] = {
    {id103::brightnessIcon, picture::brightness},  {id103::contrastIcon, picture::contrast},
    {id103::gammaRedPicture, picture::gammaRed},   {id103::gammaGreenPicture, picture::gammaGreen},
    {id103::gammaBluePicture, picture::gammaBlue},
};

}  // namespace

void CGammaSetting::Open() {
  if (isStarting_) return;  // asked for once more inside its own start
  if (HasWindow()) {
    dialog_->SetVisible(true);
    Repaint();
    return;
  }
  const bool hasOwner = state_.platform.windows.IsWindow(state_.hostParent);
  run_.Start(*this, hasOwner ? state_.hostParent : 0);
}

// The person goes on with the host's window while the dialog stands.
bool CGammaSetting::Open(WindowHandle owner) {
  const DialogTemplate* source = FindDialog(dialog::gamma);
  if (source == nullptr) return false;
  Windows& windows = state_.platform.windows;
  const OnFailure giveUp([this] {
    window_.reset();
    ForgetWindow();
  });
  std::unique_ptr<Dialog> made;
  {
    const Hold starting(isStarting_, true);
    made = windows.Create(*source, owner, *this);
  }
  if (made == nullptr) {
    ForgetWindow();
    return false;
  }
  window_ = std::move(made);
  PlaceOnScreen();
  window_->SetVisible(true);
  windows.Enable(state_.hostParent, true);
  return HasWindow();
}

void CGammaSetting::OnInit(Dialog& dialog) {
  dialog_ = &dialog;
  AttachEdits(dialog);
  SetUpQuality();
  SetUpBars();
  SetUpPictures();
  SetUpOptions();
  RefreshAdjustments();
  if (!HasWindow()) return;
  AddTips(*dialog_, state_.platform.system, tips);
  Record().singleFile = 0;
  dialog_->SetTitle(String(text::advancedTitle));
  if (!state_.jpegModesOn || Record().paperSource == paper_source::feeder) ShowJpegGroup(false);
}

void CGammaSetting::AttachEdits(Dialog& dialog) {
  for (const NumberRow& row : numberRows) {
    CRangeIntEdit& edit = IntEdit(row.edit);
    edit.Attach(dialog.Get<Edit>(row.edit));
    edit.SetRange(row.range.low, row.range.high);
  }
  qualityEdit_.Attach(dialog.Get<Edit>(id103::qualityEdit));
  qualityEdit_.SetRange(jpegQualityRange.low, jpegQualityRange.high);
  for (std::size_t i = 0; i < gammaEdits_.size(); ++i) {
    gammaEdits_[i].Attach(dialog, gammaRows[i].edit);
    gammaEdits_[i].SetRange(dialogGamma.low, dialogGamma.high);
  }
}

void CGammaSetting::SetUpQuality() {
  Slider& slider = Get<Slider>(id103::qualitySlider);
  slider.SetRange(jpegQualityRange.low, jpegQualityRange.high);
  slider.SetTickFrequency(1);
  slider.SetLineSize(1);
  Spin& spin = Get<Spin>(id103::qualitySpin);
  spin.SetRange(jpegQualityRange.low, jpegQualityRange.high);
  spin.SetBuddy(id103::qualityEdit);
  ShowQualityValue();
}

void CGammaSetting::SetUpBars() {
  for (const NumberRow& row : numberRows) Get<ScrollBar>(row.bar).SetRange(row.range.low, row.range.high);
  for (const GammaRow& row : gammaRows) {
    Get<ScrollBar>(row.bar).SetRange(dialogGamma.range.low, dialogGamma.range.high);
  }
}

void CGammaSetting::SetUpPictures() {
  for (const Icon& icon : icons) Get<PictureControl>(icon.controlId).SetPicture(LoadPicture(icon.picture));
}

void CGammaSetting::SetUpOptions() {
  const bool forbidden = DescreenForbidden(Record());
  if (forbidden) Record().descreen = 0;
  CheckButton& descreen = Get<CheckButton>(id103::descreenCheck);
  descreen.SetEnabled(!forbidden);
  descreen.SetChecked(Record().descreen != 0);

  CheckButton& highBit = Get<CheckButton>(id103::highBitCheck);
  if (!Hardware().HighBitControlShown()) highBit.SetVisible(false);
  if (state_.highBitRestricted) highBit.SetEnabled(false);
  // The refresh names the caption of 16 bits a band, by mode.
  if (state_.outputBits == output_bits::fourteenABand) highBit.SetText(String(text::output42Bits));
}

// Where it was left, at first in the lower right corner; so that its title bar can be taken hold of.
void CGammaSetting::PlaceOnScreen() {
  const Windows& windows = state_.platform.windows;
  const Rect now = dialog_->Place();
  const Size size{now.Width(), now.Height()};
  const int titleHeight = size.height - dialog_->ClientSize().height;
  const Size screen = windows.FullScreen();
  const Point lowerRight{screen.width - size.width, screen.height - size.height};
  const Rect wanted = WindowAt(Hardware().DialogPlace().value_or(lowerRight), size);
  const Rect titleBar{wanted.left, wanted.top, wanted.right, wanted.top + titleHeight};
  dialog_->Move(MovedIntoWorkArea(wanted, titleHeight, windows.WorkAreaAt(titleBar)));
  hasPlace_ = true;
}

void CGammaSetting::Close() {
  if (!HasWindow()) return;
  LeaveFocusedEdit();
  if (!HasWindow()) return;
  KeepPlace();
  dialog_->SetVisible(false);
  state_.platform.windows.RaiseToFront(state_.hostParent);
  if (HasWindow()) dialog_->Destroy();
}

// What was typed counts.
void CGammaSetting::LeaveFocusedEdit() {
  const Control* focused = dialog_->Focused();
  if (focused != nullptr && focused->Kind() == ControlKind::edit) dialog_->TakeFocus();
}

// Once for each time that it stood, whichever way it ends; where it can't be stored the next one opens as this did.
void CGammaSetting::KeepPlace() {
  if (std::exchange(hasPlace_, false)) Hardware().WriteDialogPlace(dialog_->Place());
}

void CGammaSetting::OnDestroyed() {
  ForgetWindow();
  run_.Ended();
}

void CGammaSetting::ForgetWindow() {
  dialog_ = nullptr;
  hasPlace_ = false;
  for (CRangeIntEdit& edit : numberEdits_) edit.Detach();
  qualityEdit_.Detach();
  for (CRangeRealEdit& edit : gammaEdits_) edit.Detach();
}

HardwareOptions CGammaSetting::Hardware() const {
  return {state_.platform.profiles, state_.platform.system, state_.HardwareOptionsPath()};
}

}  // namespace set32
