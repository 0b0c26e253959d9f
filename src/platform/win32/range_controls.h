// Sliders, scroll bars and spins on real windows.
#pragma once

#include "platform/win32/real_control.h"

#include <commctrl.h>

namespace set32::win32 {

class RealSlider : public Real<Slider> {
 public:
  using Real::Real;
  void SetRange(int low, int high) override;
  int Low() const override { return AskNumber(TBM_GETRANGEMIN); }
  int High() const override { return AskNumber(TBM_GETRANGEMAX); }
  int Position() const override { return AskNumber(TBM_GETPOS); }
  void SetPosition(int position) override { Ask(TBM_SETPOS, TRUE, position); }
  void SetTickFrequency(int frequency) override { Ask(TBM_SETTICFREQ, static_cast<WPARAM>(frequency)); }
  void SetLineSize(int size) override { Ask(TBM_SETLINESIZE, 0, size); }
  void SetName(std::string_view name) override { PutText(name); }

  LRESULT OnNotify(const NMHDR& header) override;
  void OnScroll(WORD code, int position) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void TurnWheel(int delta);

  int turned_ = 0;  // of the wheel, less than a notch
};

class RealScrollBar : public Real<ScrollBar> {
 public:
  using Real::Real;
  void SetRange(int low, int high) override;
  int Low() const override { return Info(SIF_RANGE).nMin; }
  int High() const override { return Info(SIF_RANGE).nMax; }
  int Position() const override { return Info(SIF_POS).nPos; }
  void SetPosition(int position) override;

  void OnScroll(WORD code, int position) override;

 private:
  SCROLLINFO Info(UINT what) const;
  void Put(SCROLLINFO info) const;
};

class RealSpin : public Real<Spin> {
 public:
  using Real::Real;
  void SetRange(int low, int high) override { Ask(UDM_SETRANGE32, static_cast<WPARAM>(low), high); }
  int Low() const override { return Limits().low; }
  int High() const override { return Limits().high; }
  int Position() const override { return AskNumber(UDM_GETPOS32); }
  void SetPosition(int position) override { Ask(UDM_SETPOS32, 0, position); }
  void SetBuddy(int editId) override;
  int Buddy() const override { return Exists() ? buddy_ : 0; }

  LRESULT OnNotify(const NMHDR& header) override;
  void OnScroll(WORD code, int position) override;

 private:
  struct Range {
    int low = 0;
    int high = 0;
  };
  Range Limits() const;

  int buddy_ = 0;
};

}  // namespace set32::win32
