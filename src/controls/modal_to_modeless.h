// CDlgModalToModeless: runs a dialog so that it stands beside the page that opened it.
//
// Page, dialog and preview share one record without a lock, so the dialog runs on the page's own thread, modeless,
// and the host's loop serves it. What a separate thread would have given stays: the start returns at once, there is a
// named mutex that is owned while the dialog stands, and the page can wait for the dialog's end.
#pragma once

#include <memory>

#include "platform/threads.h"
#include "set32/window_handle.h"

namespace set32 {

// A dialog that can be run. It tells the run by Ended() that its window has gone.
class ModelessDialog {
 public:
  virtual ~ModelessDialog() = default;
  // Makes the window and shows it; false when it can't be had.
  virtual bool Open(WindowHandle owner) = 0;
  // Closes the window as its Cancel does.
  virtual void Cancel() = 0;
};

// Host's thread only. The run must outlive the dialog's window.
class CDlgModalToModeless {
 public:
  explicit CDlgModalToModeless(Threads& threads) : threads_(threads) {}
  ~CDlgModalToModeless();
  CDlgModalToModeless(const CDlgModalToModeless&) = delete;
  CDlgModalToModeless& operator=(const CDlgModalToModeless&) = delete;

  // True when the dialog stands. False while another run is under way.
  bool Start(ModelessDialog& dialog, WindowHandle parent);

  // The dialog's window has gone.
  void Ended();

  bool IsRunning() const { return dialog_ != nullptr; }

  // Cancels the dialog if it runs. Result: whether it has ended. There is nothing to wait for: what closes on this
  // thread has closed when the call returns, and would never close while the thread waits.
  bool CancelAndWait();

 private:
  bool Opens(ModelessDialog& dialog, WindowHandle parent);

  Threads& threads_;
  ModelessDialog* dialog_ = nullptr;
  std::unique_ptr<NamedMutex> closedMutex_;
};

}  // namespace set32
