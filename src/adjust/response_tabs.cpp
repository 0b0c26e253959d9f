// The tabs of the Advanced page and its picture area.
#include <algorithm>

#include "adjust/area_drawing.h"
#include "adjust/response_page.h"
#include "resources/ids.h"

namespace set32 {

// A bar or a combo that isn't there stands at its first entry.
View CResponsePage::CurrentView() const {
  const int last = static_cast<int>(responseTabs.size()) - 1;
  return static_cast<View>(std::clamp(Get<TabBar>(id148::viewTabs).Current(), 0, last));
}

Band CResponsePage::SelectedBand() const {
  return static_cast<Band>(std::clamp(Get<Combo>(id148::bandCombo).Selected(), 0, static_cast<int>(Band::blue)));
}

void CResponsePage::OnTabChanged(const Event&) {
  const ResponseTab& tab = Tab();
  const bool hasBands = tab.bandLabel != 0;
  Show({id148::bandLabel, id148::bandCombo, id148::xLabel, id148::yLabel, id148::xValue, id148::yValue}, hasBands);
  Show({id148::blurLabel, id148::sharpenLabel}, tab.showsScale);
  Show({id148::autoButton, id148::resetButton2}, false);
  if (hasBands) Get<Label>(id148::bandLabel).SetText(String(tab.bandLabel));
  for (const Slot slot : {Slot::first, Slot::second}) {
    Get<Label>(ControlsOf(slot).label).SetText(String(ValueOf(slot).label));
  }
  NameWithoutText();
  ShapeSliders();
  ShowValues();
  DrawPicture();
  UpdateEnabling(panel_->Settings());
}

// The bar is called what its tab is about. A slider is called as its edit is, which the label before that names;
// without the label's colon, so that a person hears two.
void CResponsePage::NameWithoutText() {
  Get<TabBar>(id148::viewTabs).SetName(String(Tab().tip));
  for (const Slot slot : {Slot::first, Slot::second}) {
    std::string name = String(ValueOf(slot).label);
    if (name.ends_with(':')) name.pop_back();
    Get<Slider>(ControlsOf(slot).slider).SetName(name);
  }
}

void CResponsePage::ShapeSliders() {
  for (const Slot slot : {Slot::first, Slot::second}) {
    const SliderShape& shape = ValueOf(slot).slider;
    Slider& slider = Get<Slider>(ControlsOf(slot).slider);
    slider.SetRange(shape.range.low, shape.range.high);
    slider.SetTickFrequency(shape.tick);
    slider.SetLineSize(shape.line);
  }
}

void CResponsePage::OnBandChosen(const Event&) {
  switch (CurrentView()) {
    case View::gammaCurve:
      ShowText(Slot::first);
      ShowPosition(Slot::first);
      DrawGammaCurve(SelectedBand());
      break;
    case View::histogram:
      DrawHistogram(SelectedBand());
      break;
    case View::hueWheel:
      break;
  }
}

void CResponsePage::OnPaint(const Event&) {
  DrawPicture();
}

void CResponsePage::DrawPicture() {
  switch (CurrentView()) {
    case View::gammaCurve:
      DrawGammaCurve(SelectedBand());
      break;
    case View::histogram:
      ShowNewHistogram();
      break;
    case View::hueWheel:
      DrawHueWheel();
      break;
  }
}

void CResponsePage::DrawGammaCurve(Band band) {
  Get<Frame>(id148::pictureFrame).Draw([&](Canvas& canvas) {
    set32::DrawGammaCurve(canvas, band, GammaOf(values_, band));
  });
}

void CResponsePage::ComputeHistogram() {
  histogram_ = set32::ComputeHistogram(panel_->Preview());
}

void CResponsePage::DrawHistogram(Band band) {
  if (!histogram_) ComputeHistogram();
  Get<Frame>(id148::pictureFrame).Draw([&](Canvas& canvas) { set32::DrawHistogram(canvas, band, *histogram_); });
}

// Of the display pixels as they are now. What nobody sees isn't counted; showing the page paints it.
void CResponsePage::ShowNewHistogram() {
  histogram_.reset();
  if (!dialog_->IsVisible()) return;
  ComputeHistogram();
  DrawHistogram(SelectedBand());
}

void CResponsePage::DrawHueWheel() {
  Get<Frame>(id148::pictureFrame).Draw([&](Canvas& canvas) {
    const auto [width, height] = canvas.Area();
    canvas.Fill({0, 0, width, height}, canvas.ColourOf(SystemColour::buttonFace));
    set32::DrawHueWheel(canvas, hueWheel_);
  });
}

void CResponsePage::OnPointerMoved(Point at) {
  if (!HasWindow() || CurrentView() == View::hueWheel) return;
  const Rect area = Get<Frame>(id148::pictureFrame).Place();
  const Band band = SelectedBand();
  std::optional<Readout> readout;
  bool nearCurve = false;
  if (CurrentView() == View::gammaCurve) {
    const auto place = CurveReadout(area, at, GammaOf(values_, band));
    if (place) readout = place->readout;
    nearCurve = place && place->nearCurve;
  } else if (area.Contains(at)) {
    if (!histogram_) ComputeHistogram();
    readout = HistogramReadout(area, at, band, *histogram_);
  }
  if (!readout) return;
  Get<Label>(id148::xValue).SetText(std::to_string(readout->x));
  Get<Label>(id148::yValue).SetText(std::to_string(readout->y));
  if (nearCurve) DrawGammaCurve(band);
}

}  // namespace set32
