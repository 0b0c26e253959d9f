// A dialog on a real window.
//
// The template makes the window and its controls at one stroke; the object then takes hold of them, hears their
// messages, and is told in the end that they are gone. Whatever calls into the handler may end the window or release
// this object, so nothing here touches a member behind such a call without having asked.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/win32/real_control.h"
#include "platform/win32/real_tooltip.h"
#include "platform/win32/window_set.h"
#include "platform/windows.h"

namespace set32 {

class Win32Windows;

class Win32Dialog : public Dialog {
 public:
  Win32Dialog(std::shared_ptr<win32::WindowSet> windowSet, const DialogTemplate& source, HWND parent,
              DialogHandler& handler, bool modal);
  ~Win32Dialog() override;
  Win32Dialog(const Win32Dialog&) = delete;
  Win32Dialog& operator=(const Win32Dialog&) = delete;

  int TemplateId() const override { return templateId_; }
  WindowHandle Handle() const override { return reinterpret_cast<WindowHandle>(window_); }
  bool IsAlive() const override { return window_ != nullptr; }
  Control* Find(int id) const override;
  const std::vector<std::unique_ptr<Control>>& Controls() const override { return controls_; }
  Rect Place() const override;
  void Move(const Rect& place) override;
  Size ClientSize() const override;
  void SetVisible(bool visible) override;
  bool IsVisible() const override;
  void SetEnabled(bool enabled) override;
  bool IsEnabled() const override;
  void SetTitle(std::string_view title) override;
  std::string Title() const override;
  void SetIcon(const Picture& icon) override;
  void RemoveCaption() override;
  void TakeFocus() override;
  Control* Focused() const override;
  void Invalidate() override;
  void Update() override;
  void CentreOverParent() override;
  void CentreOnScreen() override;
  void CentreOnPointer() override;
  Tooltip& Tips() override;
  void EndModal(int result) override;
  bool IsModal() const override { return modal_; }
  bool IsChild() const override { return child_; }
  void Destroy() override;

  // The object of a window, null for one that isn't a dialog's of ours.
  static Win32Dialog* Of(HWND window);
  HWND Window() const { return window_; }
  const std::shared_ptr<win32::WindowSet>& WindowSet() const { return windowSet_; }
  void Deliver(const Event& event) const;
  void Accept() const;
  void Cancel() const;
  // Enter, with the edit's guard first, then a push button that has the focus, the default button, or OK.
  void TakeEnter() const;
  // The control that a window is or lies in, null for none.
  win32::RealControl* ControlAround(HWND window) const;

 private:
  friend class Win32Windows;

  // Calls the handler; not once the window is gone or its object was released. What it throws ends here.
  template <typename Act>
  void Tell(Act act) const;

  // Creation, in the order of Win32Windows.
  bool MakeWindow(const DialogTemplate& source);
  void TakeControls(const DialogTemplate& source);
  int RunLoop();

  // Messages.
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  INT_PTR OnCommand(WORD id, WORD code, HWND control);
  INT_PTR OnHostMessage(UINT message, WPARAM wParam, LPARAM lParam);
  INT_PTR OnColour(HDC dc, HWND control) const;
  INT_PTR OnCursor(WORD mouseMessage) const;
  void SpareFrames(HDC dc) const;
  INT_PTR OnPaint();
  INT_PTR OnActivate(bool active);
  void TakeFocusBack();
  void OnSize(WPARAM how, Size client);
  static INT_PTR Answer(HWND window, LRESULT result);
  void OnWindowDestroying();
  void OnWindowGone();

  void Show();
  void PlaceFocus();
  void LeaveScreen();
  bool ReturnsFocus() const;
  static void ReturnFocus(HWND before);
  template <typename Fits>
  static Win32Dialog* Next(const win32::WindowSet& among, std::uint32_t after, std::uint32_t last, Fits fits);
  void TellShown(bool shown);
  void PostOpened() const;
  void TellOpened();
  void TellClosed();
  void DestroyOwned() const;
  bool FocusIsInside() const;
  void Centre(const Rect& over);
  void PutAt(const Rect& place) const;

  std::shared_ptr<win32::WindowSet> windowSet_;
  int templateId_;
  HWND parent_;
  HWND window_ = nullptr;
  DialogHandler* handler_;
  bool child_;
  bool modal_;
  bool takesFocus_;          // when it appears
  bool ended_ = false;       // the modal run
  bool silent_ = false;      // the object was released
  bool destroying_ = false;  // the handler was told
  bool onScreen_ = false;    // a pop-up was shown and has not left yet
  bool shown_ = false;       // as the handler knows it
  bool focusPlaced_ = false;
  bool repaintDue_ = false;  // by the handler
  int result_ = dialog_result::cancel;
  Size client_;                 // as the handler knows it
  HWND focusBefore_ = nullptr;  // outside, of a pop-up that appeared
  HWND focusInside_ = nullptr;  // of a pop-up behind another window
  win32::OwnedIcon icon_;
  const std::uint32_t number_;  // in order of creation
  win32::DialogControls held_{1};
  std::vector<std::unique_ptr<Control>>& controls_ = held_.front();
  std::unique_ptr<win32::RealTooltip> tips_;
};

template <typename Act>
void Win32Dialog::Tell(Act act) const {
  if (silent_ || window_ == nullptr) return;
  const win32::Delivery delivery(windowSet_);
  Guarded([&] { act(*handler_); });
}

}  // namespace set32
