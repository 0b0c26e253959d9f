// CSettingBoxPage: the General page of the sheet face. It adds to the shared page what only this face has: the
// scanner choice, the frames, the Advanced page beside it, and the record `Tmp` that it leaves behind.
#pragma once

#include <span>

#include "adjust/response_page.h"
#include "controls/message_table.h"
#include "panel/panel_page.h"
#include "scanner/scanner_choice.h"

namespace set32 {

class CSettingBoxPage : public CPanelPage {
 public:
  explicit CSettingBoxPage(ModuleState& state);

  // The second page of the sheet; null until it stands beside this one.
  void SetAdvancedPage(CResponsePage* page) { advanced_ = page; }

  void OnInit(Dialog& dialog) override;
  void OnEvent(const Event& event) override;
  MessageResult OnMessage(std::uint32_t message, WParam wParam, LParam lParam) override;

 private:
  static std::span<const MessageRow<CSettingBoxPage>> Messages();

  void OnRefreshTold() override;
  void OnModeShown() override;
  void OnClosing() override;
  void OnWindowGone() override;

  void EnterAnchors();
  void StartStore();
  void ShowAutoCropAtStart();
  void OnSourceChoice(const Event&) { ChangePaperSource(); }
  void OnScannerChoice(const Event&) { scanners_.OnScannerSelChange(); }
  void OnRefreshScanners(const Event&) { scanners_.RefreshScanners(); }

  CScannerChoice scanners_;
  CResponsePage* advanced_ = nullptr;
};

}  // namespace set32
