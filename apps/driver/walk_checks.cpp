#include "apps/driver/walk_checks.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>

#include "apps/driver/script_text.h"
#include "panel/rules/size_rules.h"
#include "profile/config_items.h"

namespace set32 {

namespace {

constexpr double centimetresAnInch = 2.54;

bool IsOneOf(std::uint32_t value, std::initializer_list<std::uint32_t> set) {
  return std::find(set.begin(), set.end(), value) != set.end();
}

// The entry that a combo's data names, -1 when it isn't listed.
int IndexOfData(const Combo& combo, std::uint32_t data) {
  for (int i = 0; i < combo.Count(); ++i) {
    if (combo.Data(i) == data) return i;
  }
  return -1;
}

// The number that a text begins with; a person may have left blanks around it.
std::optional<double> LeadingNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc()) return {};
  return value;
}

// Lengths as they are shown: hundredths of an inch or of a centimetre, or whole pixels. What comes to the smallest
// size in hundredths of an inch is shown as that size in every unit.
bool ReadsBack(const std::string& text, double inches, std::uint32_t units, std::int32_t dpi) {
  const auto shown = LeadingNumber(text);
  if (!shown) return false;
  constexpr double spare = 1e-6;
  if (std::trunc((inches + 0.005) * 100.0) == 30.0) inches = lowestSize;
  if (units == unit::inch) return std::abs(*shown - inches) <= 0.01 + spare;
  if (units == unit::centimetre) return std::abs(*shown - inches * centimetresAnInch) <= 0.01 + spare;
  return std::abs(*shown - inches * dpi) <= 1 + spare;
}

// Each page then shows what it was told last, and the other may have changed the record since.
bool BothFacesStand(Session& session) {
  const std::vector<Dialog*> standing = session.TheScene().Standing();
  return std::count_if(standing.begin(), standing.end(),
                       [](auto* dialog) { return dialog->TemplateId() == dialog::general; }) > 1;
}

}  // namespace

WalkChecks::Finding WalkChecks::Check(Session& session, const std::string& act) {
  if (session.Host().SawForeignRecord()) return "a message carried another record than the host's";
  if (auto finding = CheckCodes(session.Host().Settings())) return finding;
  if (auto finding = CheckAdjustments(session.Host().Settings())) return finding;
  if (auto finding = CheckProfile(session)) return finding;
  NoteChanges(session, act);
  if (session.Host().Page() == 0 || BothFacesStand(session)) return {};
  if (auto finding = CheckCombos(session)) return finding;
  if (auto finding = CheckLengths(session)) return finding;
  if (auto finding = CheckAdvancedPage(session)) return finding;
  return CheckNotified(session, act);
}

WalkChecks::Finding WalkChecks::CheckCodes(const ScanSettings& settings) const {
  if (settings.mode > mode::jpegGray || !std::has_single_bit(settings.mode)) return "mode is none of its codes";
  if (settings.resolutionId > resolution::dpi19200 || settings.resolutionId < resolution::dpi75 ||
      !std::has_single_bit(settings.resolutionId)) {
    return "resolutionId is none of its codes";
  }
  if (!IsOneOf(settings.sizeId,
               {size_id::photo3x5, size_id::photo4x6, size_id::photo5x7, size_id::letter, size_id::a4, size_id::b5,
                size_id::businessCard, size_id::userDefined, size_id::legal, size_id::film, size_id::a5,
                size_id::statement, size_id::executive, size_id::none})) {
    return "sizeId is none of its codes";
  }
  if (settings.units > unit::pixel) return "units is none of its codes";
  if (settings.paperSource > paper_source::negative) return "paperSource is none of its codes";
  return {};
}

// Nobody in a walk writes anything else, so the panel must hold its values to their ranges.
WalkChecks::Finding WalkChecks::CheckAdjustments(const ScanSettings& settings) {
  constexpr double lowest = static_cast<double>(0.01F);  // as the Advanced page keeps what the dialog lets stand
  const auto isGamma = [](double gamma) { return gamma >= lowest && gamma <= 10.0; };
  if (!isGamma(settings.gammaAll) || !isGamma(settings.gammaRed) || !isGamma(settings.gammaGreen) ||
      !isGamma(settings.gammaBlue)) {
    return "a gamma is out of its range";
  }
  const auto isWithin = [](std::int32_t value, std::int32_t most) { return value >= -most && value <= most; };
  if (!isWithin(settings.brightness, 100) || !isWithin(settings.contrast, 100) ||
      !isWithin(settings.sharpness, 100) || !isWithin(settings.saturation, 100) || !isWithin(settings.hue, 180)) {
    return "a value of the picture is out of its range";
  }
  return {};
}

// The edits of the Advanced page show the two values of its tab.
WalkChecks::Finding WalkChecks::CheckAdvancedPage(Session& session) const {
  const Dialog* page = session.TheScene().PageInFront();
  if (page == nullptr || page->TemplateId() != dialog::advanced) return {};
  const ScanSettings& settings = session.Host().Settings();
  const std::array gammas = {settings.gammaAll, settings.gammaRed, settings.gammaGreen, settings.gammaBlue};
  const int band = std::clamp(page->Get<Combo>(id148::bandCombo).Selected(), 0, 3);
  const std::array<std::pair<double, double>, 3> tabs = {{
      {gammas[static_cast<std::size_t>(band)], settings.sharpness},
      {settings.brightness, settings.contrast},
      {settings.saturation, settings.hue},
  }};
  const int tab = page->Get<TabBar>(id148::viewTabs).Current();
  if (tab < 0 || tab >= std::ssize(tabs)) return "tab bar 1067 shows no tab";
  const auto& [first, second] = tabs[static_cast<std::size_t>(tab)];
  for (const auto& [edit, value] : {std::pair{id148::firstEdit, first}, std::pair{id148::secondEdit, second}}) {
    const std::string text = page->Get<Edit>(edit).Text();
    if (const auto kept = keptTexts_.find(edit); kept != keptTexts_.end() && kept->second == text) continue;
    const auto shown = LeadingNumber(text);
    constexpr double half = 0.0051;  // of the last decimal on show
    if (!shown || std::abs(*shown - value) > half) {
      return "edit 148:" + std::to_string(edit) + " shows " + Quote(text) + " for " + Number(value);
    }
  }
  return {};
}

WalkChecks::Finding WalkChecks::CheckCombos(Session& session) const {
  const ScanSettings& settings = session.Host().Settings();
  const Dialog& page = session.TheScene().Require(dialog::general);
  const auto& resolutions = page.Get<Combo>(id::resolutionCombo);
  if (resolutions.Selected() != IndexOfData(resolutions, settings.resolutionId)) {
    return "combo 1210 doesn't show the record's resolution";
  }
  const auto& sizes = page.Get<Combo>(id::sizeCombo);
  if (sizes.Selected() != IndexOfData(sizes, settings.sizeId)) return "combo 1251 doesn't show the record's size";
  const auto& modes = page.Get<Combo>(id::modeCombo);
  const int index = std::countr_zero(settings.mode);
  if (modes.Selected() != (index < modes.Count() ? index : -1)) return "combo 1011 doesn't show the record's mode";
  return {};
}

// A choice of mode can bring the resolution down without writing the sizes anew, so lengths in pixels stay behind
// until the next act that writes them.
void WalkChecks::NoteChanges(Session& session, const std::string& act) {
  const ScanSettings& settings = session.Host().Settings();
  const bool isNewMode = std::exchange(modeBefore_, settings.mode) != settings.mode;
  const auto focus = session.TheScene().Focused();
  const bool isAtModes =
      focus && focus->dialog->TemplateId() == dialog::general && focus->control->Id() == id::modeCombo;
  const bool isChoice = act.starts_with("pick 1011 ") || (act.starts_with("key ") && (isNewMode || isAtModes));
  if (std::exchange(dpiBefore_, settings.dpi) != settings.dpi) pixelsAreOld_ = isChoice;
  sizeIsNew_ = std::exchange(sizeBefore_, settings.sizeId) != settings.sizeId;
  NoteAdvancedPage(session, act == "open", isChoice);
}

// Also one of the mode that stands clears values without showing them, so the Advanced page's edits may keep to the
// letter what they showed before, until the page shows its settings again.
void WalkChecks::NoteAdvancedPage(Session& session, bool isOpening, bool isChoiceOfMode) {
  const Dialog* page = session.TheScene().Find(dialog::advanced);
  const int tab = Dialog::ControlOf<TabBar>(page, id148::viewTabs).Current();
  const bool isTurned = std::exchange(tabBefore_, tab) != tab;  // picking the current tab raises nothing
  if (isOpening || isTurned) keptTexts_.clear();
  for (const int edit : {id148::firstEdit, id148::secondEdit}) {
    const std::string text = Dialog::ControlOf<Edit>(page, edit).Text();
    if (std::exchange(textsBefore_[edit], text) != text) {
      keptTexts_.erase(edit);
    } else if (isChoiceOfMode) {
      keptTexts_[edit] = text;
    }
  }
}

// An edit that holds the focus shows what is being typed.
WalkChecks::Finding WalkChecks::CheckLengths(Session& session) const {
  const ScanSettings& settings = session.Host().Settings();
  const Dialog& page = session.TheScene().Require(dialog::general);
  const int shownUnits = page.Get<Combo>(id::unitCombo).Selected();
  if (shownUnits < 0) return "combo 1256 shows nothing";
  if (shownUnits == static_cast<int>(unit::pixel) && pixelsAreOld_) return {};
  for (const auto& [edit, inches] :
       {std::pair{id::widthEdit, settings.width}, std::pair{id::heightEdit, settings.height}}) {
    const auto& control = page.Get<Edit>(edit);
    if (control.HasFocus()) continue;
    if (!ReadsBack(control.Text(), inches, static_cast<std::uint32_t>(shownUnits), settings.dpi)) {
      return "edit " + std::to_string(edit) + " shows " + Quote(control.Text()) + " for " + Number(inches) +
             " inches";
    }
  }
  return {};
}

WalkChecks::Finding WalkChecks::CheckProfile(Session& session) {
  Platform& platform = session.Outside().ThePlatform();
  const std::string path = session.TheFiles().PathOf(ModuleFile::profile);
  if (platform.files.PresenceOf(path) != Presence::present) return {};
  std::map<std::string, std::string> factory;
  ConfigEntries entries(platform.profiles, path);
  for (ConfigEntry entry; entries.Next(entry);) {
    const std::string name(entry.name);
    ScanConfigItem item{};
    if (CopyStoredItem(entry, item) != sizeof item) return "the stored row " + name + " doesn't parse";
    if (item.editable == 0) factory[name].assign(entry.item.begin(), entry.item.end());
  }
  if (factoryRows_.empty()) factoryRows_ = factory;
  if (factory != factoryRows_) return "a factory row has changed on the disk";
  return {};
}

// At rest a new size is told to the host, whatever refreshes were quiet before.
WalkChecks::Finding WalkChecks::CheckNotified(Session& session, const std::string& act) {
  if (!act.starts_with("pick 1251 ") || !sizeIsNew_) return {};
  const auto& heard = session.Host().Heard();
  if (std::find(heard.begin(), heard.end(), "host 0x402 0 settings") != heard.end()) return {};
  return "the host wasn't told of a new size";
}

}  // namespace set32
