// The two functions, and the one module behind them.
#include "set32/ui_fix_setting.h"

#include <memory>

#include "host/module.h"
#include "platform/guarded.h"

namespace {

struct Process {
  set32::Platform* platform = nullptr;
  std::unique_ptr<set32::Module> module;
};

Process& TheProcess() {
  static Process process;
  return process;
}

set32::Module* TheModule() {
  Process& process = TheProcess();
  if (process.module == nullptr && process.platform != nullptr) {
    process.module = std::make_unique<set32::Module>(*process.platform);
  }
  return process.module.get();
}

}  // namespace

namespace set32 {

void InstallPlatform(Platform* platform) {
  Process& process = TheProcess();
  process.module.reset();
  process.platform = platform;
}

void ForgetPanelWindows() {
  if (Process& process = TheProcess(); process.module != nullptr) process.module->ForgetWindows();
}

}  // namespace set32

extern "C" set32::WindowHandle uiFixSetting(set32::WindowHandle parentWindow, set32::WindowHandle hostWindow,
                                            const set32::DeviceLimits* limits, set32::ScanSettings* settings,
                                            set32::CDib* preview, std::uint8_t jpegModes, std::uint32_t /*unused*/,
                                            std::uint32_t bwThreshold, std::uint32_t outputBits,
                                            const set32::PanelRect* panelRect, const set32::DeviceCaps* caps) {
  return set32::Guarded(set32::WindowHandle{0}, [&] {
    set32::Module* module = TheModule();
    if (module == nullptr) return set32::WindowHandle{0};
    return module->FixSetting({parentWindow, hostWindow, limits, settings, preview, jpegModes != 0, bwThreshold,
                               outputBits, panelRect, caps});
  });
}

extern "C" std::uint32_t uiIsSettingOpen() {
  return set32::Guarded(std::uint32_t{0}, [] {
    const set32::Module* module = TheModule();
    return module != nullptr && module->IsSettingOpen() ? 1U : 0U;
  });
}
