// CResponsePage: the Advanced page of the sheet face, dialog 148.
//
// It keeps a working copy of the adjustments. An event changes the copy, the preview follows at once, and at the
// event's end SyncToSettings lays the whole copy into the record and tells the host. Three tabs share two sets of
// controls (a label, an edit, a slider and a spin each) and one picture area; what a tab is stands in responseTabs.
//
// One class, one file a topic: response_page.cpp (message table, start, loading), response_values.cpp (the values and
// their way to preview and record), response_options.cpp (the check boxes, and what is enabled), response_tabs.cpp
// (the tabs and the picture area).
//
// The host may end the page inside any message to it; the controls are then null objects and the panel has a record
// of its own. So no reference to a record is kept across a message. Host's thread only.
#pragma once

#include <functional>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>

#include "adjust/histogram.h"
#include "adjust/response_rules.h"
#include "boundary/adjustment_front.h"
#include "boundary/module_state.h"
#include "boundary/panel_services.h"
#include "controls/anchors.h"
#include "controls/message_table.h"
#include "platform/windows.h"
#include "set32/host_records.h"

namespace set32 {

class CResponsePage : public DialogHandler, public AdjustmentFront {
 public:
  explicit CResponsePage(ModuleState& state) : state_(state) {}
  CResponsePage(const CResponsePage&) = delete;
  CResponsePage& operator=(const CResponsePage&) = delete;

  // The General page. Once, before this page has a window.
  void SetPanel(PanelServices& panel) { panel_ = &panel; }

  bool HasWindow() const { return handled_ != nullptr && handled_->IsAlive(); }

  // AdjustmentFront
  void OnModeTold() override;
  void OnRefreshed() override;

  // DialogHandler
  void OnInit(Dialog& dialog) override;
  void OnEvent(const Event& event) override;
  void OnResize(ResizeKind kind, Size client) override;
  void OnShown(bool shown) override;
  void OnPointerMoved(Point at) override;
  void OnOk() override {}  // Enter and Escape have no effect on a page
  void OnCancel() override {}

 private:
  static std::span<const MessageRow<CResponsePage>> Messages();

  // The upper or the lower set of controls.
  enum class Slot { first, second };

  // Start.
  void EnterAnchors();
  void SetUpTabs();
  void AddTooltips();
  void FillBands(std::initializer_list<int> texts);

  // What the page takes from the record. None of it sends a message.
  // The working copy; with a window also the bands on offer and the marks of the check boxes.
  void LoadFromSettings(const ScanSettings& settings);
  // By tab and mode.
  void UpdateEnabling(const ScanSettings& settings);
  // The record's values on the current tab, also where the copy has others.
  void ShowSettings(const ScanSettings& settings);

  // Values: what the controls do, and the steps that follow a change.
  void OnScroll(const Event& event);
  void OnSpin(const Event& event);
  void OnEditLeft(const Event& event);
  void OnReset(const Event& event);
  void Reset();
  void FollowChange(Adjustment adjustment);
  void PushGamma();
  void PushBrightnessContrast();
  void PushSharpness() { PushToRecord(Adjustment::sharpness); }
  void PushSaturation() { PushToRecord(Adjustment::saturation); }
  void PushHue() { PushToRecord(Adjustment::hue); }
  void PushToRecord(Adjustment adjustment);
  void SyncToSettings();
  void ShowText(Slot slot);
  void ShowPosition(Slot slot);
  void ShowValues();

  // Options: the check boxes, their radio buttons, and what is enabled.
  void OnDescreenClicked(const Event& event);
  void OnDescreenKind(const Event& event);
  void OnHighBitClicked(const Event& event);
  void TakeHighBit();
  void LeaveHighBit();
  bool TurnCheck(int checkId);
  void CheckDescreenKind(std::uint32_t kind);
  void EnableDescreenByHighBit();
  void Enable(std::initializer_list<int> controlIds, bool enabled);
  void Enable(std::initializer_list<int> controlIds, Enabling enabling);

  // Tabs and the picture area.
  void OnTabChanged(const Event& event);
  void OnBandChosen(const Event& event);
  void OnPaint(const Event& event);
  void NameWithoutText();
  void ShapeSliders();
  void DrawPicture();
  void DrawGammaCurve(Band band);
  void ComputeHistogram();
  void DrawHistogram(Band band);
  void ShowNewHistogram();
  void DrawHueWheel();

  View CurrentView() const;
  const ResponseTab& Tab() const { return responseTabs[static_cast<std::size_t>(CurrentView())]; }
  const TabValue& ValueOf(Slot slot) const { return Tab().value[static_cast<std::size_t>(slot)]; }
  ShownValue ShownIn(Slot slot) const { return {ValueOf(slot).adjustment, SelectedBand()}; }
  Band SelectedBand() const;
  void Show(std::initializer_list<int> controlIds, bool visible);
  std::string String(int id) const;
  template <typename T>
  T& Get(int id) const {
    return dialog_->Get<T>(id);
  }

  struct ValueControls {
    int edit, slider, spin, label;
  };
  static const ValueControls& ControlsOf(Slot slot);
  static Slot SlotOf(int controlId);

  ModuleState& state_;
  PanelServices* panel_ = nullptr;
  Dialog* dialog_ = nullptr;  // set once, good as long as the sheet stands
  CAnchors anchors_;

  ResponseValues values_;
  bool pendingStore_ = false;           // the record has changed since the page was last shown
  bool isEnabling_ = false;             // controls are being enabled or disabled by the page itself
  std::optional<Histogram> histogram_;  // none: not counted since the picture changed
  Picture hueWheel_;
};

}  // namespace set32
