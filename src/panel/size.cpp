// Size: combo 1251, unit combo 1256, edits 1252 and 1254.
#include "controls/format.h"
#include "controls/thread_message.h"
#include "panel/panel_page.h"
#include "resources/ids.h"
#include "resources/strings.h"

namespace set32 {

namespace {

int EditOf(Dimension dimension) {
  return dimension == Dimension::width ? id::widthEdit : id::heightEdit;
}

double& LengthOf(ScanSettings& settings, Dimension dimension) {
  return dimension == Dimension::width ? settings.width : settings.height;
}

double& CustomLengthOf(ScanSettings& settings, Dimension dimension) {
  return dimension == Dimension::width ? settings.customWidth : settings.customHeight;
}

std::int32_t FrameStartOf(const ScanSettings& settings, Dimension dimension) {
  return dimension == Dimension::width ? settings.frameLeft : settings.frameTop;
}

std::string TextOfMessage(const std::string& pattern, const RangeMessage& message) {
  const auto& numbers = message.numbers;
  return message.count == 2 ? FormatText(pattern, numbers[0], numbers[1])
                            : FormatText(pattern, numbers[0], numbers[1], numbers[2], numbers[3]);
}

}  // namespace

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
    Get<Edit>(EditOf(dimension))
        .SetText(SizeText(LengthOf(*settings_, dimension), shownUnits_, settings_->dpi, face_.rules));
  }
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

void CPanelPage::LeaveSizeEdit(Dimension dimension) {
  Edit& edit = Get<Edit>(EditOf(dimension));
  const auto showInEdit = [&](double inches) {
    edit.SetText(SizeText(inches, shownUnits_, settings_->dpi, face_.rules));
  };
  // The width is compared with what stood before, the height with what was remembered.
  const double before = dimension == Dimension::width ? settings_->width : CustomLengthOf(*settings_, dimension);
  double typed = InchesOf(edit.Text(), shownUnits_, settings_->dpi);
  std::optional<PreviewFacts> facts;
  if (face_.rules.typedSizeKeepsToPreview) facts = FactsOf(preview_);
  if (facts && !FitsPreview(typed, FrameStartOf(*settings_, dimension), dimension, *facts)) {
    typed = before;
    showInEdit(before);
  }
  if (IsGoodSize(typed, edit.Text(), dimension, pageSource_, shownUnits_)) {
    LengthOf(*settings_, dimension) = typed;
    ClearAutoCrop();
    host_.AutoCropChanged(auto_crop_change::taken, *settings_);
  } else {
    showInEdit(LengthOf(*settings_, dimension));
    const RangeMessage message = SizeRangeMessage(dimension, pageSource_, shownUnits_, settings_->dpi);
    ShowMessageOnThread(state_, TextOfMessage(String(message.stringId), message));
  }
  CustomLengthOf(*settings_, dimension) = LengthOf(*settings_, dimension);
  if (CustomLengthOf(*settings_, dimension) != before) {
    settings_->sizeId = size_id::userDefined;
    SelectSize(size_id::userDefined);
    AutoSaveConfig();
  }
  host_.AreaChanged(*settings_);
  host_.AreaChanged(*settings_);
}

}  // namespace set32
