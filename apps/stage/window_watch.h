// What scripts and tests see of the windows beside what the panel asks of them. Host's thread only.
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "platform/windows.h"

namespace set32 {

class WindowWatch {
 public:
  virtual ~WindowWatch() = default;

  // Called with each pop-up before its OnInit; with each that is shown, its focus placed, a modal one inside its run,
  // and one that is on the screen already as well; and with each that leaves the screen, hidden or about to be
  // destroyed, before it hears of its destruction (the result is a modal run's). In the model of windows a modal run
  // is over when the second one returns, with cancel if the dialog wasn't ended.
  void SetOpeningHook(std::function<void(Dialog&)> opening) { opening_ = std::move(opening); }
  void SetOpenedHook(std::function<void(Dialog&)> opened) { opened_ = std::move(opened); }
  void SetClosedHook(std::function<void(Dialog&, int result)> closed) { closed_ = std::move(closed); }

  // All dialogs that stand, in order of creation.
  virtual std::vector<Dialog*> Standing() const = 0;

 protected:
  std::function<void(Dialog&)> opening_, opened_;
  std::function<void(Dialog&, int result)> closed_;
};

}  // namespace set32
