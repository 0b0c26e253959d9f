// Windows and dialogs of the real window system. One object serves one thread; it must outlive no dialog.
#pragma once

#include <memory>

#include "platform/win32/window_set.h"
#include "platform/windows.h"

namespace set32 {

class Win32Windows : public Windows {
 public:
  explicit Win32Windows(std::shared_ptr<win32::WindowSet> windowSet = std::make_shared<win32::WindowSet>());

  std::unique_ptr<Dialog> Create(const DialogTemplate& source, WindowHandle parent, DialogHandler& handler) override;
  int RunModal(const DialogTemplate& source, WindowHandle owner, DialogHandler& handler) override;
  bool IsWindow(WindowHandle window) const override;
  MessageResult Send(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;
  void Invalidate(WindowHandle window) override;
  void Enable(WindowHandle window, bool enabled) override;
  void RaiseToFront(WindowHandle window) override;
  void ForgetInput() override;
  Size FullScreen() const override;
  Rect WorkAreaAt(const Rect& place) const override;
  int ScrollBarWidth() const override;

  // The windows' thread ends, and takes the windows that stand with it once this returns.
  void OnThreadEnding() { windowSet_->loopHook.reset(); }

  const std::shared_ptr<win32::WindowSet>& WindowSet() const { return windowSet_; }
  static void Detach(DialogHandler& handler) { Attach(handler, nullptr); }

 private:
  std::unique_ptr<Win32Dialog> Make(const DialogTemplate& source, WindowHandle parent, DialogHandler& handler,
                                    bool modal);

  std::shared_ptr<win32::WindowSet> windowSet_;
};

}  // namespace set32
