// The inline page's message table, its start, its refresh and its end.
#include "panel/inline/inline_setting_page.h"

#include "panel/rules/mode_rules.h"
#include "resources/ids.h"
#include "set32/pointer_word.h"

namespace set32 {

namespace {

constexpr PanelFace inlineFace = {.rules = inlineFaceRules,
                                  .preview = inlinePreview,
                                  .sizeChoiceRefreshesPreview = false,
                                  .ownsFrameCommand = false};

}  // namespace

std::span<const MessageRow<CInlineSettingPage>> CInlineSettingPage::Messages() {
  using Page = CInlineSettingPage;
  static constexpr MessageRow<Page> rows[] = {
      {EventKind::focusGained, id::resolutionEdit, &Page::OnResolutionEditEnter},
      {EventKind::selectionChosen, id::sourceCombo, &Page::OnSourceChoice},
      {EventKind::clicked, id::autoCropCheck, &Page::OnAutoCropClicked},
      {EventKind::clicked, id::advancedButton, &Page::OnAdvancedClicked},
      {EventKind::rowClicked, id::configList, &Page::OnRowClicked},
  };
  return rows;
}

CInlineSettingPage::CInlineSettingPage(ModuleState& state)
    : CPanelPage(state, inlineFace), gammaDialog_(state, *this) {}

bool CInlineSettingPage::AnswersItself(const Event& event) {
  return Dispatch(*this, Messages(), event);
}

MessageResult CInlineSettingPage::OnMessage(std::uint32_t message, WParam wParam, LParam lParam) {
  if (message == to_panel::frameReport) OnHostReport(wParam, FromParameter<ScanSettings>(lParam));
  if (message == to_panel::autoCropOff) ClearAutoCrop();
  return 0;
}

// The page's whole start. The host's source stays the record's own, while the page begins with the one that the
// options name; the last settings replace everything else of the record.
void CInlineSettingPage::OnInit(Dialog& dialog) {
  AttachControls(dialog);
  dialog.RemoveCaption();
  state_.boxOwner = dialog.Handle();
  ShowControlsOfFace();
  ReadProductName();
  AttachPictures();
  FillUnits();
  DecideHighBit();
  if (!Options().PaperSourceControlsShown()) HidePaperSource(TopOfGroup());
  AddTooltips();
  FillSources();
  store_.SetUpList();
  StartStore();
  BuildSizeList();
  shownUnits_ = settings_->units;
  FirstRefresh();
  store_.HoldSelectedRow();
  store_.SetButtons();
  SelectSource(pageSource_);
  ShowAutoCropAtStart();
  FillModes();
  if (IsTransparency(settings_->paperSource)) ChangePaperSource();
  ShowModeAtStart();
  SetSizeRanges();
}

// Frames and scanners have no part in this face, the advanced dialog has.
void CInlineSettingPage::ShowControlsOfFace() {
  Get<Button>(id::removeFrameButton).SetVisible(false);
  Get<TabBar>(id::frameTabs).SetVisible(false);
  Get<Label>(id::framesLabel).SetVisible(false);
  Get<Label>(id::scannerLabel).SetVisible(false);
  Get<Combo>(id::scannerCombo).SetVisible(false);
  Get<Button>(id::refreshButton).SetVisible(false);
  // It takes the row that the frames leave free; its own is under the width's picture.
  Button& advanced = Get<Button>(id::advancedButton);
  const Rect place = advanced.Place();
  const int top = Get<Label>(id::framesLabel).Place().top;
  advanced.Move({place.left, top, place.right, top + place.Height()});
  advanced.SetVisible(true);
  advanced.SetEnabled(true);
}

// Nothing stands between the group's caption and the list once the paper source is hidden.
int CInlineSettingPage::TopOfGroup() const {
  constexpr int belowCaption = 18;  // pixels
  return Get<GroupBox>(id::listGroup).Place().top + belowCaption;
}

void CInlineSettingPage::FinishOpening() {
  EnterSharedAnchors();
  isOpen_ = true;
}

void CInlineSettingPage::RefreshPanel() {
  ShowRecord();
  host_.ModeShown(settings_->mode);
  TellValues();
  RefreshPreview();
  Front().OnRefreshed();
}

void CInlineSettingPage::OnEnabled(bool enabled) {
  gammaDialog_.SetEnabled(enabled);
}

void CInlineSettingPage::OnClose() {
  isOpen_ = false;
  if (dialog_ != nullptr) dialog_->Destroy();
}

// The advanced dialog works on the page's record, so it ends first.
void CInlineSettingPage::OnClosing() {
  gammaDialog_.Close();
}

void CInlineSettingPage::OnWindowGone() {
  isOpen_ = false;
  state_.boxOwner = 0;
}

}  // namespace set32
