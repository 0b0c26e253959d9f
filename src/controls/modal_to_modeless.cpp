#include "controls/modal_to_modeless.h"

#include "platform/guarded.h"

namespace set32 {

namespace {
constexpr std::string_view closedMutexName = "CGammaSetting Mutex Object";
}

CDlgModalToModeless::~CDlgModalToModeless() {
  Ended();
}

bool CDlgModalToModeless::Start(ModelessDialog& dialog, WindowHandle parent) {
  if (IsRunning()) return false;
  dialog_ = &dialog;
  if (!Opens(dialog, parent)) {
    dialog_ = nullptr;
    return false;
  }
  // The dialog may have closed again while it opened, and may even have opened once more.
  if (IsRunning() && closedMutex_ == nullptr) closedMutex_ = threads_.MakeMutex(closedMutexName, true);
  return IsRunning();
}

bool CDlgModalToModeless::Opens(ModelessDialog& dialog, WindowHandle parent) {
  const OnFailure forget([this] { dialog_ = nullptr; });
  return dialog.Open(parent);
}

void CDlgModalToModeless::Ended() {
  dialog_ = nullptr;
  if (closedMutex_ != nullptr) closedMutex_->Release();
  closedMutex_.reset();
}

bool CDlgModalToModeless::CancelAndWait() {
  if (IsRunning()) dialog_->Cancel();
  return !IsRunning();
}

}  // namespace set32
