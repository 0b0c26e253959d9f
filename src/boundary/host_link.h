// The only sender to the host: one operation a message of messages.h. All are synchronous, on the host's thread; the
// host may do anything before one returns, also end the page.
#pragma once

#include <cstdint>
#include <string>

#include "platform/windows.h"
#include "set32/host_records.h"
#include "set32/messages.h"
#include "set32/pointer_word.h"

namespace set32 {

class HostLink {
 public:
  explicit HostLink(Windows& windows) : windows_(windows) {}

  void Bind(WindowHandle hostWindow) { hostWindow_ = hostWindow; }
  WindowHandle Window() const { return hostWindow_; }
  bool HasWindow() const { return windows_.IsWindow(hostWindow_); }

  void ResolutionChanged(std::uint32_t shownUnits, std::int32_t dpi);    // 0x401
  void AreaChanged(ScanSettings& settings, WParam quiet = 0);            // 0x402
  MessageResult SettingsChanged(WParam change, ScanSettings& settings);  // 0x403
  // 0x403 with a frame command. The caller clears `frameCommand` behind it in the record that is bound then: the host
  // may have taken this one away.
  void FrameRemoved(ScanSettings& settings, std::uint32_t frame);
  void ModeShown(std::uint32_t mode);                             // 0x404
  void UnitChosen(std::uint32_t shownUnits, std::int32_t dpi);    // 0x405
  void CustomSizeTaken(ScanSettings& settings);                   // 0x407
  void AutoCropChanged(WParam change, ScanSettings& settings);    // 0x409
  void FrameTabChanged(int frame);                                // 0x40B, -1: none is left
  void DeviceSelected(bool isAddEntry, const std::string& text);  // 0x40C

  // The preview was recomputed: the host's window is to be painted anew.
  void AskRepaint();

 private:
  MessageResult Send(std::uint32_t message, WParam wParam, LParam lParam);

  Windows& windows_;
  WindowHandle hostWindow_ = 0;
  LowMemory<FrameCommand> frameCommand_;
};

}  // namespace set32
