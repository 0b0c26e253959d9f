// The Advanced page's message table, its start, and what it takes from a record.
#include "adjust/response_page.h"

#include <algorithm>

#include "resources/ids.h"
#include "resources/pictures.h"
#include "resources/strings.h"

namespace set32 {

std::span<const MessageRow<CResponsePage>> CResponsePage::Messages() {
  using Page = CResponsePage;
  static constexpr MessageRow<Page> rows[] = {
      {EventKind::tabChanged, id148::viewTabs, &Page::OnTabChanged},
      {EventKind::selectionChosen, id148::bandCombo, &Page::OnBandChosen},
      {EventKind::scrolled, id148::firstSlider, &Page::OnScroll},
      {EventKind::scrolled, id148::secondSlider, &Page::OnScroll},
      {EventKind::focusLost, id148::firstEdit, &Page::OnEditLeft},
      {EventKind::focusLost, id148::secondEdit, &Page::OnEditLeft},
      {EventKind::spinDelta, id148::firstSpin, &Page::OnSpin},
      {EventKind::spinDelta, id148::secondSpin, &Page::OnSpin},
      {EventKind::clicked, id148::resetButton, &Page::OnReset},
      {EventKind::clicked, id148::resetButton2, &Page::OnReset},
      {EventKind::clicked, id148::descreenCheck, &Page::OnDescreenClicked},
      {EventKind::clicked, id148::highBitCheck, &Page::OnHighBitClicked},
      {EventKind::clicked, id148::magazineRadio, &Page::OnDescreenKind},
      {EventKind::clicked, id148::newspaperRadio, &Page::OnDescreenKind},
      {EventKind::clicked, id148::picturePrintRadio, &Page::OnDescreenKind},
      {EventKind::paint, 0, &Page::OnPaint},
  };
  return rows;
}

void CResponsePage::OnEvent(const Event& event) {
  Dispatch(*this, Messages(), event);
}

void CResponsePage::OnResize(ResizeKind kind, Size client) {
  if (kind == ResizeKind::minimised || dialog_ == nullptr) return;
  anchors_.Resize(*dialog_, client);
}

// A person turned to the page or away from it.
void CResponsePage::OnShown(bool shown) {
  if (shown) {
    pendingStore_ = false;
  } else if (pendingStore_) {
    panel_->AutoSaveConfig();
  }
}

void CResponsePage::OnInit(Dialog& dialog) {
  dialog_ = &dialog;
  EnterAnchors();
  SetUpTabs();
  AddTooltips();
  NameWithoutText();
  ShapeSliders();
  for (const char* const band : {"All", "Red", "Green", "Blue"}) Get<Combo>(id148::bandCombo).Add(band);
  Get<Combo>(id148::bandCombo).SelectIndex(0);
  ShowValues();
  Show({id148::autoButton, id148::resetButton2}, false);
  CheckDescreenKind(descreen_kind::magazine);
  hueWheel_ = LoadPicture(picture::hueWheel);
  const bool hasLevels = AllowedBy(panel_->Settings().mode, false).sharpness;
  Enable({id148::secondSlider, id148::secondEdit, id148::secondSpin, id148::blurLabel, id148::sharpenLabel},
         hasLevels);
  Enable({id148::highBitCheck}, !state_.highBitRestricted);

  // It stands whole when it is first seen.
  OnRefreshed();
}

void CResponsePage::EnterAnchors() {
  anchors_.Add(anchor::moveY | anchor::stretchY, {id148::pictureFrame, id148::pageGroup});
  anchors_.Add(anchor::moveY,
               {id148::xLabel,        id148::xValue,        id148::yLabel,         id148::yValue,
                id148::loadButton,    id148::saveButton,    id148::resetButton,    id148::firstLabel,
                id148::firstSlider,   id148::firstEdit,     id148::firstSpin,      id148::highBitCheck,
                id148::secondLabel,   id148::secondEdit,    id148::secondSpin,     id148::secondSlider,
                id148::blurLabel,     id148::sharpenLabel,  id148::autoButton,     id148::resetButton2,
                id148::descreenCheck, id148::magazineRadio, id148::newspaperRadio, id148::picturePrintRadio});
}

void CResponsePage::SetUpTabs() {
  constexpr int imageWidth = 42;  // pixels
  constexpr Colour transparent{255, 0, 255};
  TabBar& tabs = Get<TabBar>(id148::viewTabs);
  tabs.SetImages(LoadPicture(picture::viewTabs), imageWidth, transparent);
  for (std::size_t i = 0; i < responseTabs.size(); ++i) tabs.Add("", static_cast<int>(i));
  tabs.SetPadding({1, 2});
  tabs.SetCurrent(0);
}

// The tabs have no text: a tip over each third of the bar, less its edges, says what they are.
void CResponsePage::AddTooltips() {
  constexpr int edges = 10;  // pixels
  const Size bar = Get<TabBar>(id148::viewTabs).ClientSize();
  const int width = std::max(bar.width - edges, 0) / static_cast<int>(responseTabs.size());
  Tooltip& tooltip = dialog_->Tips();
  tooltip.Activate();
  int left = 0;
  for (const ResponseTab& tab : responseTabs) {
    tooltip.AddTool(id148::viewTabs, {left, 0, left + width, bar.height}, String(tab.tip));
    left += width;
  }
}

void CResponsePage::FillBands(std::initializer_list<int> texts) {
  Combo& combo = Get<Combo>(id148::bandCombo);
  combo.Clear();
  for (const int text : texts) combo.Add(String(text));
}

void CResponsePage::OnModeTold() {
  if (HasWindow()) UpdateEnabling(panel_->Settings());
  LoadFromSettings(panel_->Settings());
}

void CResponsePage::OnRefreshed() {
  LoadFromSettings(panel_->Settings());
  if (!HasWindow()) return;
  UpdateEnabling(panel_->Settings());
  ShowSettings(panel_->Settings());
  dialog_->Invalidate();  // the picture area follows once the preview does
}

void CResponsePage::LoadFromSettings(const ScanSettings& settings) {
  values_ = LoadedFrom(settings);
  if (!HasWindow()) return;
  Combo& combo = Get<Combo>(id148::bandCombo);
  if (IsColourMode(settings.mode)) {
    const int selected = combo.Selected();
    FillBands({text::bandAll, text::bandRed, text::bandGreen, text::bandBlue});
    combo.SelectIndex(selected);
  } else if (IsKnownMode(settings.mode) && combo.Count() > 1) {
    FillBands({text::bandAll});
    combo.SelectIndex(0);
  }
  Get<CheckButton>(id148::descreenCheck).SetChecked(values_.descreen != 0);
  Get<CheckButton>(id148::highBitCheck).SetChecked(values_.highBitDepth != 0);
}

void CResponsePage::ShowSettings(const ScanSettings& settings) {
  for (const Slot slot : {Slot::first, Slot::second}) {
    const ValueControls& controls = ControlsOf(slot);
    const ShownValue shown = ShownIn(slot);
    Get<Edit>(controls.edit).SetText(TextOf(settings, shown));
    Get<Slider>(controls.slider).SetPosition(PositionOf(settings, shown));
  }
}

void CResponsePage::Show(std::initializer_list<int> controlIds, bool visible) {
  for (const int controlId : controlIds) Get<Control>(controlId).SetVisible(visible);
}

std::string CResponsePage::String(int id) const {
  return LoadString(state_.platform.system, id);
}

}  // namespace set32
