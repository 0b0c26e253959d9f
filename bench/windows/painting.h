// Painting to the end: whatever is due in a window and inside it, and what messages still ask for.
#pragma once

#include <windows.h>

namespace set32 {

inline void Pump() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

inline void PaintAll(HWND window) {
  RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  Pump();
  RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  GdiFlush();
}

// A window as a host has one, on the screen and painted.
class TopWindow {
 public:
  TopWindow() {
    window_ = CreateWindowExW(0, L"#32770", L"panel-waits", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_VISIBLE, 0, 0,
                              700, 900, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    PaintAll(window_);
  }
  ~TopWindow() {
    DestroyWindow(window_);
    Pump();
  }
  TopWindow(const TopWindow&) = delete;
  TopWindow& operator=(const TopWindow&) = delete;

  HWND Get() const { return window_; }

 private:
  HWND window_;
};

}  // namespace set32
