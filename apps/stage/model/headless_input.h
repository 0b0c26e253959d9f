// A person's hands on the model of windows.
#pragma once

#include "apps/stage/input.h"
#include "apps/stage/model/headless_windows.h"
#include "platform/clipboard.h"

namespace set32 {

class HeadlessInput : public Input {
 public:
  HeadlessInput(HeadlessWindows& windows, Clipboard& clipboard) : windows_(windows), clipboard_(clipboard) {}

  WindowHandle MakeHostWindow(Size client, HostWindowHandler& handler) override;
  void DestroyHostWindow(WindowHandle window) override;
  void Pump() override { windows_.Dispatch(); }

  void Click(Control& button) override;
  void PickEntry(Combo& combo, int index) override;
  void ChooseTab(TabBar& bar, int index) override;
  void ClickRow(List& list, int row) override;
  void ArrowTo(List& list, int row) override;
  void SetCaret(Edit& edit, TextRange range) override;
  void DropList(Combo& combo) override;
  void FillAddress(Address& address, const std::array<std::optional<int>, 4>& fields) override;

  void Focus(Control& control) override { control.SetFocus(); }
  void FocusHost() override { windows_.FocusHost(); }

  void SelectAll(Edit& edit) override { edit.Select({0, -1}); }
  void TypeText(Edit& edit, std::string_view text) override;
  void Backspace(Edit& edit, int times) override;
  void Paste(Edit& edit) override;

  void PressKey(Key key) override;

  void TurnToTab(TabBar& bar, int index) override;
  void ScrollTo(Control& bar, int code, std::optional<int> position) override;
  void SpinBy(Spin& spin, int delta) override;
  void Release(Slider& slider) override;
  void ScrollList(Combo& combo, int topIndex) override { combo.SetTopIndex(topIndex); }
  void Poke(Control& button) override;
  void MovePointer(Dialog& dialog, Point at) override;
  void Resize(Dialog& dialog, Size client) override;
  void SendClose(Dialog& dialog) override;

 private:
  template <typename Model, typename Act>
  void FocusAnd(Control& control, Act act);
  void PressEnter(WindowHandle window);

  HeadlessWindows& windows_;
  Clipboard& clipboard_;
};

}  // namespace set32
