#include "boundary/host_link.h"

namespace set32 {

namespace {

LParam PointerParam(const void* pointer) {
  return reinterpret_cast<LParam>(pointer);
}

}  // namespace

MessageResult HostLink::Send(std::uint32_t message, WParam wParam, LParam lParam) {
  return windows_.Send(hostWindow_, message, wParam, lParam);
}

void HostLink::ResolutionChanged(std::uint32_t shownUnits, std::int32_t dpi) {
  Send(to_host::resolutionChanged, shownUnits, dpi);
}

void HostLink::AreaChanged(ScanSettings& settings, WParam quiet) {
  Send(to_host::areaChanged, quiet, PointerParam(&settings));
}

MessageResult HostLink::SettingsChanged(WParam change, ScanSettings& settings) {
  return Send(to_host::settingsChanged, change, PointerParam(&settings));
}

void HostLink::FrameRemoved(ScanSettings& settings, std::uint32_t frame) {
  if (FrameCommand* command = frameCommand_.Get()) *command = {frame, frame_action::removed};
  settings.frameCommand = frameCommand_.Word();
  SettingsChanged(settings_change::values, settings);
}

void HostLink::ModeShown(std::uint32_t mode) {
  Send(to_host::modeShown, 0, static_cast<LParam>(mode));
}

void HostLink::UnitChosen(std::uint32_t shownUnits, std::int32_t dpi) {
  Send(to_host::unitChosen, shownUnits, dpi);
}

void HostLink::CustomSizeTaken(ScanSettings& settings) {
  Send(to_host::customSizeTaken, 0, PointerParam(&settings));
}

void HostLink::AutoCropChanged(WParam change, ScanSettings& settings) {
  Send(to_host::autoCropChanged, change, PointerParam(&settings));
}

void HostLink::FrameTabChanged(int frame) {
  const auto word = static_cast<std::uint32_t>(frame);
  Send(to_host::frameTabChanged, static_cast<WParam>(frame), PointerParam(&word));
}

void HostLink::DeviceSelected(bool isAddEntry, const std::string& text) {
  Send(to_host::deviceSelected, isAddEntry ? 1 : 0, PointerParam(text.c_str()));
}

void HostLink::AskRepaint() {
  windows_.Invalidate(hostWindow_);
}

}  // namespace set32
