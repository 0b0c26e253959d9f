// CPanelPage: what the pages of both faces share. It owns no copy of the settings but edits the host's record in
// place, and keeps the controls, the configuration list, the preview and the host in step.
//
// The shared page owns steps, a face owns sequences. A step does one thing to the record, the screen or the host; a
// handler is the list of its steps, and their order is part of the behaviour: the field first, then what is saved,
// then the screen, then the host, last the preview. A handler that is the same on both faces stands here, in the file
// of its topic (resolution, size, mode, paper_source, auto_crop, host_report, configurations); one that differs is
// written by each face under the same topic in panel/sheet and panel/inline, from these steps.
//
// The host may end the page inside any message to it, and open another one. From the page's end on it works on a
// record of its own, its controls are absent ones and it sends nothing, so that a handler still under way runs out
// without touching anything of the host's. No handler keeps a reference to a control across a message. Host's thread
// only.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "adjust/own_image_library.h"
#include "adjust/preview.h"
#include "boundary/adjustment_front.h"
#include "boundary/host_link.h"
#include "boundary/module_state.h"
#include "boundary/panel_services.h"
#include "controls/anchors.h"
#include "controls/icon_combo.h"
#include "controls/message_table.h"
#include "controls/range_real_edit.h"
#include "controls/wide_drop_combo.h"
#include "panel/rules/face_rules.h"
#include "panel/rules/resolution_rules.h"
#include "panel/rules/size_rules.h"
#include "platform/windows.h"
#include "profile/config_store.h"
#include "profile/options.h"
#include "set32/dib.h"
#include "set32/host_records.h"

namespace set32 {

// Everything in which a face differs by data.
struct PanelFace {
  const FaceRules& rules;
  const PreviewFace& preview;
  bool sizeChoiceRefreshesPreview;
  bool ownsFrameCommand;  // the record's frame command is cleared before the host is told of values
};

class CPanelPage : public DialogHandler, public PanelServices {
 public:
  CPanelPage(ModuleState& state, const PanelFace& face);
  CPanelPage(const CPanelPage&) = delete;
  CPanelPage& operator=(const CPanelPage&) = delete;

  // Takes what the host gave; touches no control, so it can run before the window stands. `settings` is not null;
  // null limits stand for the defaults.
  void Bind(const DeviceLimits* limits, ScanSettings& settings, WindowHandle hostWindow, CDib* preview);
  // Leaves what the host gave; the record is then the page's own.
  void Unbind();
  // What a binding replaces, to be put back. False, and nothing happens, when there was more than one since.
  struct Binding {
    ScanSettings* settings;
    CDib* preview;
    WindowHandle hostWindow;
    DeviceLimits limits;
    DeviceCaps caps;
    std::uint32_t number;
  };
  Binding Bound() const { return {settings_, preview_, host_.Window(), limits_, caps_, bindings_}; }
  bool Rebind(const Binding& before);
  void SetCaps(const DeviceCaps& caps) { caps_ = caps; }

  // PanelServices; RefreshPanel and AutoSaveConfig are the faces'.
  ScanSettings& Settings() override { return *settings_; }
  HostLink& Host() override { return host_; }
  CDib* Preview() const override { return preview_; }
  std::uint32_t RestrictedMaxDpi() const override { return caps_.restrictedMaxDpi(); }
  AdjustmentDefaults ReadAdjustmentDefaults() const override;
  void RefreshPreview() override;
  void BuildResolutionList() override;

  // The module's state is dropped while the page stands: its end then writes nothing and tells nobody.
  void Detach() { isDetached_ = true; }

  // 0 while the page has no window. The host may end a page, and open another, while a dialog of its own runs.
  WindowHandle Window() const { return dialog_ != nullptr ? dialog_->Handle() : 0; }
  // Whether a dialog has this page, also while it is being made.
  bool HasDialog() const { return handled_ != nullptr; }
  bool StillStands(WindowHandle window) const { return window != 0 && Window() == window; }

  // Takes leave of a window that is gone, or never stood whole.
  void LeaveWindow();

  // DialogHandler. A face answers its own events first and leaves the others to this table.
  void OnEvent(const Event& event) override;
  void OnResize(ResizeKind kind, Size client) override;
  void OnOk() override {}  // Enter and Escape have no effect on a page
  void OnCancel() override {}
  void OnDestroying() override;
  void OnDestroyed() override;

 protected:
  // Whether an event is the face's own; it is answered then.
  virtual bool AnswersItself(const Event& event) = 0;
  // The front end of the adjustments beside this face.
  virtual AdjustmentFront& Front() = 0;
  // What a face does at its end.
  virtual void OnClosing() = 0;     // the window is about to go, everything stands
  virtual void OnWindowGone() = 0;  // the window is gone, the host's record is still valid
  // An edit of the size lost the focus.
  virtual void LeaveSizeEdit(Dimension dimension) = 0;

  // Steps of a page's start.
  void EnterSharedAnchors();
  void AttachControls(Dialog& dialog);
  void ReadProductName();
  void DecideHighBit();
  void AttachPictures();
  void FillUnits();
  void FillSources();
  void FillModes();
  void AddTooltips();
  void HidePaperSource(int listTop);
  void FirstRefresh();
  void ShowAutoCropAtStart();
  void ShowModeAtStart();

  // Steps of a refresh.
  void RebuildLists();
  void ShowRecord();
  void TellValues();

  // Resolution.
  void OnResolutionChoice(const Event& event);
  void OnResolutionEdit(const Event& event);

  // Size.
  void BuildSizeList();
  void SelectSize(std::uint32_t sizeId);
  void ShowSizeText();
  void ShowLength(Dimension dimension, double inches);
  void SetSizeRanges();
  void ApplySizeChoice();
  struct TypedSize {
    std::string text;
    double inches;
  };
  TypedSize ReadTypedSize(Dimension dimension) const;
  bool IsGood(const TypedSize& typed, Dimension dimension) const;
  void RefuseTypedSize(Dimension dimension);
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
  void SelectSource(std::uint32_t source);
  void TakeChosenSource();
  void SetMinDpiOfSource();
  void ShowInchesUnless(std::uint32_t sourceBefore);

  // Auto crop.
  void ClearAutoCrop();
  void TurnAutoCrop();
  void GoBackToLetter();

  // Host's reports.
  bool IsNewSize(const ScanSettings& report) const;
  void KeepReportedSize(const ScanSettings& report);
  void TakeUserSize();
  void TakeReportedCrop();
  void TakeReportedArea(const ScanSettings& report);
  void ShowReportedUnits(const ScanSettings& report);

  // Configurations.
  void MarkRowAtStart();
  void BuildRowsOfSource();
  void LoadSelectedRow();
  void OnRowChanged(const Event& event);
  void OnSaveClicked(const Event& event);
  void OnDeleteClicked(const Event& event);
  void SaveConfigAs();
  void DeleteConfig();

  // Combos.
  void OnSizeDropDown(const Event&) { sizeCombo_.OnDropDown(); }
  void OnResolutionDropDown(const Event&) { resolutionCombo_.OnDropDown(); }
  void OnScannerDropDown(const Event&) { scannerCombo_.OnDropDown(); }
  void OnSourceDropDown(const Event&) { sourceCombo_.OnDropDown(); }

  template <typename T>
  T& Get(int id) const {
    return Dialog::ControlOf<T>(dialog_, id);
  }
  std::string String(int id) const;
  RuntimeOptions Options() const;

  ModuleState& state_;
  const PanelFace& face_;
  HostLink host_;
  CConfigStore store_;
  CAnchors anchors_;

  ScanSettings own_{};  // what the page works on while no host's record is bound
  ScanSettings* settings_ = &own_;
  CDib* preview_ = nullptr;
  Dialog* dialog_ = nullptr;  // null while the page has no window

  std::uint32_t pageSource_ = 0;  // differs from the record's source while a change is under way
  std::uint32_t shownUnits_ = 0;
  DeviceLimits limits_{};  // minDpi by the panel's own rule
  DeviceCaps caps_{};

 private:
  static std::span<const MessageRow<CPanelPage>> SharedMessages();
  ResolutionInput ResolutionNow() const;
  // What a choice of mode does once the field has its value.
  void FinishModeChoice(std::uint32_t before);
  void SetJpegMode(std::uint32_t mode);
  void FollowMode(std::uint32_t before);
  void LeaveFocusedEdit();

  OwnImageLibrary imageLibrary_;
  PreviewRenderer renderer_;
  CRangeRealEdit resolutionEdit_;
  CRangeRealEdit widthEdit_;
  CRangeRealEdit heightEdit_;
  CWideDropCombo sizeCombo_;
  CWideDropCombo resolutionCombo_;
  CWideDropCombo scannerCombo_;
  CWideDropCombo sourceCombo_;
  CIconCombo modeCombo_;
  std::uint32_t bindings_ = 0;  // how often the host's record came or went
  bool listsMayLack_ = false;   // an event didn't get through
  bool isDetached_ = false;
};

// Fields of the record by dimension.
double& LengthOf(ScanSettings& settings, Dimension dimension);
double& CustomLengthOf(ScanSettings& settings, Dimension dimension);

}  // namespace set32
