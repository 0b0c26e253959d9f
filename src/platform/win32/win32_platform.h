// The whole of the Win32 system behind the platform's interfaces, as the library uses it.
#pragma once

#include "platform/platform.h"
#include "platform/profile_engine.h"
#include "platform/win32/system_clipboard.h"
#include "platform/win32/win32_files.h"
#include "platform/win32/win32_services.h"
#include "platform/win32/win32_sockets.h"
#include "platform/win32/win32_threads.h"
#include "platform/win32/win32_usb.h"
#include "platform/win32/win32_windows.h"

namespace set32 {

class Win32Platform {
 public:
  Platform& Get() { return platform_; }
  Win32Windows& Windows() { return windows_; }

 private:
  Win32Windows windows_;
  Win32Threads threads_;
  Win32Boxes boxes_{threads_};
  Win32Files files_;
  Win32Paths paths_;
  ProfileEngine profiles_{files_};
  Win32System system_;
  Win32Sockets sockets_;
  Win32UsbDevices usb_;
  Win32Registry registry_;
  SystemClipboard clipboard_;
  Platform platform_{windows_, boxes_, files_,    paths_,     profiles_, system_,
                     sockets_, usb_,   registry_, clipboard_, threads_};
};

}  // namespace set32
