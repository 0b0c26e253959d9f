// CPanelPage: what the pages of both faces share. It owns no copy of the settings but edits the host's record in
// place, and keeps the controls, the configuration list, the preview and the host in step.
//
// One class, one file a topic: panel_page.cpp (binding, refresh, end), resolution.cpp, size.cpp, mode.cpp,
// paper_source.cpp, auto_crop.cpp, frames.cpp, host_report.cpp. A handler is the list of its steps, and the order of
// the steps is part of the behaviour: the field first, then what is saved, then the screen, then the host, last the
// preview.
//
// The host may end the page inside any message to it. From then on the page works on a record of its own and sends
// nothing, so that a handler still under way touches nothing of the host's. Host's thread only.
#pragma once

#include <cstdint>
#include <string>

#include "adjust/own_image_library.h"
#include "adjust/preview.h"
#include "boundary/host_link.h"
#include "boundary/module_state.h"
#include "boundary/panel_services.h"
#include "controls/bitmap_button.h"
#include "controls/icon_combo.h"
#include "controls/range_real_edit.h"
#include "controls/wide_drop_combo.h"
#include "dib.h"
#include "host_records.h"
#include "panel/anchors.h"
#include "panel/rules/face_rules.h"
#include "panel/rules/resolution_rules.h"
#include "panel/rules/size_rules.h"
#include "platform/windows.h"
#include "profile/config_store.h"
#include "profile/options.h"

namespace set32 {

// Everything in which a face differs, apart from the hooks.
struct PanelFace {
  const FaceRules& rules;
  const StoreFace& store;
  const PreviewFace& preview;
  bool sizeChoiceRefreshesPreview;
};

class CPanelPage : public DialogHandler, public PanelServices {
 public:
  CPanelPage(ModuleState& state, const PanelFace& face);
  CPanelPage(const CPanelPage&) = delete;
  CPanelPage& operator=(const CPanelPage&) = delete;

  // Takes what the host gave; touches no control, so it can run before the window stands. `settings` is not null;
  // null limits stand for the defaults.
  void Bind(const DeviceLimits* limits, ScanSettings& settings, WindowHandle hostWindow, CDib* preview);
  void SetCaps(const DeviceCaps& caps) { caps_ = caps; }

  // PanelServices
  ScanSettings& Settings() override { return *settings_; }
  HostLink& Host() override { return host_; }
  CDib* Preview() const override { return preview_; }
  std::uint32_t RestrictedMaxDpi() const override { return caps_.restrictedMaxDpi(); }
  AdjustmentDefaults ReadAdjustmentDefaults() const override;
  std::uint32_t PageSource() const override { return pageSource_; }
  std::uint32_t ShownUnits() const override { return shownUnits_; }
  void RefreshPanel() override;
  void RefreshPreview() override;
  void BuildResolutionList() override;
  void AutoSaveConfig() override { store_.AutoSaveConfig(); }
  void RemoveAllFrames() override;
  void RepeatAutoCrop(Saving saving) override;

  // The module's state is dropped while the page stands: its end then writes nothing and tells nobody.
  void Detach() { isDetached_ = true; }

  // 0 while the page has no window; its dialog object may be gone then as well, as after a death inside its start.
  WindowHandle Window() const { return handled_ != nullptr ? handled_->Handle() : 0; }

  // DialogHandler
  void OnResize(ResizeKind kind, Size client) override;
  void OnOk() override {}  // Enter and Escape have no effect on a page
  void OnCancel() override {}
  void OnDestroying() override;
  void OnDestroyed() override;

 protected:
  // Hooks of the faces.
  virtual void OnRefreshTold() = 0;  // behind the messages of a refresh: what else follows the settings, the preview
  virtual void OnModeShown() = 0;    // behind a choice of mode other than JPEG
  virtual void OnClosing() = 0;      // the window is about to go, everything stands
  virtual void OnWindowGone() = 0;   // the window is gone, the host's record is still valid

  // Steps of a page's start.
  void AttachControls(Dialog& dialog);
  void ReadProductName();
  void DecideHighBit();
  void AttachPictures();
  void FillUnits();
  void FillSources();
  void FillModes();
  enum class Frames { none, some };
  void AddTooltips(Frames frames);
  void HidePaperSource();
  void FirstRefresh();

  // Resolution.
  void OnResolutionChoice(const Event& event);
  void OnResolutionEdit(const Event& event);

  // Size.
  void BuildSizeList();
  void ShowSizeText();
  void SetSizeRanges();
  void ApplySizeChoice();
  void OnSizeChoice(const Event& event);
  void OnUnitChoice(const Event& event);
  void OnSizeEditEnter(const Event& event);
  void OnWidthEdit(const Event& event);
  void OnHeightEdit(const Event& event);

  // Mode.
  void OnModeChoice(const Event& event);
  void OnColourClicked(const Event& event);
  void OnGrayClicked(const Event& event);
  void OnBlackWhiteClicked(const Event& event);
  void SetColorMode();
  void SetGrayMode();
  void SetBwMode();
  void SetJpegColorMode();
  void SetJpegGrayMode();
  void SelectMode(std::uint32_t mode);
  void ApplyMode(std::uint32_t mode);
  void OfferModes();
  void FitModeEntries();

  // Paper source.
  void ChangePaperSource();
  void SelectSource(std::uint32_t source);
  void ShowControlsOfSource();

  // Auto crop.
  void ToggleAutoCrop();
  void ClearAutoCrop();
  void OnAutoCropClicked(const Event& event);

  // Frames.
  void SetUpFrameTabs();
  void ActOnFrameCommand(const FrameCommand& command);
  void OnRemoveFrame(const Event& event);
  void OnFrameTabChange(const Event& event);
  void EnableRemoveButton();
  void TellFrameRemoved(int frame);

  // Host.
  void OnHostReport(WParam change, const ScanSettings* reported);

  // Configurations.
  void OnRowChanged(const Event& event) { store_.OnRowChanged(event); }
  void OnRowClicked(const Event& event) { store_.OnRowClicked(event); }
  void OnSaveClicked(const Event&) { store_.SaveConfigAs(); }
  void OnDeleteClicked(const Event&) { store_.DeleteConfig(); }

  // Combos.
  void OnSizeDropDown(const Event&) { sizeCombo_.OnDropDown(); }
  void OnResolutionDropDown(const Event&) { resolutionCombo_.OnDropDown(); }
  void OnScannerDropDown(const Event&) { scannerCombo_.OnDropDown(); }
  void OnSourceDropDown(const Event&) { sourceCombo_.OnDropDown(); }

  template <typename T>
  T& Get(int id) const {
    return dialog_->Get<T>(id);
  }
  std::string String(int id) const;
  RuntimeOptions Options() const;
  ResolutionInput ResolutionNow() const;

  ModuleState& state_;
  const PanelFace& face_;
  HostLink host_;
  CConfigStore store_;
  OwnImageLibrary imageLibrary_;
  PreviewRenderer renderer_;
  CAnchors anchors_;

  ScanSettings own_{};  // what the page works on while no host's record is bound
  ScanSettings* settings_ = &own_;
  CDib* preview_ = nullptr;
  Dialog* dialog_ = nullptr;

  std::uint32_t pageSource_ = 0;  // differs from the record's source only while a change is under way
  std::uint32_t shownUnits_ = 0;
  DeviceLimits limits_{};  // minDpi by the panel's own rule
  DeviceCaps caps_{};
  bool autoSaveOnCrop_ = true;
  bool isDetached_ = false;

 private:
  // What a choice of mode does once the field has its value.
  void FinishModeChoice(std::uint32_t before);
  void SetJpegMode(std::uint32_t mode);
  void LeaveSizeEdit(Dimension dimension);
  void SelectSize(std::uint32_t sizeId);
  void TakeSizeReport(WParam change, const ScanSettings& report);
  void LeaveFocusedEdit();

  CRangeRealEdit resolutionEdit_;
  CRangeRealEdit widthEdit_;
  CRangeRealEdit heightEdit_;
  CWideDropCombo sizeCombo_;
  CWideDropCombo resolutionCombo_;
  CWideDropCombo scannerCombo_;
  CWideDropCombo sourceCombo_;
  CIconCombo modeCombo_;
};

}  // namespace set32
