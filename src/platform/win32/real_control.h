// What all controls on real windows share: their window, and the ways by which its messages come in.
//
// A typed control is Real<Interface>: the interface of platform/control.h over a window that the dialog's template
// made. When the window dies, the object notices and answers like a control that isn't there.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/control.h"
#include "platform/events.h"
#include "platform/win32/windows_api.h"

namespace set32 {

class Win32Dialog;

namespace win32 {

// An event can end the dialog or release its object, and with it this one: whoever calls into the handlers touches
// no member afterwards.
class RealControl {
 public:
  virtual ~RealControl();
  RealControl(const RealControl&) = delete;
  RealControl& operator=(const RealControl&) = delete;

  HWND Window() const { return window_; }
  Win32Dialog& Owner() const { return dialog_; }
  // Whether a window is this control's or lies inside it.
  bool Covers(HWND window) const;

  // What the window tells its dialog. The codes are the window system's own.
  virtual void OnCommand(WORD) {}
  virtual LRESULT OnNotify(const NMHDR&) { return 0; }
  virtual void OnScroll(WORD /*code*/, int /*position*/) {}
  virtual void OnDrawItem(const DRAWITEMSTRUCT&) {}
  // Before the window itself sees a message; a value ends the message.
  virtual std::optional<LRESULT> OnMessage(UINT /*message*/, WPARAM /*wParam*/, LPARAM /*lParam*/) { return {}; }

 protected:
  RealControl(Win32Dialog& dialog, HWND window, int id);

  void Raise(Event event) const;
  void Raise(EventKind kind) const { Raise(Event{.kind = kind}); }
  LRESULT Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return window_ == nullptr ? 0 : SendMessageW(window_, message, wParam, lParam);
  }
  int AskNumber(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return static_cast<int>(Ask(message, wParam, lParam));
  }
  template <typename T>
  LRESULT AskWith(UINT message, WPARAM wParam, T& record) const {
    return Ask(message, wParam, reinterpret_cast<LPARAM>(&record));
  }
  bool HasStyle(DWORD style) const;
  std::wstring WideText() const;
  void PutText(std::string_view text) const;
  Rect PlaceInDialog() const;
  void PutAt(const Rect& place) const;
  Size Inside() const;
  int WidthOf(std::string_view text) const;
  void TakeFocusHere() const;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  Win32Dialog& dialog_;
  HWND window_;
  int id_;
  WNDPROC original_;
};

template <typename Interface>
class Real : public Interface, public RealControl {
 public:
  Real(Win32Dialog& dialog, HWND window, const ControlTemplate& source)
      : Interface(source.id, source.kind), RealControl(dialog, window, source.id) {}

  bool Exists() const override { return Window() != nullptr; }
  void SetEnabled(bool enabled) override {
    if (Window() != nullptr) EnableWindow(Window(), enabled);
  }
  bool IsEnabled() const override { return Window() != nullptr && !HasStyle(WS_DISABLED); }
  void SetVisible(bool visible) override {
    if (Window() != nullptr) ShowWindow(Window(), visible ? SW_SHOWNA : SW_HIDE);
  }
  bool IsVisible() const override { return HasStyle(WS_VISIBLE); }
  Rect Place() const override { return PlaceInDialog(); }
  void Move(const Rect& place) override { PutAt(place); }
  Size ClientSize() const override { return Inside(); }
  void SetFocus() override {
    if (TakesFocus(this->Kind())) TakeFocusHere();
  }
  bool HasFocus() const override { return Window() != nullptr && Covers(GetFocus()); }
  std::string Text() const override;
  void SetText(std::string_view text) override { PutText(text); }
  void Update() override {
    if (Window() != nullptr) UpdateWindow(Window());
  }
  int TextWidth(std::string_view text) const override { return WidthOf(text); }
};

std::string NarrowText(std::wstring_view text);

template <typename Interface>
std::string Real<Interface>::Text() const {
  return NarrowText(WideText());
}

}  // namespace win32
}  // namespace set32
