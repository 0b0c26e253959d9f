// The tips of a dialog on a real window.
#pragma once

#include "platform/tooltip.h"
#include "platform/win32/handle.h"

namespace set32::win32 {

// Watches the controls' mouse by itself; dies with its owner's window or with this object.
class RealTooltip : public Tooltip {
 public:
  explicit RealTooltip(HWND dialog);

  bool Exists() const { return IsWindow(window_.Get()) != FALSE; }
  void Activate() override;
  void SetDelay(int milliseconds) override;
  void AddTool(int controlId, std::string_view text) override;
  void AddTool(int controlId, const Rect& part, std::string_view text) override;

 private:
  void Add(int controlId, const Rect* part, std::string_view text);

  HWND dialog_;
  OwnedWindow window_;
  UINT_PTR parts_ = 0;
};

}  // namespace set32::win32
