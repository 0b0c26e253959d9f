#include "controls/message_dialog.h"

#include "boundary/option_file.h"
#include "resources/dialogs.h"
#include "resources/ids.h"
#include "resources/pictures.h"

namespace set32 {

void CMessageDlg::Show(WindowHandle parent, std::string_view caption, std::string_view text) {
  if (!StandsOrOpens(parent)) return;
  TakeIcons();
  dialog_->SetTitle(caption);
  dialog_->Get<Label>(id115::text).SetText(text);
  dialog_->CentreOnScreen();
  dialog_->SetVisible(true);
}

bool CMessageDlg::StandsOrOpens(WindowHandle parent) {
  if (dialog_ != nullptr && dialog_->IsAlive()) return true;
  const DialogTemplate* source = FindDialog(dialog::message);
  if (source == nullptr) return false;
  dialog_ = state_.platform.windows.Create(*source, parent, *this);
  return dialog_ != nullptr;
}

// A maker's edition has its own icon on the window.
void CMessageDlg::TakeIcons() {
  const OptionFile options(state_.platform.profiles, state_.platform.system, state_.runtimeIniPath);
  const bool oem = options.Read(option_key::oem) != 0;
  dialog_->SetIcon(LoadPicture(oem ? picture::windowIconOem : picture::windowIcon));
  dialog_->Get<PictureControl>(id115::icon).SetStopIcon();
}

}  // namespace set32
