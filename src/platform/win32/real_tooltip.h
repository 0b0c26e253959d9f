// The tips of a dialog on a real window.
#pragma once

#include <string>
#include <utility>
#include <vector>

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
  std::string ToolText(int controlId) const override { return TextAt(controlId, 0); }
  std::string TextAt(int controlId, int index) const override;

 private:
  void Add(int controlId, const Rect* part, std::string_view text);

  HWND dialog_;
  OwnedWindow window_;
  std::vector<std::pair<int, std::string>> tools_;
};

}  // namespace set32::win32
