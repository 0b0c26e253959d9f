// CAddScannerIpDlg: takes a scanner's address and asks that address whether it answers.
#pragma once

#include <cstdint>
#include <string>

#include "platform/sockets.h"
#include "platform/system.h"
#include "platform/windows.h"

namespace set32 {

class CAddScannerIpDlg : public DialogHandler {
 public:
  CAddScannerIpDlg(Windows& windows, System& system, Sockets& sockets)
      : windows_(windows), system_(system), sockets_(sockets) {}

  // Runs modally over the owner; dialog_result::ok with an address that answered.
  int Run(WindowHandle owner);

  // Of the accepted address.
  const std::string& AddressText() const { return addressText_; }
  std::uint32_t AddressWord() const { return addressWord_; }  // first field in the top byte

  void OnInit(Dialog& dialog) override;
  void OnShown(bool shown) override;
  void OnOk() override;

 private:
  // What the dialog complains about.
  enum class State : std::int32_t { none, fieldsMissing, firstFieldZero, lastFieldBroadcast, noAnswer };

  // The complaint about the address in the control; none: `addressWord_` is set.
  State CheckFields();
  // Shows a complaint in red, or takes it away.
  void Show(State state);

  Windows& windows_;
  System& system_;
  Sockets& sockets_;
  std::string addressText_;
  std::uint32_t addressWord_ = 0;
};

}  // namespace set32
