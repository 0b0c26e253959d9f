#include "apps/stage/win32/win32_input.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "apps/stage/win32/host_window.h"
#include "platform/win32/code_page.h"
#include "platform/win32/combo_control.h"
#include "platform/win32/edit_control.h"
#include "platform/win32/list_control.h"
#include "platform/win32/range_controls.h"
#include "platform/win32/simple_controls.h"
#include "platform/win32/system_clipboard.h"
#include "platform/win32/tab_control.h"
#include "platform/win32/win32_dialog.h"

namespace set32 {

using win32::RealControl;

namespace {

HWND WindowOf(WindowHandle window) {
  return reinterpret_cast<HWND>(window);
}

LPARAM At(Point point) {
  return MAKELPARAM(point.x, point.y);
}

Point MiddleOf(const Rect& place) {
  return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

// The button goes up in the same place. Some controls wait for it inside the first message, so it is in the queue
// before; the others get it afterwards.
void ClickAt(HWND window, Point at) {
  PostMessageW(window, WM_LBUTTONUP, 0, At(at));
  SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, At(at));
  MSG message{};
  if (PeekMessageW(&message, window, WM_LBUTTONUP, WM_LBUTTONUP, PM_REMOVE)) DispatchMessageW(&message);
}

void PressIn(HWND window, WPARAM key) {
  SendMessageW(window, WM_KEYDOWN, key, 1);
  SendMessageW(window, WM_KEYUP, key, 1);
}

void TypeUnit(HWND window, wchar_t unit) {
  SendMessageW(window, WM_CHAR, unit, 1);
}

void TellParent(HWND control, UINT message, WPARAM wParam) {
  SendMessageW(GetParent(control), message, wParam, reinterpret_cast<LPARAM>(control));
}

template <typename Record>
LRESULT Notify(HWND control, UINT code, Record record) {
  auto& header = reinterpret_cast<NMHDR&>(record);
  header.hwndFrom = control;
  header.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(control));
  header.code = code;
  return SendMessageW(GetParent(control), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&record));
}

WPARAM KeyCode(Key key) {
  switch (key) {
    case Key::enter:
      return VK_RETURN;
    case Key::escape:
      return VK_ESCAPE;
    case Key::tab:
    case Key::backtab:
      return VK_TAB;
    case Key::left:
      return VK_LEFT;
    case Key::right:
      return VK_RIGHT;
    case Key::up:
      return VK_UP;
    case Key::down:
      return VK_DOWN;
    case Key::pageUp:
      return VK_PRIOR;
    case Key::pageDown:
      return VK_NEXT;
    case Key::home:
      return VK_HOME;
    case Key::end:
      return VK_END;
  }
  return 0;
}

// The keys of the block between letters and digits say so; those of the digits' block would be these without their
// lock.
bool IsExtended(Key key) {
  return key >= Key::left;
}

// The shift key, held while this lives.
class HeldShift {
 public:
  explicit HeldShift(bool held) : held_(held) {
    if (held_) Put(0x80);
  }
  ~HeldShift() {
    if (held_) Put(0);
  }
  HeldShift(const HeldShift&) = delete;
  HeldShift& operator=(const HeldShift&) = delete;

 private:
  static void Put(BYTE state) {
    std::array<BYTE, 256> keys{};
    GetKeyboardState(keys.data());
    keys[VK_SHIFT] = keys[VK_LSHIFT] = state;
    SetKeyboardState(keys.data());
  }

  bool held_;
};

}  // namespace

Win32Input::Win32Input(Win32Windows& windows, Clipboard& clipboard, HostWindows look)
    : windows_(windows), clipboard_(clipboard), look_(look) {}

WindowHandle Win32Input::MakeHostWindow(Size client, HostWindowHandler& handler) {
  const HWND window = win32::MakeHostWindow(client, handler);
  if (window != nullptr && look_ == HostWindows::shown) ShowWindow(window, SW_SHOWNOACTIVATE);
  lastHost_ = reinterpret_cast<WindowHandle>(window);
  return lastHost_;
}

void Win32Input::DestroyHostWindow(WindowHandle window) {
  if (windows_.IsWindow(window)) DestroyWindow(WindowOf(window));
}

void Win32Input::Pump() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

// A control that leaving the one before it has disabled or ended takes no act any more; its object stands until the
// act is over.
template <typename RealType, typename Act>
void Win32Input::FocusAnd(Control& control, Act act) {
  const win32::Delivery delivery(windows_.WindowSet());
  control.SetFocus();
  auto* real = dynamic_cast<RealType*>(&control);
  if (real != nullptr && control.IsEnabled()) act(*real);
}

void Win32Input::Click(Control& button) {
  FocusAnd<RealControl>(button, [&](RealControl& real) {
    const Size size = button.ClientSize();
    ClickAt(real.Window(), {size.width / 2, size.height / 2});
  });
}

// One step of an arrow key from the entry beside it.
void Win32Input::PickEntry(Combo& combo, int index) {
  FocusAnd<win32::RealCombo>(combo, [=](win32::RealCombo& real) {
    if (index < 0 || index >= real.Count()) return;
    const bool fromAbove = index > 0 || real.Count() == 1;
    real.SelectIndex(fromAbove ? index - 1 : index + 1);
    PressIn(real.Window(), fromAbove ? VK_DOWN : VK_UP);
  });
}

void Win32Input::ChooseTab(TabBar& bar, int index) {
  FocusAnd<win32::RealTabBar>(
      bar, [=](win32::RealTabBar& real) { ClickAt(real.Window(), MiddleOf(real.TabPlace(index))); });
}

// What a click tells and does, without the focus that a click takes.
void Win32Input::TurnToTab(TabBar& bar, int index) {
  const win32::Delivery delivery(windows_.WindowSet());
  auto* real = dynamic_cast<win32::RealTabBar*>(&bar);
  if (real == nullptr || index < 0 || index >= real->Count() || index == real->Current()) return;
  const HWND window = real->Window();
  Notify(window, static_cast<UINT>(TCN_SELCHANGING), NMHDR{});
  real->SetCurrent(index);
  if (real->Exists()) Notify(window, static_cast<UINT>(TCN_SELCHANGE), NMHDR{});
}

// A list too low to show the row, or so full that nothing lies beside the rows, tells what the click would.
void Win32Input::ClickRow(List& list, int row) {
  FocusAnd<win32::RealList>(list, [=](win32::RealList& real) {
    real.EnsureVisible(row);
    const Size size = real.ClientSize();
    const Point at = row < 0 ? Point{size.width / 2, size.height - 1} : MiddleOf(real.RowPlace(row));
    const bool isInside = Rect{0, 0, size.width, size.height}.Contains(at);
    if (isInside && real.RowAt(at) == row) return ClickAt(real.Window(), at);
    if (row < 0) {
      real.SelectNone();
    } else {
      real.SelectAndFocus(row);
    }
    if (real.Exists()) real.TellClicked(row);
  });
}

void Win32Input::ArrowTo(List& list, int row) {
  FocusAnd<win32::RealList>(list, [=](win32::RealList& real) {
    if (real.StateOf(row) == RowState{true, true}) return;
    if (real.StateOf(row).focused) {
      PressIn(real.Window(), VK_SPACE);  // no arrow selects the row where the focus already is
    } else if (row > 0 && real.StateOf(row - 1).focused) {
      PressIn(real.Window(), VK_DOWN);
    } else if (real.StateOf(row + 1).focused) {
      PressIn(real.Window(), VK_UP);
    } else if (row == 0) {
      PressIn(real.Window(), VK_HOME);
    } else if (row == real.Count() - 1) {
      PressIn(real.Window(), VK_END);
    } else {
      real.SelectAndFocus(row);
      real.EnsureVisible(row);
    }
  });
}

void Win32Input::SetCaret(Edit& edit, TextRange range) {
  FocusAnd<win32::RealEdit>(edit, [=](win32::RealEdit& real) { real.Select(range); });
}

void Win32Input::DropList(Combo& combo) {
  FocusAnd<win32::RealCombo>(combo, [](win32::RealCombo& real) {
    const HWND window = real.Window();
    SendMessageW(window, CB_SHOWDROPDOWN, TRUE, 0);
    SendMessageW(window, CB_SHOWDROPDOWN, FALSE, 0);
  });
}

void Win32Input::FillAddress(Address& address, const std::array<std::optional<int>, 4>& fields) {
  FocusAnd<win32::RealAddress>(address, [&](win32::RealAddress& real) {
    const std::array<HWND, 4> windows = real.FieldWindows();
    for (std::size_t i = 0; i < fields.size(); ++i) {
      SendMessageW(windows[i], EM_SETSEL, 0, -1);
      SendMessageW(windows[i], WM_CLEAR, 0, 0);
      if (!fields[i]) continue;
      for (const char digit : std::to_string(std::clamp(*fields[i], 0, 255)))
        TypeUnit(windows[i], static_cast<wchar_t>(digit));
    }
  });
}

void Win32Input::Focus(Control& control) {
  const win32::Delivery delivery(windows_.WindowSet());
  control.SetFocus();
}

void Win32Input::FocusHost() {
  if (windows_.IsWindow(lastHost_)) SetFocus(WindowOf(lastHost_));
}

void Win32Input::TypeText(Edit& edit, std::string_view text) {
  const win32::Delivery delivery(windows_.WindowSet());
  auto* real = dynamic_cast<win32::RealEdit*>(&edit);
  if (real == nullptr) return;
  for (const wchar_t unit : win32::ModuleText().Wide(text)) {
    if (!real->Exists()) return;
    TypeUnit(real->Window(), unit);
  }
}

void Win32Input::Backspace(Edit& edit, int times) {
  const win32::Delivery delivery(windows_.WindowSet());
  auto* real = dynamic_cast<win32::RealEdit*>(&edit);
  for (int i = 0; i < times && real != nullptr && real->Exists(); ++i) TypeUnit(real->Window(), VK_BACK);
}

void Win32Input::Paste(Edit& edit) {
  const win32::Delivery delivery(windows_.WindowSet());
  auto* real = dynamic_cast<win32::RealEdit*>(&edit);
  if (real == nullptr || !real->Exists()) return;
  std::string text;
  const bool holdsText = clipboard_.Read(text) == ClipboardRead::text;
  SystemClipboard().Write(holdsText ? text : std::string());
  SendMessageW(real->Window(), WM_PASTE, 0, 0);
}

// Through the message queue, as a key comes, so that the keyboard's hook sees it.
void Win32Input::PressKey(Key key) {
  const HWND focus = GetFocus();
  if (focus == nullptr) return;
  constexpr UINT once = 1, extended = 1U << 24, released = 0xC0000000U;
  const UINT pressed = once | (IsExtended(key) ? extended : 0U);
  const HeldShift shift(key == Key::backtab);
  PostMessageW(focus, WM_KEYDOWN, KeyCode(key), static_cast<LPARAM>(pressed));
  PostMessageW(focus, WM_KEYUP, KeyCode(key), static_cast<LPARAM>(pressed | released));
  MSG message{};
  while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void Win32Input::ScrollTo(Control& bar, int code, std::optional<int> position) {
  const win32::Delivery delivery(windows_.WindowSet());
  const auto* real = dynamic_cast<RealControl*>(&bar);
  if (real == nullptr || real->Window() == nullptr) return;
  int told = 0;
  if (auto* range = dynamic_cast<RangeControl*>(&bar); range != nullptr && CarriesPosition(code)) {
    if (position) range->SetPosition(*position);
    told = range->Position();
  }
  TellParent(real->Window(), WM_HSCROLL, MAKEWPARAM(code, told));
}

void Win32Input::SpinBy(Spin& spin, int delta) {
  const win32::Delivery delivery(windows_.WindowSet());
  auto* real = dynamic_cast<win32::RealSpin*>(&spin);
  if (real == nullptr || !real->Exists()) return;
  const HWND window = real->Window();
  const int before = real->Position();
  const bool refused = Notify(window, static_cast<UINT>(UDN_DELTAPOS), NMUPDOWN{{}, before, delta}) != 0;
  const auto after = std::clamp<std::int64_t>(std::int64_t{before} + delta, std::numeric_limits<int>::min(),
                                              std::numeric_limits<int>::max());
  if (!refused && real->Exists()) real->SetPosition(static_cast<int>(after));
  if (real->Exists()) TellParent(window, WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, real->Position()));
  if (real->Exists()) TellParent(window, WM_VSCROLL, MAKEWPARAM(SB_ENDSCROLL, 0));
}

void Win32Input::Release(Slider& slider) {
  const win32::Delivery delivery(windows_.WindowSet());
  const auto* real = dynamic_cast<RealControl*>(&slider);
  if (real != nullptr && real->Window() != nullptr)
    Notify(real->Window(), static_cast<UINT>(NM_RELEASEDCAPTURE), NMHDR{});
}

void Win32Input::Poke(Control& button) {
  const win32::Delivery delivery(windows_.WindowSet());
  const auto* real = dynamic_cast<RealControl*>(&button);
  if (real != nullptr && real->Window() != nullptr)
    TellParent(real->Window(), WM_COMMAND, MAKEWPARAM(button.Id(), BN_CLICKED));
}

void Win32Input::MovePointer(Dialog& dialog, Point at) {
  const HWND window = WindowOf(dialog.Handle());
  POINT onScreen{at.x, at.y};
  ClientToScreen(window, &onScreen);
  SetCursorPos(onScreen.x, onScreen.y);
  SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
}

void Win32Input::Resize(Dialog& dialog, Size client) {
  const Rect place = dialog.Place();
  const Size before = dialog.ClientSize();
  dialog.Move({place.left, place.top, place.right + client.width - before.width,
               place.bottom + client.height - before.height});
}

void Win32Input::SendClose(Dialog& dialog) {
  if (dialog.IsAlive()) SendMessageW(WindowOf(dialog.Handle()), WM_CLOSE, 0, 0);
}

}  // namespace set32
