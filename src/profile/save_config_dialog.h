// CSaveConfigDlg, dialog 104: asks for the name under which the present settings are saved. It writes nothing; it
// ends with OK only for a name that the caller can store at once. Host's thread only.
#pragma once

#include <optional>
#include <string>

#include "boundary/module_state.h"
#include "platform/windows.h"
#include "profile/config_items.h"

namespace set32 {

// What becomes of a name that was typed.
enum class NameVerdict {
  bad,          // blank, or the file couldn't hold it
  fresh,        // no configuration has it
  replaceable,  // a configuration of the user's has it
  guarded,      // one that the user can't delete has it, or one that can't be read
};
NameVerdict JudgeConfigName(ProfileCalls& calls, const std::string& profilePath, const std::string& name);

// What a person is told when the name that the dialog took couldn't be stored after all: another program may have
// guarded it meanwhile, and a name of odd blanks can't be written. For a disk that takes nothing there is no text.
std::optional<int> RefusalText(Stored stored, const std::string& name);

class CSaveConfigDlg : public DialogHandler {
 public:
  explicit CSaveConfigDlg(ModuleState& state) : state_(state) {}

  // Modal. Result: dialog_result::ok or cancel.
  int Run(WindowHandle owner);

  // In: the text that the edit opens with. Out, after OK: the name chosen, as typed.
  std::string name;

  void OnInit(Dialog& dialog) override;
  void OnOk() override;

 private:
  void Say(int textId, std::uint32_t style);
  bool AskToReplace(const std::string& typed);

  ModuleState& state_;
  Dialog* dialog_ = nullptr;
};

}  // namespace set32
