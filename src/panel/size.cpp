// Size: combo 1251, unit combo 1256, edits 1252 and 1254.
#include <utility>

#include "controls/format.h"
#include "controls/thread_message.h"
#include "panel/page.h"
#include "resources/ids.h"
#include "resources/strings.h"

namespace set32 {

namespace {

int EditOf(Dimension dimension) {
  return dimension == Dimension::width ? id::widthEdit : id::heightEdit;
}

std::string TextOfMessage(const std::string& pattern, const RangeMessage& message) {
  const auto& numbers = message.numbers;
  return message.count == 2 ? FormatText(pattern, numbers[0], numbers[1])
                            : FormatText(pattern, numbers[0], numbers[1], numbers[2], numbers[3]);
}

}  // namespace

double& LengthOf(ScanSettings& settings, Dimension dimension) {
  return dimension == Dimension::width ? settings.width : settings.height;
}

double& CustomLengthOf(ScanSettings& settings, Dimension dimension) {
  return dimension == Dimension::width ? settings.customWidth : settings.customHeight;
}

void CPanelPage::BuildSizeList() {
  Combo& combo = Get<Combo>(id::sizeCombo);
  combo.Clear();
  for (const SizeEntry& entry : SizeList(pageSource_, face_.rules)) {
    combo.SetData(combo.Add(String(entry.stringId)), entry.sizeId);
  }
  const bool enabled = face_.rules.sizeEditsEnabled[pageSource_];
  Get<Edit>(id::widthEdit).SetEnabled(enabled);
  Get<Edit>(id::heightEdit).SetEnabled(enabled);
}

// The entry whose data is this size; none when it isn't on the list.
void CPanelPage::SelectSize(std::uint32_t sizeId) {
  Combo& combo = Get<Combo>(id::sizeCombo);
  int entry = combo.Count() - 1;
  while (entry >= 0 && combo.Data(entry) != sizeId) --entry;
  combo.SelectIndex(entry);
}

void CPanelPage::ShowSizeText() {
  for (const Dimension dimension : {Dimension::width, Dimension::height}) {
    ShowLength(dimension, LengthOf(*settings_, dimension));
  }
}

void CPanelPage::ShowLength(Dimension dimension, double inches) {
  Get<Edit>(EditOf(dimension)).SetText(SizeText(inches, shownUnits_, settings_->dpi, face_.rules));
}

void CPanelPage::SetSizeRanges() {
  for (const Dimension dimension : {Dimension::width, Dimension::height}) {
    const TypingRange range = SizeTypingRange(dimension, pageSource_, shownUnits_, settings_->dpi);
    (dimension == Dimension::width ? widthEdit_ : heightEdit_).SetRange(range.low, range.high);
  }
}

void CPanelPage::OnUnitChoice(const Event&) {
  const int chosen = Get<Combo>(id::unitCombo).Selected();
  if (chosen < 0) return;
  shownUnits_ = static_cast<std::uint32_t>(chosen);
  ShowSizeText();
  SetSizeRanges();
  host_.UnitChosen(shownUnits_, settings_->dpi);
}

void CPanelPage::OnSizeChoice(const Event&) {
  ApplySizeChoice();
}

void CPanelPage::ApplySizeChoice() {
  const Combo& combo = Get<Combo>(id::sizeCombo);
  const std::uint32_t chosen =
      combo.Selected() >= 0 ? static_cast<std::uint32_t>(combo.Data(combo.Selected())) : size_id::none;
  if (chosen == settings_->sizeId) {
    if (state_.notifySize) host_.AreaChanged(*settings_);
    return;
  }
  settings_->sizeId = chosen;
  settings_->frameLeft = face_.rules.frameLeftOfChoice[settings_->paperSource];
  settings_->frameTop = 0;
  if (const std::optional<SizeRow> row = FindSize(chosen, pageSource_, face_.rules)) {
    settings_->width = row->width;
    settings_->height = row->height;
    ClearAutoCrop();
  } else {
    settings_->width = settings_->customWidth;
    settings_->height = settings_->customHeight;
    if (state_.notifySize) host_.AreaChanged(*settings_);
  }
  if (LiesMidFeeder(settings_->sizeId, settings_->paperSource, face_.rules)) {
    if (const std::optional<PreviewFacts> facts = FactsOf(preview_)) {
      settings_->frameLeft = CentredOnFeeder(settings_->width, *facts);
    }
  }
  AutoSaveConfig();
  if (state_.notifySize && settings_->sizeId != size_id::userDefined) {
    ShowSizeText();
    host_.AreaChanged(*settings_);
  }
  ShowSizeText();
  if (face_.sizeChoiceRefreshesPreview) RefreshPreview();
}

void CPanelPage::OnSizeEditEnter(const Event&) {
  if (settings_->sizeId != size_id::userDefined) {
    const bool exchanged = settings_->rotated == 1;
    settings_->customWidth = exchanged ? settings_->height : settings_->width;
    settings_->customHeight = exchanged ? settings_->width : settings_->height;
    host_.CustomSizeTaken(*settings_);
  }
  ApplySizeChoice();
}

void CPanelPage::OnWidthEdit(const Event&) {
  LeaveSizeEdit(Dimension::width);
}

void CPanelPage::OnHeightEdit(const Event&) {
  LeaveSizeEdit(Dimension::height);
}

CPanelPage::TypedSize CPanelPage::ReadTypedSize(Dimension dimension) const {
  std::string text = Get<Edit>(EditOf(dimension)).Text();
  const double inches = InchesOf(text, shownUnits_, settings_->dpi);
  return {std::move(text), inches};
}

bool CPanelPage::IsGood(const TypedSize& typed, Dimension dimension) const {
  return IsGoodSize(typed.inches, typed.text, dimension, pageSource_, shownUnits_);
}

// The value before stands, and a box says what would have been good.
void CPanelPage::RefuseTypedSize(Dimension dimension) {
  ShowLength(dimension, LengthOf(*settings_, dimension));
  const RangeMessage message = SizeRangeMessage(dimension, pageSource_, shownUnits_, settings_->dpi);
  ShowMessageOnThread(state_, TextOfMessage(String(message.stringId), message));
}

}  // namespace set32
