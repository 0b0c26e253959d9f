#include "scanner/add_scanner_dialog.h"

#include <array>

#include "resources/dialogs.h"
#include "resources/ids.h"
#include "resources/strings.h"
#include "scanner/address.h"
#include "scanner/nets.h"

namespace set32 {

namespace {

constexpr Colour complaintColour{255, 0, 0};

// Both buttons of the dialog are disabled while it asks the network, and are seen to be.
class ButtonsOff {
 public:
  explicit ButtonsOff(Dialog& dialog) : dialog_(dialog) {
    Enable(false);
    dialog_.Update();
  }
  ~ButtonsOff() { Enable(true); }
  ButtonsOff(const ButtonsOff&) = delete;
  ButtonsOff& operator=(const ButtonsOff&) = delete;

 private:
  void Enable(bool enabled) {
    dialog_.Get<Button>(id::ok).SetEnabled(enabled);
    dialog_.Get<Button>(id::cancel).SetEnabled(enabled);
  }

  Dialog& dialog_;
};

}  // namespace

int CAddScannerIpDlg::Run(WindowHandle owner) {
  const DialogTemplate* source = FindDialog(dialog::addScanner);
  return source != nullptr ? windows_.RunModal(*source, owner, *this) : dialog_result::cancel;
}

void CAddScannerIpDlg::OnInit(Dialog&) {
  Show(State::none);
}

void CAddScannerIpDlg::OnShown(bool shown) {
  if (shown) handled_->Get<Address>(id119::address).SetFocus();
}

CAddScannerIpDlg::State CAddScannerIpDlg::CheckFields() {
  std::array<std::uint8_t, 4> fields{};
  const int filled = handled_->Get<Address>(id119::address).Fields(fields);
  if (filled < 4) return State::fieldsMissing;
  if (fields[0] == 0) return State::firstFieldZero;
  if (fields[3] == 255) return State::lastFieldBroadcast;
  addressWord_ = 0;
  for (const std::uint8_t field : fields) addressWord_ = addressWord_ << 8 | field;
  return State::none;
}

void CAddScannerIpDlg::Show(State state) {
  Label& message = handled_->Get<Label>(id119::message);
  if (state == State::none) {
    message.SetColour({});
    message.SetText({});
    return;
  }
  message.SetColour(complaintColour);
  message.SetText(LoadString(system_, state == State::noAnswer ? text::noDeviceThere : text::badAddress));
}

void CAddScannerIpDlg::OnOk() {
  if (const State complaint = CheckFields(); complaint != State::none) {
    Show(complaint);
    return;
  }
  addressText_ = DottedAddress(addressWord_);
  bool answered = false;
  {
    const ButtonsOff asking(*handled_);
    const SocketLibrary library(sockets_, nets::oldLibrary);
    if (!library) {
      Show(State::none);  // nothing is known about the address
      return;
    }
    answered = ProbeScanner(sockets_, system_, addressText_, networkScannerPort);
  }
  windows_.ForgetInput();
  if (!answered) {
    Show(State::noAnswer);
    return;
  }
  handled_->EndModal(dialog_result::ok);
}

}  // namespace set32
