// Mode: combo 1011, and the hidden buttons 1202 to 1207 that carry its state.
#include <algorithm>

#include "panel/page.h"
#include "panel/rules/mode_rules.h"
#include "platform/guarded.h"
#include "resources/ids.h"
#include "resources/strings.h"

namespace set32 {

void CPanelPage::FillModes() {
  Get<Combo>(id::modeCombo).Clear();
  FitModeEntries();
}

void CPanelPage::ShowModeAtStart() {
  Get<Combo>(id::modeCombo).SelectIndex(std::max(IndexOfMode(settings_->mode), 0));
}

// Takes away the entries that don't stand on the record's source and adds those that do; the ones that come and go
// are always the last.
void CPanelPage::FitModeEntries() {
  for (const ModeEntry& entry : AllModes()) {
    const std::string text = String(entry.stringId);
    const bool stands = ModeStands(entry.mode, settings_->paperSource, state_.jpegModesOn);
    const bool isThere = modeCombo_.Has(text);
    if (isThere && !stands) modeCombo_.RemoveByText(text);
    if (stands && !isThere) modeCombo_.AddResourceIcon(entry.icon, text);
  }
}

void CPanelPage::SelectMode(std::uint32_t mode) {
  Get<Combo>(id::modeCombo).SelectIndex(IndexOfMode(mode));
}

void CPanelPage::OfferModes() {
  struct Offer {
    std::uint32_t mode;
    int radio;
    int button;
  };
  constexpr Offer offers[] = {{mode::colour, id::colourRadio, id::colourButton},
                              {mode::gray, id::grayRadio, id::grayButton},
                              {mode::blackWhite, id::bwRadio, id::bwButton}};
  for (const Offer& offer : offers) {
    const bool isOffered = (limits_.modeMask & offer.mode) != 0;
    Get<CheckButton>(offer.radio).SetEnabled(isOffered);
    if (!isOffered) Get<PictureButton>(offer.button).SetEnabled(false);
  }
}

void CPanelPage::OnModeChoice(const Event&) {
  switch (Get<Combo>(id::modeCombo).Selected()) {
    case 0:
      return SetColorMode();
    case 1:
      return SetGrayMode();
    case 2:
      return SetBwMode();
    case 3:
      return SetJpegColorMode();
    case 4:
      return SetJpegGrayMode();
    default:
      return;
  }
}

void CPanelPage::OnColourClicked(const Event&) {
  SetColorMode();
}
void CPanelPage::OnGrayClicked(const Event&) {
  SetGrayMode();
}
void CPanelPage::OnBlackWhiteClicked(const Event&) {
  SetBwMode();
}

void CPanelPage::SetColorMode() {
  SelectMode(mode::colour);
  const std::uint32_t before = settings_->mode;
  settings_->mode = mode::colour;
  Front().OnModeSet();
  FinishModeChoice(before);
}

void CPanelPage::SetGrayMode() {
  SelectMode(mode::gray);
  const std::uint32_t before = settings_->mode;
  settings_->mode = mode::gray;
  Front().OnModeSet();
  ResetFields(*settings_, ResetByChoice(mode::gray, face_.rules));
  FinishModeChoice(before);
}

void CPanelPage::SetBwMode() {
  SelectMode(mode::blackWhite);
  const std::uint32_t before = settings_->mode;
  settings_->mode = mode::blackWhite;
  Front().OnModeSet();
  ResetFields(*settings_, ResetByChoice(mode::blackWhite, face_.rules));
  host_.SettingsChanged(settings_change::values, *settings_);
  FinishModeChoice(before);
}

void CPanelPage::FinishModeChoice(std::uint32_t before) {
  const std::uint32_t chosen = settings_->mode;
  FollowMode(before);
  host_.ModeShown(chosen);
  TellValues();
  Front().OnModeTold();
}

void CPanelPage::SetJpegColorMode() {
  SetJpegMode(mode::jpegColour);
}
void CPanelPage::SetJpegGrayMode() {
  SetJpegMode(mode::jpegGray);
}

void CPanelPage::SetJpegMode(std::uint32_t mode) {
  const std::uint32_t before = settings_->mode;
  ResetFields(*settings_, ResetByChoice(mode, face_.rules));
  settings_->mode = mode;
  Front().OnModeSet();
  SelectMode(mode);
  FollowMode(before);
  TellValues();
  host_.ModeShown(mode);
}

// What is stored, offered and seen of the mode.
void CPanelPage::FollowMode(std::uint32_t before) {
  if (settings_->mode != before) AutoSaveConfig();
  Front().OnBeforeResolutionList();
  BuildResolutionList();
  {
    const Hold quiet(state_.notifySize, false);
    RefreshPreview();
  }
  Front().OnPreviewDone();
}

void CPanelPage::ApplyMode(std::uint32_t mode) {
  if (IndexOfMode(mode) < 0) return;
  ResetFields(*settings_, ResetByRefresh(mode));
  if (mode == mode::blackWhite) TellValues();
  settings_->mode = mode;
  SelectMode(mode);
  if (mode == mode::jpegColour || mode == mode::jpegGray) return;
  Get<CheckButton>(id::colourRadio).SetChecked(mode == mode::colour);
  Get<CheckButton>(id::grayRadio).SetChecked(mode == mode::gray);
  Get<CheckButton>(id::bwRadio).SetChecked(mode == mode::blackWhite);
}

}  // namespace set32
