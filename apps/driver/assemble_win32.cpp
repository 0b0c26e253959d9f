// Real windows, files and threads; all that a script declares or watches beside them is the model's.
#ifdef _WIN32
#include "apps/driver/assembly.h"
#include "apps/stage/model/headless_clipboard.h"
#include "apps/stage/win32/watched_window_set.h"
#include "apps/stage/win32/win32_input.h"
#include "platform/profile_engine.h"
#include "platform/win32/code_page.h"
#include "platform/win32/win32_files.h"
#include "platform/win32/win32_sockets.h"
#include "platform/win32/win32_threads.h"
#include "platform/win32/win32_usb.h"
#include "platform/win32/win32_windows.h"

namespace set32 {

namespace {

// Scripts are UTF-8, and so is all that the panel writes under them.
struct Utf8 {
  Utf8() { win32::UseUtf8(); }
};

class Win32Assembly : public Assembly {
 public:
  explicit Win32Assembly(const AssemblyOptions& options)
      : Assembly(options),
        files_(options.files != nullptr ? *options.files : systemFiles_),
        platform_{windows_,
                  boxes_,
                  files_,
                  paths_,
                  profiles_,
                  system_,
                  options.realNetwork ? static_cast<Sockets&>(realSockets_) : network_,
                  options.realNetwork ? static_cast<UsbDevices&>(realUsb_) : usb_,
                  registry_,
                  clipboard_,
                  threads_} {}

  Platform& ThePlatform() override { return platform_; }
  WindowWatch& Watch() override { return *windowSet_; }
  Input& TheInput() override { return input_; }
  HeadlessBoxes& TheBoxes() override { return boxes_; }

 private:
  Utf8 utf8_;
  std::shared_ptr<WatchedWindowSet> windowSet_ = std::make_shared<WatchedWindowSet>();
  Win32Windows windows_{windowSet_};
  HeadlessBoxes boxes_;
  HeadlessClipboard clipboard_;
  Win32Input input_{windows_, clipboard_, Win32Input::HostWindows::hidden};
  Win32Files systemFiles_;
  Files& files_;
  ProfileEngine profiles_{files_};
  Win32Sockets realSockets_;
  Win32UsbDevices realUsb_;
  Win32Threads threads_;
  Platform platform_;
};

}  // namespace

std::unique_ptr<Assembly> Assemble(const AssemblyOptions& options) {
  return std::make_unique<Win32Assembly>(options);
}

}  // namespace set32
#endif
