// Paper source: combo 1012, whose entries carry their codes as data. What a change of source does is each face's.
#include "panel/page.h"
#include "panel/rules/mode_rules.h"
#include "resources/ids.h"
#include "resources/strings.h"

namespace set32 {

void CPanelPage::FillSources() {
  Combo& combo = Get<Combo>(id::sourceCombo);
  for (const SourceEntry& entry : AllSources()) {
    if (SourceStands(entry, caps_.sourceCaps())) combo.SetData(combo.Add(String(entry.stringId)), entry.source);
  }
}

// The entry with this code; none when the device doesn't offer it.
void CPanelPage::SelectSource(std::uint32_t source) {
  Combo& combo = Get<Combo>(id::sourceCombo);
  int entry = combo.Count() - 1;
  while (entry >= 0 && combo.Data(entry) != source) --entry;
  combo.SelectIndex(entry);
}

// A source that the device doesn't offer has no entry, so nothing is selected then and the record's own source stays.
void CPanelPage::TakeChosenSource() {
  const Combo& combo = Get<Combo>(id::sourceCombo);
  if (combo.Selected() >= 0) settings_->paperSource = static_cast<std::uint32_t>(combo.Data(combo.Selected()));
  pageSource_ = settings_->paperSource;
}

void CPanelPage::SetMinDpiOfSource() {
  limits_.minDpi = face_.rules.minDpiAtSourceChange[pageSource_];
}

// Another source begins in inches; the host may store it or not.
void CPanelPage::ShowInchesUnless(std::uint32_t sourceBefore) {
  if (pageSource_ == sourceBefore) return;
  Get<Combo>(id::unitCombo).SelectIndex(0);
  shownUnits_ = unit::inch;
  host_.UnitChosen(unit::inch, settings_->dpi);
}

}  // namespace set32
