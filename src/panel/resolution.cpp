// Resolution: combo 1210 and edit 1212.
#include "controls/format.h"
#include "controls/number_text.h"
#include "controls/thread_message.h"
#include "panel/page.h"
#include "resources/ids.h"
#include "resources/strings.h"

namespace set32 {

ResolutionInput CPanelPage::ResolutionNow() const {
  return MakeResolutionInput(*settings_, pageSource_, limits_.resolutionMask, caps_.restrictedMaxDpi());
}

void CPanelPage::BuildResolutionList() {
  Combo& combo = Get<Combo>(id::resolutionCombo);
  combo.Clear();
  const ResolutionList list = ComputeResolutionList(ResolutionNow(), face_.rules);
  for (const ResolutionEntry& entry : list.Entries()) {
    combo.SetData(combo.Add(String(entry.stringId)), entry.resolutionId);
  }
  settings_->dpi = list.dpi;
  settings_->resolutionId = list.resolutionId;
  resolutionEdit_.SetRange(list.low, list.high);
  combo.SelectIndex(list.selected);
  Get<Edit>(id::resolutionEdit).SetText(WholeNumberText(settings_->dpi));
}

void CPanelPage::OnResolutionChoice(const Event&) {
  const Combo& combo = Get<Combo>(id::resolutionCombo);
  if (combo.Selected() < 0) return;
  const std::uint32_t before = settings_->resolutionId;
  const auto chosen = static_cast<std::uint32_t>(combo.Data(combo.Selected()));
  settings_->resolutionId = chosen;
  if (chosen != resolution::userDefined) settings_->dpi = DpiOfCode(chosen);
  Get<Edit>(id::resolutionEdit).SetText(WholeNumberText(settings_->dpi));
  ShowSizeText();
  SetSizeRanges();
  if (chosen != before) AutoSaveConfig();
  host_.ResolutionChanged(shownUnits_, settings_->dpi);
  Front().OnResolutionChanged();
}

void CPanelPage::OnResolutionEdit(const Event&) {
  Edit& edit = Get<Edit>(id::resolutionEdit);
  const std::int32_t before = settings_->dpi;
  settings_->dpi = ReadWholeNumber(edit.Text());
  const DpiLimits limits = TypedDpiLimits(ResolutionNow(), limits_.minDpi, limits_.maxDpi);
  const bool isGood = limits.Contain(settings_->dpi);
  if (!isGood) settings_->dpi = before;
  edit.SetText(WholeNumberText(settings_->dpi));
  if (!isGood) ShowMessageOnThread(state_, FormatText(String(text::integerRange), limits.low, limits.high));

  Combo& combo = Get<Combo>(id::resolutionCombo);
  const int entry = combo.FindExact(-1, WholeNumberText(settings_->dpi) + " dpi");
  if (entry >= 0) {
    combo.SelectIndex(entry);
    settings_->resolutionId = static_cast<std::uint32_t>(combo.Data(entry));
  } else {
    settings_->resolutionId = resolution::userDefined;
    combo.SelectIndex(combo.FindPrefix(-1, String(text::dpiUserDefined)));
  }
  if (settings_->dpi != before) AutoSaveConfig();
  ShowSizeText();
  SetSizeRanges();
  Front().OnResolutionChanged();
  host_.ResolutionChanged(shownUnits_, settings_->dpi);
}

}  // namespace set32
