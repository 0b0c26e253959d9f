// A person's hands, for scripts and tests: the acts of a mouse and a keyboard on controls, and the windows of a host.
//
// Each act raises the events that a person's act raises (platform/events.h), synchronously. Nothing is checked here:
// acting on a hidden or disabled control is the caller's mistake (apps/driver checks first). Host's thread only.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "platform/control.h"
#include "platform/windows.h"

namespace set32 {

// What a host's window hears.
class HostWindowHandler {
 public:
  virtual ~HostWindowHandler() = default;
  virtual MessageResult OnHostMessage(std::uint32_t message, WParam wParam, LParam lParam) = 0;
  // The panel asked for a repaint of the window.
  virtual void OnRepaintAsked() = 0;
};

enum class Key { enter, escape, tab, backtab, left, right, up, down, pageUp, pageDown, home, end };

class Input {
 public:
  virtual ~Input() = default;

  // A top-level window of a host; the handler must outlive it. Destroying ends its children with it, as a window
  // system does.
  virtual WindowHandle MakeHostWindow(Size client, HostWindowHandler& handler) = 0;
  virtual void DestroyHostWindow(WindowHandle window) = 0;
  // Dispatches what waits in the message loop; in the model these are repaints.
  virtual void Pump() = 0;

  // These move the focus to the control first, as a click or key does. A control that leaving the old one has
  // disabled or ended takes no act any more.
  virtual void Click(Control& button) = 0;
  virtual void PickEntry(Combo& combo, int index) = 0;  // also the entry that is selected already
  virtual void ChooseTab(TabBar& bar, int index) = 0;
  virtual void ClickRow(List& list, int row) = 0;  // -1: beside the rows
  virtual void ArrowTo(List& list, int row) = 0;
  virtual void SetCaret(Edit& edit, TextRange range) = 0;
  virtual void DropList(Combo& combo) = 0;  // opens and closes the list
  virtual void FillAddress(Address& address, const std::array<std::optional<int>, 4>& fields) = 0;

  virtual void Focus(Control& control) = 0;
  virtual void FocusHost() = 0;  // the host's window takes the focus

  // For the edit that has the focus.
  virtual void SelectAll(Edit& edit) = 0;
  virtual void TypeText(Edit& edit, std::string_view text) = 0;  // key by key
  virtual void Backspace(Edit& edit, int times) = 0;
  virtual void Paste(Edit& edit) = 0;

  // For the control that has the focus: what it does with the key, or what its dialog does. Tab runs through the tab
  // stops of the outermost of our windows around it.
  virtual void PressKey(Key key) = 0;

  // These move no focus. One event: the thumb's codes (4, 5) put the bar at the position, any other moves nothing.
  virtual void ScrollTo(Control& bar, int code, std::optional<int> position) = 0;  // slider or scroll bar
  virtual void SpinBy(Spin& spin, int delta) = 0;
  virtual void Release(Slider& slider) = 0;
  virtual void ScrollList(Combo& combo, int topIndex) = 0;
  virtual void Poke(Control& button) = 0;  // the click message that a program sends
  virtual void MovePointer(Dialog& dialog, Point at) = 0;
  virtual void Resize(Dialog& dialog, Size client) = 0;
  virtual void SendClose(Dialog& dialog) = 0;

  // A tab chosen as ChooseTab does, but the focus stays where it is. The tab that is current raises nothing.
  virtual void TurnToTab(TabBar& bar, int index) { ChooseTab(bar, index); }
};

}  // namespace set32
