// A person's hands on real windows: key and mouse messages to them, shown or hidden, and the windows of a host.
//
// Where one act of a person could be done in several ways, the way is taken that raises one event and no other (a
// combo's entry by one arrow key, for example). Only what a message can't say alone is told to the dialog as the
// control would tell it: the step of a spin, the position of a bar, the release of a slider.
#pragma once

#include <array>

#include "apps/stage/input.h"
#include "platform/clipboard.h"
#include "platform/win32/win32_windows.h"

namespace set32 {

class Win32Input : public Input {
 public:
  enum class HostWindows { hidden, shown };

  // `clipboard` is where a paste takes its text from; edits read the system's, so the text is laid there first.
  Win32Input(Win32Windows& windows, Clipboard& clipboard, HostWindows look);

  WindowHandle MakeHostWindow(Size client, HostWindowHandler& handler) override;
  void DestroyHostWindow(WindowHandle window) override;
  void Pump() override;

  void Click(Control& button) override;
  void PickEntry(Combo& combo, int index) override;
  void ChooseTab(TabBar& bar, int index) override;
  void ClickRow(List& list, int row) override;
  void ArrowTo(List& list, int row) override;
  void SetCaret(Edit& edit, TextRange range) override;
  void DropList(Combo& combo) override;
  void FillAddress(Address& address, const std::array<std::optional<int>, 4>& fields) override;

  void Focus(Control& control) override;
  void FocusHost() override;

  void SelectAll(Edit& edit) override { edit.Select({0, -1}); }
  void TypeText(Edit& edit, std::string_view text) override;
  void Backspace(Edit& edit, int times) override;
  void Paste(Edit& edit) override;

  void PressKey(Key key) override;

  void ScrollTo(Control& bar, int code, std::optional<int> position) override;
  void SpinBy(Spin& spin, int delta) override;
  void Release(Slider& slider) override;
  void ScrollList(Combo& combo, int topIndex) override { combo.SetTopIndex(topIndex); }
  void Poke(Control& button) override;
  void MovePointer(Dialog& dialog, Point at) override;
  void Resize(Dialog& dialog, Size client) override;
  void SendClose(Dialog& dialog) override;
  void TurnToTab(TabBar& bar, int index) override;

 private:
  template <typename RealType, typename Act>
  void FocusAnd(Control& control, Act act);

  Win32Windows& windows_;
  Clipboard& clipboard_;
  HostWindows look_;
  WindowHandle lastHost_ = 0;
};

}  // namespace set32
