// Windows and dialogs of the real window system. One object serves one thread; it must outlive no dialog.
#pragma once

#include <memory>

#include "platform/win32/desk_state.h"
#include "platform/windows.h"

namespace set32 {

class Win32Windows : public Windows {
 public:
  Win32Windows();

  std::unique_ptr<Dialog> Create(const DialogTemplate& source, WindowHandle parent, DialogHandler& handler) override;
  int RunModal(const DialogTemplate& source, WindowHandle owner, DialogHandler& handler) override;
  void SetOpeningHook(std::function<void(Dialog&)> opening) override { desk_->opening = std::move(opening); }
  void SetOpenedHook(std::function<void(Dialog&)> opened) override { desk_->opened = std::move(opened); }
  void SetClosedHook(std::function<void(Dialog&, int result)> closed) override { desk_->closed = std::move(closed); }
  bool IsWindow(WindowHandle window) const override;
  MessageResult Send(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;
  void Invalidate(WindowHandle window) override;
  void Enable(WindowHandle window, bool enabled) override;
  void RaiseToFront(WindowHandle window) override;
  Size FullScreen() const override;
  Rect WorkAreaAt(const Rect& place) const override;
  int ScrollBarWidth() const override;
  std::vector<Dialog*> Standing() const override;

  // Called at each Invalidate, for whoever watches a host's window.
  void SetRepaintHook(std::function<void(WindowHandle)> asked) { desk_->repaintAsked = std::move(asked); }
  const std::shared_ptr<win32::DeskState>& Desk() const { return desk_; }
  static void Detach(DialogHandler& handler) { Attach(handler, nullptr); }

 private:
  std::unique_ptr<Win32Dialog> Make(const DialogTemplate& source, WindowHandle parent, DialogHandler& handler,
                                    bool modal);

  std::shared_ptr<win32::DeskState> desk_;
};

}  // namespace set32
