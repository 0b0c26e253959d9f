// What holds the page together: its binding, the steps of its start, the steps of a refresh, and its end.
#include "panel/page.h"

#include <utility>

#include "adjust/adjustment_rules.h"
#include "controls/bitmap_button.h"
#include "platform/guarded.h"
#include "resources/ids.h"
#include "resources/strings.h"

namespace set32 {

// What both faces answer alike.
std::span<const MessageRow<CPanelPage>> CPanelPage::SharedMessages() {
  using Page = CPanelPage;
  static constexpr MessageRow<Page> rows[] = {
      {EventKind::selectionChosen, id::resolutionCombo, &Page::OnResolutionChoice},
      {EventKind::focusLost, id::resolutionEdit, &Page::OnResolutionEdit},
      {EventKind::selectionChosen, id::sizeCombo, &Page::OnSizeChoice},
      {EventKind::selectionChosen, id::unitCombo, &Page::OnUnitChoice},
      {EventKind::focusGained, id::widthEdit, &Page::OnSizeEditEnter},
      {EventKind::focusGained, id::heightEdit, &Page::OnSizeEditEnter},
      {EventKind::focusLost, id::widthEdit, &Page::OnWidthEdit},
      {EventKind::focusLost, id::heightEdit, &Page::OnHeightEdit},
      {EventKind::selectionChosen, id::modeCombo, &Page::OnModeChoice},
      {EventKind::clicked, id::colourButton, &Page::OnColourClicked},
      {EventKind::clicked, id::colourRadio, &Page::OnColourClicked},
      {EventKind::clicked, id::grayButton, &Page::OnGrayClicked},
      {EventKind::clicked, id::grayRadio, &Page::OnGrayClicked},
      {EventKind::clicked, id::bwButton, &Page::OnBlackWhiteClicked},
      {EventKind::clicked, id::bwRadio, &Page::OnBlackWhiteClicked},
      {EventKind::rowChanged, id::configList, &Page::OnRowChanged},
      {EventKind::clicked, id::saveButton, &Page::OnSaveClicked},
      {EventKind::clicked, id::deleteButton, &Page::OnDeleteClicked},
  };
  return rows;
}

void CPanelPage::OnEvent(const Event& event) {
  const OnFailure note([this] { listsMayLack_ = true; });
  if (!AnswersItself(event)) Dispatch(*this, SharedMessages(), event);
}

CPanelPage::CPanelPage(ModuleState& state, const PanelFace& face)
    : state_(state),
      face_(face),
      host_(state.platform.windows),
      store_(state),
      renderer_(face.preview, imageLibrary_),
      resolutionEdit_(state.platform),
      widthEdit_(state.platform),
      heightEdit_(state.platform),
      sizeCombo_(state.platform.windows),
      resolutionCombo_(state.platform.windows),
      scannerCombo_(state.platform.windows),
      sourceCombo_(state.platform.windows) {
  state_.jpegModesOn = false;
}

void CPanelPage::Bind(const DeviceLimits* limits, ScanSettings& settings, WindowHandle hostWindow, CDib* preview) {
  constexpr std::uint16_t allModes = mode::colour | mode::gray | mode::blackWhite;
  constexpr std::uint16_t defaultMaxDpi = 4800;
  limits_ =
      limits != nullptr ? *limits : DeviceLimits{allModes, face_.rules.resolutionMaskWithoutLimits, defaultMaxDpi, 0};
  settings_ = &settings;
  limits_.minDpi = face_.rules.minDpiAtBinding[settings.paperSource];
  host_.Bind(hostWindow);
  preview_ = preview;
  ++bindings_;
  if (preview_ != nullptr) CopyAdjustmentsToPreview(*settings_, *preview_);
}

void CPanelPage::Unbind() {
  settings_ = &own_;
  preview_ = nullptr;
  host_.Bind(0);
  ++bindings_;
}

bool CPanelPage::Rebind(const Binding& before) {
  if (bindings_ > before.number + 1) return false;
  settings_ = before.settings;
  preview_ = before.preview;
  limits_ = before.limits;
  caps_ = before.caps;
  host_.Bind(before.hostWindow);
  if (preview_ != nullptr) CopyAdjustmentsToPreview(*settings_, *preview_);
  return true;
}

RuntimeOptions CPanelPage::Options() const {
  return {state_.platform.profiles, state_.platform.system, state_.runtimeIniPath};
}

AdjustmentDefaults CPanelPage::ReadAdjustmentDefaults() const {
  CProfileFile profile(state_.platform.profiles);
  profile.SetFileName(state_.profilePath.c_str());
  return set32::ReadAdjustmentDefaults(profile, settings_->mode);
}

std::string CPanelPage::String(int id) const {
  return LoadString(state_.platform.system, id);
}

void CPanelPage::AttachControls(Dialog& dialog) {
  dialog_ = &dialog;
  store_.Attach(dialog);
  sizeCombo_.Attach(Get<Combo>(id::sizeCombo));
  resolutionCombo_.Attach(Get<Combo>(id::resolutionCombo));
  scannerCombo_.Attach(Get<Combo>(id::scannerCombo));
  sourceCombo_.Attach(Get<Combo>(id::sourceCombo));
  resolutionEdit_.Attach(dialog, id::resolutionEdit);
  widthEdit_.Attach(dialog, id::widthEdit);
  heightEdit_.Attach(dialog, id::heightEdit);
  modeCombo_.Attach(Get<Combo>(id::modeCombo));
}

// List and group stretch with the page's height; what lies beneath them moves.
void CPanelPage::EnterSharedAnchors() {
  anchors_.Add(anchor::moveY | anchor::stretchY, {id::listGroup, id::configList});
  anchors_.Add(anchor::moveY, {id::saveButton, id::deleteButton, id::scanGroup, id::modeCombo, id::resolutionCombo,
                               id::resolutionEdit, id::sizeCombo, id::unitCombo, id::heightEdit, id::widthEdit,
                               id::widthPicture, id::heightPicture, id::advancedButton, id::autoCropCheck,
                               id::modeLabel, id::resolutionLabel, id::sizeLabel});
}

void CPanelPage::ReadProductName() {
  state_.productName = Options().ProductName(String(text::productName));
}

void CPanelPage::DecideHighBit() {
  state_.highBitRestricted = Options().HighBitRestricted();
}

void CPanelPage::FillUnits() {
  Combo& combo = Get<Combo>(id::unitCombo);
  for (const int text : {text::unitInch, text::unitCentimetre, text::unitPixel}) combo.Add(String(text));
}

void CPanelPage::AttachPictures() {
  for (const int button : {id::widthPicture, id::heightPicture, id::bwButton, id::grayButton, id::colourButton}) {
    AttachBitmaps(Get<PictureButton>(button));
  }
}

// The list takes the room of the paper source's controls, from there on.
void CPanelPage::HidePaperSource(int listTop) {
  Get<Combo>(id::sourceCombo).SetVisible(false);
  Get<Label>(id::sourceLabel).SetVisible(false);
  List& list = Get<List>(id::configList);
  Rect place = list.Place();
  place.top = listTop;
  list.Move(place);
}

void CPanelPage::FirstRefresh() {
  state_.notifySize = Options().HasCrop();
  RefreshPanel();
  state_.notifySize = true;
}

// What only a start or another paper source fills, and what an event that didn't get through may have left half done.
void CPanelPage::RebuildLists() {
  const OnFailure note([this] { listsMayLack_ = true; });
  BuildSizeList();
  FitModeEntries();
  SelectSource(pageSource_);
  MarkRowAtStart();
}

// Controls and preview agree with the record. It changes only where a field can't stand.
void CPanelPage::ShowRecord() {
  if (std::exchange(listsMayLack_, false)) RebuildLists();
  BuildResolutionList();
  if (pageSource_ != paper_source::feeder) {
    Get<CheckButton>(id::autoCropCheck).SetChecked(settings_->autoCrop != 0);
  }
  OfferModes();
  if (preview_ != nullptr) CopyAdjustmentsToPreview(*settings_, *preview_);
  if (state_.highBitRestricted) settings_->highBitDepth = 0;
  ApplyMode(settings_->mode);
  shownUnits_ = settings_->units;
  Get<Combo>(id::unitCombo).SelectIndex(static_cast<int>(shownUnits_));
  const std::uint32_t hostWord = settings_->hostWord;
  SelectSize(settings_->sizeId);
  ShowSizeText();
  SetSizeRanges();
  {
    const Hold quiet(state_.notifySize, false);
    ApplySizeChoice();
  }
  settings_->hostWord = hostWord;
  store_.SetButtons();
}

void CPanelPage::TellValues() {
  if (face_.ownsFrameCommand) settings_->frameCommand = 0;
  host_.SettingsChanged(settings_change::values, *settings_);
}

void CPanelPage::RefreshPreview() {
  renderer_.Refresh(*settings_, preview_, state_.bwThreshold, host_, state_.notifySize);
}

void CPanelPage::OnResize(ResizeKind kind, Size client) {
  if (kind == ResizeKind::minimised || dialog_ == nullptr) return;
  anchors_.Resize(*dialog_, client);
  store_.FitColumn();
}

// A child window's edit hears nothing when its parent goes; what was typed counts all the same.
void CPanelPage::LeaveFocusedEdit() {
  const Control* focused = dialog_->Focused();
  if (focused == nullptr || focused->Kind() != ControlKind::edit) return;
  Event left{EventKind::focusLost};
  left.controlId = focused->Id();
  OnEvent(left);
}

void CPanelPage::OnDestroying() {
  if (dialog_ == nullptr || isDetached_) return;
  LeaveFocusedEdit();
  OnClosing();
}

void CPanelPage::OnDestroyed() {
  if (!isDetached_) OnWindowGone();
  Unbind();
  LeaveWindow();
}

// Nothing of the window outlives it, so that the page can begin again.
void CPanelPage::LeaveWindow() {
  listsMayLack_ = false;
  dialog_ = nullptr;
  store_.Detach();
  anchors_.Clear();
  for (CWideDropCombo* combo : {&sizeCombo_, &resolutionCombo_, &scannerCombo_, &sourceCombo_}) combo->Detach();
  for (CRangeRealEdit* edit : {&resolutionEdit_, &widthEdit_, &heightEdit_}) edit->Detach();
  modeCombo_.Detach();
}

}  // namespace set32
