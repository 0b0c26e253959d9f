// The tips of a dialog on a real window.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/tooltip.h"
#include "platform/win32/windows_api.h"

namespace set32::win32 {

// Watches the controls' mouse by itself; dies with its owner's window or with this object.
class RealTooltip : public Tooltip {
 public:
  explicit RealTooltip(HWND dialog);
  ~RealTooltip() override;
  RealTooltip(const RealTooltip&) = delete;
  RealTooltip& operator=(const RealTooltip&) = delete;

  bool Exists() const { return window_ != nullptr; }
  void Activate() override;
  void SetDelay(int milliseconds) override;
  void AddTool(int controlId, std::string_view text) override;
  void AddTool(int controlId, const Rect& part, std::string_view text) override;
  std::string ToolText(int controlId) const override;

 private:
  void Add(int controlId, const Rect* part, std::string_view text);

  HWND dialog_;
  HWND window_;
  std::vector<std::pair<int, std::string>> tools_;
};

}  // namespace set32::win32
