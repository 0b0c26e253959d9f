// The General page's message table, its start, its refresh and its end.
#include "panel/sheet/setting_box_page.h"

#include "controls/tips.h"
#include "panel/rules/mode_rules.h"
#include "resources/ids.h"
#include "set32/pointer_word.h"

namespace set32 {

namespace {

constexpr PanelFace sheetFace = {
    .rules = sheetFaceRules, .preview = sheetPreview, .sizeChoiceRefreshesPreview = true, .ownsFrameCommand = true};

constexpr Tip frameTips[] = {{id::removeFrameButton, text::removeFrameTip}};

}  // namespace

std::span<const MessageRow<CSettingBoxPage>> CSettingBoxPage::Messages() {
  using Page = CSettingBoxPage;
  static constexpr MessageRow<Page> rows[] = {
      {EventKind::selectionChosen, id::sourceCombo, &Page::OnSourceChoice},
      {EventKind::clicked, id::autoCropCheck, &Page::OnAutoCropClicked},
      {EventKind::tabChanged, id::frameTabs, &Page::OnFrameTabChange},
      {EventKind::clicked, id::removeFrameButton, &Page::OnRemoveFrame},
      {EventKind::rowClicked, id::configList, &Page::OnRowClicked},
      {EventKind::selectionChosen, id::scannerCombo, &Page::OnScannerChoice},
      {EventKind::clicked, id::refreshButton, &Page::OnRefreshScanners},
      {EventKind::dropDown, id::sizeCombo, &Page::OnSizeDropDown},
      {EventKind::dropDown, id::resolutionCombo, &Page::OnResolutionDropDown},
      {EventKind::dropDown, id::scannerCombo, &Page::OnScannerDropDown},
      {EventKind::dropDown, id::sourceCombo, &Page::OnSourceDropDown},
  };
  return rows;
}

CSettingBoxPage::CSettingBoxPage(ModuleState& state, AdjustmentFront& front)
    : CPanelPage(state, sheetFace), front_(front), scanners_(state, host_) {}

bool CSettingBoxPage::AnswersItself(const Event& event) {
  return Dispatch(*this, Messages(), event);
}

MessageResult CSettingBoxPage::OnMessage(std::uint32_t message, WParam wParam, LParam lParam) {
  switch (message) {
    case to_panel::frameReport:
      OnHostReport(wParam, FromParameter<ScanSettings>(lParam));
      return 0;
    case to_panel::autoCropOff:
      ClearAutoCrop();
      return 0;
    case to_panel::deviceQuestion:
      return 1;
    case to_panel::askAddress:
      scanners_.OnAskScannerAddress();
      return 0;
    default:
      return 0;
  }
}

// The page's whole start. The order is part of the behaviour: what the host's record holds decides the lists, and the
// record itself is replaced on the way by what the last run left.
void CSettingBoxPage::OnInit(Dialog& dialog) {
  AttachControls(dialog);
  EnterAnchors();
  store_.WriteFreshProfile();
  settings_->frameCommand = 0;
  Get<Button>(id::advancedButton).SetEnabled(false);
  Get<Button>(id::advancedButton).SetVisible(false);
  SetUpFrameTabs();
  ReadProductName();
  AttachPictures();
  FillUnits();
  DecideHighBit();
  if (!Options().PaperSourceControlsShown()) HidePaperSource(TopOfSource());
  AddTooltips();
  AddTips(dialog, state_.platform.system, frameTips);
  scanners_.Attach(dialog);
  scanners_.Start();
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
  const std::uint32_t source = settings_->paperSource;
  if (source == paper_source::feeder || IsTransparency(source)) ChangePaperSource();
  ShowModeAtStart();
  SetSizeRanges();
  Front().OnRefreshed();
  EnableRemoveButton();
  host_.AreaChanged(*settings_);
}

void CSettingBoxPage::EnterAnchors() {
  EnterSharedAnchors();
  anchors_.Add(anchor::moveY, {id::frameTabs, id::framesLabel, id::removeFrameButton});
}

// The scanner's row stands above on this face, so the list begins only where the paper source stood.
int CSettingBoxPage::TopOfSource() const {
  return Get<Combo>(id::sourceCombo).Place().top;
}

void CSettingBoxPage::RefreshPanel() {
  ShowRecord();
  host_.ModeShown(settings_->mode);
  TellValues();
  scanners_.ReportAtPanelRefresh();
  Front().OnRefreshed();
  RefreshPreview();
}

void CSettingBoxPage::OnClosing() {
  scanners_.StoreAtClose();
}

// Where the host ended the page before the last settings were read, they would be lost by writing.
void CSettingBoxPage::OnWindowGone() {
  if (hasRecord_) store_.WriteLastSettings(*settings_, pageSource_);
  scanners_.ClearScannerList();
  settings_->highBitDepth = 0;
}

}  // namespace set32
