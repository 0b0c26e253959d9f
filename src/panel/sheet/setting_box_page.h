// CSettingBoxPage: the General page of the sheet face. It adds to the shared page what only this face has: the
// scanner choice, the frames, automatic saving, and the record `Tmp` that it leaves behind.
#pragma once

#include <span>

#include "controls/message_table.h"
#include "panel/page.h"
#include "scanner/scanner_choice.h"

namespace set32 {

class CSettingBoxPage : public CPanelPage {
 public:
  // The front is the Advanced page, the second one of the sheet; it outlives this one's window.
  CSettingBoxPage(ModuleState& state, AdjustmentFront& front);

  void RefreshPanel() override;
  void AutoSaveConfig() override;

  void OnInit(Dialog& dialog) override;
  MessageResult OnMessage(std::uint32_t message, WParam wParam, LParam lParam) override;

 private:
  static std::span<const MessageRow<CSettingBoxPage>> Messages();
  bool AnswersItself(const Event& event) override;

  AdjustmentFront& Front() override { return front_; }
  void OnClosing() override;
  void OnWindowGone() override;
  void EnterAnchors();
  int TopOfSource() const;

  // Size.
  void LeaveSizeEdit(Dimension dimension) override;
  bool PassesPreviewEdge(double inches, Dimension dimension) const;

  // Paper source.
  void OnSourceChoice(const Event&) { ChangePaperSource(); }
  void ChangePaperSource();
  void ShowControlsOfSource();

  // Auto crop.
  void OnAutoCropClicked(const Event&) { ToggleAutoCrop(); }
  void ToggleAutoCrop();
  void RepeatAutoCrop();
  void RepeatAutoCropUnsaved();

  // Frames.
  void SetUpFrameTabs();
  void ActOnFrameCommand(const FrameCommand& command);
  void OnRemoveFrame(const Event& event);
  void OnFrameTabChange(const Event& event);
  void RemoveAllFrames();
  void TellFrameRemoved(int frame);
  void EnableRemoveButton();
  void DisableRemoveButtonWithoutFrames();

  // Host's reports.
  void OnHostReport(WParam change, const ScanSettings* reported);
  void TakeSizeReport(WParam change, const ScanSettings& report);

  // Configurations.
  void StartStore();
  void OnRowClicked(const Event& event);
  void SelectConfigRow(int row);

  // Scanners.
  void OnScannerChoice(const Event&) { scanners_.OnScannerSelChange(); }
  void OnRefreshScanners(const Event&) { scanners_.RefreshScanners(); }

  AdjustmentFront& front_;
  CScannerChoice scanners_;
  bool hasRecord_ = false;         // the last settings were read: what stands in the record may be kept at the end
  bool suppressAutoSave_ = false;  // while a change of paper source is carried out
  bool autoSaveOnCrop_ = true;
};

}  // namespace set32
