#include "profile/save_config_dialog.h"

#include <cstddef>
#include <optional>

#include "controls/format.h"
#include "platform/profile_text.h"
#include "resources/dialogs.h"
#include "resources/ids.h"
#include "resources/strings.h"

namespace set32 {

NameVerdict JudgeConfigName(ProfileCalls& calls, const std::string& profilePath, const std::string& name) {
  if (!IsUsableConfigName(name)) return NameVerdict::bad;
  ScanConfigItem item{};
  const std::optional<std::size_t> stored = ReadStoredItem(calls, profilePath, name, item);
  if (!stored) return NameVerdict::fresh;
  const bool flagsAreKnown = *stored > offsetof(ScanConfigItem, deletable);
  return flagsAreKnown && item.deletable != 0 ? NameVerdict::replaceable : NameVerdict::guarded;
}

std::optional<int> RefusalText(Stored stored, const std::string& name) {
  if (stored == Stored::guarded) return text::protectedConfig;
  if (stored == Stored::failed && profile_text::Trim(name).empty()) return text::badConfigName;
  return std::nullopt;
}

int CSaveConfigDlg::Run(WindowHandle owner) {
  return state_.platform.windows.RunModal(*FindDialog(dialog::saveConfig), owner, *this);
}

void CSaveConfigDlg::OnInit(Dialog& dialog) {
  constexpr int longestTyped = 128;  // characters
  dialog_ = &dialog;
  dialog.CentreOnPointer();
  Edit& edit = dialog.Get<Edit>(id104::nameEdit);
  edit.SetText(name);
  edit.SetLimit(longestTyped);
}

void CSaveConfigDlg::OnOk() {
  const std::string typed = dialog_->Get<Edit>(id104::nameEdit).Text();
  switch (JudgeConfigName(state_.platform.profiles, state_.profilePath, typed)) {
    case NameVerdict::bad:
      return Say(text::badConfigName, box_style::stop);
    case NameVerdict::guarded:
      return Say(text::protectedConfig, box_style::ok);
    case NameVerdict::replaceable:
      if (!AskToReplace(typed)) return;
      break;
    case NameVerdict::fresh:
      break;
  }
  if (!dialog_->IsAlive()) return;
  name = typed;
  dialog_->EndModal(dialog_result::ok);
}

void CSaveConfigDlg::Say(int textId, std::uint32_t style) {
  state_.platform.boxes.Show(dialog_->Handle(), LoadString(state_.platform.system, textId), state_.productName,
                             style);
}

bool CSaveConfigDlg::AskToReplace(const std::string& typed) {
  const std::string question = FormatText(LoadString(state_.platform.system, text::replaceConfig), typed);
  return state_.platform.boxes.Show(dialog_->Handle(), question, state_.productName,
                                    box_style::yesNo | box_style::exclamation) != BoxAnswer::no;
}

}  // namespace set32
