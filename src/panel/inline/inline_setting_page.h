// CInlineSettingPage: the page of the inline face, which stands in the host's window without a sheet around it.
//
// It has no scanner choice, no frames and no automatic saving. In their stead it owns the advanced dialog, lets the
// host refuse a change of paper source, and remembers nothing when it closes. There is one such object from the
// module's load to its unload; its window comes and goes.
#pragma once

#include <span>

#include "adjust/gamma_setting.h"
#include "controls/message_table.h"
#include "panel/page.h"

namespace set32 {

class CInlineSettingPage : public CPanelPage {
 public:
  explicit CInlineSettingPage(ModuleState& state);

  // The page stands at its place: controls follow its size from here on, and the panel counts as open until it takes
  // a close message or goes with its parent.
  void FinishOpening();
  bool IsOpen() const { return isOpen_; }

  void RefreshPanel() override;
  void AutoSaveConfig() override {}  // what was set is remembered only where the person saves it

  void OnInit(Dialog& dialog) override;
  MessageResult OnMessage(std::uint32_t message, WParam wParam, LParam lParam) override;
  void OnEnabled(bool enabled) override;
  void OnClose() override;

 private:
  static std::span<const MessageRow<CInlineSettingPage>> Messages();
  bool AnswersItself(const Event& event) override;

  AdjustmentFront& Front() override { return gammaDialog_; }
  void OnClosing() override;
  void OnWindowGone() override;
  int TopOfGroup() const;
  void ShowControlsOfFace();

  void OnAdvancedClicked(const Event&) { gammaDialog_.Open(); }
  void OnResolutionEditEnter(const Event&) { ShowSizeText(); }

  // Size.
  void LeaveSizeEdit(Dimension dimension) override;

  // Paper source.
  void OnSourceChoice(const Event&) { ChangePaperSource(); }
  void ChangePaperSource();
  bool HostRefusesSource();
  void ShowControlsOfSource();

  // Auto crop.
  void OnAutoCropClicked(const Event&) { ToggleAutoCrop(); }
  void ToggleAutoCrop();

  // Host's reports.
  void OnHostReport(WParam change, const ScanSettings* reported);

  // Configurations.
  void StartStore();
  void OnRowClicked(const Event& event);

  CGammaSetting gammaDialog_;
  bool isOpen_ = false;
};

}  // namespace set32
