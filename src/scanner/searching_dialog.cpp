#include "scanner/searching_dialog.h"

#include "resources/dialogs.h"
#include "resources/ids.h"

namespace set32 {

CSearchingDlg::CSearchingDlg(Windows& windows, WindowHandle page, std::string_view text) {
  const DialogTemplate* source = FindDialog(dialog::searching);
  if (source == nullptr) return;
  window_ = windows.Create(*source, page, *this);
  if (!window_) return;
  window_->CentreOverParent();
  if (!text.empty()) window_->Get<Label>(id120::text).SetText(text);
  window_->SetVisible(true);
  Paint();
}

void CSearchingDlg::Paint() {
  if (window_) window_->Update();
}

}  // namespace set32
