// What a page had before a call of the host's, put back when the call fails.
//
// The host hears then that nothing came of it: its record stands as it was given, and a page that stood before goes
// on with what it had. Where the host ended the page meanwhile, or gave it another record, nothing is left to put
// back.
#pragma once

#include <exception>

#include "panel/page.h"

namespace set32 {

class BindingHold {
 public:
  // Before the call changes anything; the call binds the page to `given`, once.
  BindingHold(CPanelPage& page, ScanSettings& given)
      : page_(page), given_(given), record_(given), before_(page.Bound()) {}
  ~BindingHold() {
    if (std::uncaught_exceptions() > exceptions_ && page_.Rebind(before_)) given_ = record_;
  }
  BindingHold(const BindingHold&) = delete;
  BindingHold& operator=(const BindingHold&) = delete;

 private:
  CPanelPage& page_;
  ScanSettings& given_;
  const ScanSettings record_;
  const CPanelPage::Binding before_;
  const int exceptions_ = std::uncaught_exceptions();
};

}  // namespace set32
