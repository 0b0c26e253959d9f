#include "platform/win32/range_controls.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "platform/win32/win32_dialog.h"

namespace set32::win32 {

namespace {

Event Scrolled(WORD code, int position) {
  return {.kind = EventKind::scrolled, .code = code, .position = CarriesPosition(code) ? position : 0};
}

}  // namespace

void RealSlider::SetRange(int low, int high) {
  Ask(TBM_SETRANGEMIN, FALSE, low);
  Ask(TBM_SETRANGEMAX, TRUE, high);
  // A thumb whose number stays would stand where the old range had it.
  const int position = Position();
  Ask(TBM_SETPOS, FALSE, position == high ? low : high);
  Ask(TBM_SETPOS, TRUE, position);
}

// The message carries 16 bits alone; the slider's own position is whole.
void RealSlider::OnScroll(WORD code, int) {
  Raise(Scrolled(code, Position()));
}

std::optional<LRESULT> RealSlider::OnMessage(UINT message, WPARAM wParam, LPARAM) {
  if (message != WM_MOUSEWHEEL) return {};
  TurnWheel(GET_WHEEL_DELTA_WPARAM(wParam));
  return 0;
}

// A notch is one line, and where it leads is the dialog's to say. Fine wheels turn by parts of a notch.
void RealSlider::TurnWheel(int delta) {
  const Delivery delivery(Owner().WindowSet());
  if (std::int64_t{turned_} * delta < 0) turned_ = 0;
  turned_ += delta;
  const WORD code = turned_ > 0 ? scroll_code::lineRight : scroll_code::lineLeft;
  for (; std::abs(turned_) >= WHEEL_DELTA; turned_ -= turned_ > 0 ? WHEEL_DELTA : -WHEEL_DELTA) {
    if (Exists()) Raise(Scrolled(code, 0));
    if (Exists()) Raise(Scrolled(scroll_code::endScroll, 0));
  }
}

LRESULT RealSlider::OnNotify(const NMHDR& header) {
  if (header.code == static_cast<UINT>(NM_RELEASEDCAPTURE)) Raise(EventKind::released);
  return 0;
}

SCROLLINFO RealScrollBar::Info(UINT what) const {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = what;
  if (Exists()) GetScrollInfo(Window(), SB_CTL, &info);
  return info;
}

void RealScrollBar::Put(SCROLLINFO info) const {
  info.cbSize = sizeof info;
  if (Exists()) SetScrollInfo(Window(), SB_CTL, &info, TRUE);
}

void RealScrollBar::SetRange(int low, int high) {
  SCROLLINFO info{};
  info.fMask = SIF_RANGE;
  info.nMin = low;
  info.nMax = high;
  Put(info);
}

void RealScrollBar::SetPosition(int position) {
  SCROLLINFO info{};
  info.fMask = SIF_POS;
  info.nPos = position;
  Put(info);
}

void RealScrollBar::OnScroll(WORD code, int position) {
  Raise(Scrolled(code, position));
}

RealSpin::Range RealSpin::Limits() const {
  Range range;
  if (Exists())
    SendMessageW(Window(), UDM_GETRANGE32, reinterpret_cast<WPARAM>(&range.low),
                 reinterpret_cast<LPARAM>(&range.high));
  return range;
}

void RealSpin::SetBuddy(int editId) {
  if (!Exists()) return;
  const HWND edit = editId == 0 ? nullptr : GetDlgItem(GetParent(Window()), editId);
  buddy_ = edit == nullptr ? 0 : editId;
  Ask(UDM_SETBUDDY, reinterpret_cast<WPARAM>(edit));
  // The arrows lie over the edit's end; its text ends before them.
  SetWindowPos(Window(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  RECT arrows{};
  RECT field{};
  if (edit == nullptr || !GetWindowRect(Window(), &arrows) || !GetWindowRect(edit, &field)) return;
  const LONG covered = std::max<LONG>(field.right - arrows.left, 0);
  SendMessageW(edit, EM_SETMARGINS, EC_RIGHTMARGIN, MAKELPARAM(0, covered));
}

LRESULT RealSpin::OnNotify(const NMHDR& header) {
  if (header.code != UDN_DELTAPOS) return 0;
  const auto& change = reinterpret_cast<const NMUPDOWN&>(header);
  bool refuse = false;
  Raise(Event{.kind = EventKind::spinDelta, .position = change.iPos, .delta = change.iDelta, .refuse = &refuse});
  return refuse ? TRUE : FALSE;
}

void RealSpin::OnScroll(WORD code, int position) {
  Raise(Scrolled(code, position));
}

}  // namespace set32::win32
