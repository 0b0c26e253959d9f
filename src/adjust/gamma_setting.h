// CGammaSetting: the advanced dialog of the inline face, dialog 103, and the model of the adjustments behind it.
//
// It edits the host's record in place, and the preview follows each change while the dialog stands beside the host's
// window; nothing can be taken back. The object lives as long as its page, with and without a window: the defaults
// are loaded without one, all else does nothing then.
//
// One class, one file a topic: gamma_setting.cpp (message table, what the page tells) and behind its name _life
// (opening and closing), _refresh (the dialog agrees with the record), _values (edits, bars, slider) and _options
// (radio buttons and check boxes). The rules stand in adjustment_rules and dialog_rules.
//
// The host may end the page, and this dialog with it, inside any message, and a dialog may be closed and opened again
// inside one; so controls and record are asked for anew after each. Host's thread only.
#pragma once

#include <array>
#include <memory>
#include <span>
#include <string>

#include "adjust/dialog_rules.h"
#include "boundary/adjustment_front.h"
#include "boundary/hardware_options.h"
#include "boundary/module_state.h"
#include "boundary/panel_services.h"
#include "controls/message_dialog.h"
#include "controls/message_table.h"
#include "controls/modal_to_modeless.h"
#include "controls/range_int_edit.h"
#include "controls/range_real_edit.h"
#include "platform/windows.h"
#include "set32/messages.h"

namespace set32 {

class CGammaSetting : public DialogHandler, public AdjustmentFront, private ModelessDialog {
 public:
  CGammaSetting(ModuleState& state, PanelServices& panel);
  CGammaSetting(const CGammaSetting&) = delete;
  CGammaSetting& operator=(const CGammaSetting&) = delete;

  // Opens the dialog, or shows the one that stands.
  void Open();
  // Leaves the edit that has the focus, remembers the dialog's place and ends it.
  void Close();
  bool HasWindow() const { return dialog_ != nullptr && dialog_->IsAlive(); }
  // At once.
  void Repaint();
  // As the page is.
  void SetEnabled(bool enabled);

  // The defaults of the record's mode into record and preview.
  void LoadAdjustmentDefaults();
  // The dialog agrees with the record, which changes where mode and source leave no choice.
  void RefreshAdjustments();
  // The dialog is long and shows the controls of JPEG quality, or short and doesn't.
  void ShowJpegGroup(bool shown);

  // AdjustmentFront
  void OnModeSet() override;
  void OnBeforeResolutionList() override { RefreshAdjustments(); }
  void OnPreviewDone() override;
  void OnRefreshed() override { RefreshAdjustments(); }
  void OnResolutionChanged() override { RefreshAdjustments(); }
  void OnSourceChanged() override;

  // DialogHandler
  void OnInit(Dialog& dialog) override;
  void OnEvent(const Event& event) override;
  void OnOk() override;  // Enter
  void OnCancel() override { Close(); }
  void OnDestroying() override { KeepPlace(); }
  void OnDestroyed() override;

 private:
  static std::span<const MessageRow<CGammaSetting>> Messages();

  // ModelessDialog
  bool Open(WindowHandle owner) override;
  void Cancel() override { Close(); }

  // Life.
  void AttachEdits(Dialog& dialog);
  void SetUpBars();
  void SetUpQuality();
  void SetUpOptions();
  void SetUpPictures();
  void PlaceOnScreen();
  void LeaveFocusedEdit();
  void KeepPlace();
  void ForgetWindow();
  HardwareOptions Hardware() const;

  // Refresh.
  void TakeDefaultOrCustom();
  void ForbidDescreen();
  void ShowValues();
  void ShowMode();
  void ShowGammaGroup();
  void ShowGammaAll();
  void ShowGammaBands();
  void ShowGammas(std::span<const GammaRow> shown, std::span<const GammaRow> hidden);
  void ShowOptions();
  void ShowQuality();
  void ShowQualityValue();
  void ShowCustom(bool custom);

  // Values.
  void OnIntEditUpdate(const Event& event);
  void OnNumberChanged(const Event& event);
  void OnNumberLeft(const Event& event);
  void OnNumberScrolled(const Event& event);
  void OnGammaLeft(const Event& event);
  void OnGammaScrolled(const Event& event);
  void OnQualityChanged(const Event& event);
  void OnQualityScrolled(const Event& event);
  void OnQualityReleased(const Event& event);
  void SwitchToCustom();
  void ShowNumber(const NumberRow& row);
  void ShowGamma(const GammaRow& row);
  void ShowGammaPosition(const GammaRow& row);
  void RefuseGamma(const GammaRow& row);
  enum class Rendering { always, whenItDiffers };
  template <typename Row>
  void GiveToPreview(const Row& row, Rendering rendering);

  // Options.
  void OnDefaultsClicked(const Event& event);
  void OnCustomClicked(const Event& event);
  void OnGammaAllClicked(const Event& event);
  void OnGammaBandsClicked(const Event& event);
  void OnDescreenClicked(const Event& event);
  void OnHighBitClicked(const Event& event);
  void OnSingleFileClicked(const Event& event);
  void OnCloseClicked(const Event&) { Close(); }
  void FollowInPreview();
  void FollowGammasInPreview(std::span<const GammaRow> rows);
  void WarnOfHighBit();
  bool HasLowLevelDriver() const;

  void CopyToPreview();
  void TellSettings() { panel_.Host().SettingsChanged(settings_change::values, Record()); }
  CRangeIntEdit& IntEdit(int editId);
  ScanSettings& Record() { return panel_.Settings(); }
  std::string String(int id) const;
  template <typename T>
  T& Get(int id) const {
    return Dialog::ControlOf<T>(dialog_, id);
  }

  ModuleState& state_;
  PanelServices& panel_;
  CDlgModalToModeless run_;
  CMessageDlg message_;
  std::array<CRangeIntEdit, std::size(numberRows)> numberEdits_;
  CRangeIntEdit qualityEdit_;
  std::array<CRangeRealEdit, std::size(gammaRows)> gammaEdits_;  // in the order of their rows

  Dialog* dialog_ = nullptr;  // null without a window
  bool isStarting_ = false;
  bool hasPlace_ = false;           // of its own, to be remembered
  std::unique_ptr<Dialog> window_;  // goes first: it calls the edits' guards
};

}  // namespace set32
