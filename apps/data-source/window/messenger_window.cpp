#include "apps/data-source/window/messenger_window.h"

#include <cstring>

#include "apps/scan-desk/window/window_object.h"

namespace data_source {

namespace {

constexpr wchar_t className[] = L"set32-data-source-messenger";
constexpr UINT deliverMessage = WM_APP;

}  // namespace

bool MessengerWindow::Open() {
  scan_desk::RegisterWindowClass<MessengerWindow>(className, 0, scan_desk::cursor::arrow, nullptr);
  window_ = set32::win32::OwnedWindow(
      CreateWindowExW(0, className, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, set32::win32::ModuleInstance(), this));
  return static_cast<bool>(window_);
}

void MessengerWindow::Close() {
  window_.Reset();
  scan_desk::ForgetWindowClass(className);
}

void MessengerWindow::DeliverLater(std::uint16_t message) {
  PostMessageW(window_.Get(), deliverMessage, message, 0);
}

LRESULT MessengerWindow::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != deliverMessage) return DefWindowProcW(window, message, wParam, lParam);
  deliver_(static_cast<std::uint16_t>(wParam));
  return 0;
}

// The one that lent its functions, or whichever the application loaded.
twain::ManagerEntry MessengerWindow::FindManager() const {
  if (memory_.Manager() != nullptr) return memory_.Manager();
  for (const wchar_t* name : {L"twain_32.dll", L"twaindsm.dll"}) {
    const HMODULE module = GetModuleHandleW(name);
    const FARPROC found = module == nullptr ? nullptr : GetProcAddress(module, "DSM_Entry");
    if (found == nullptr) continue;
    twain::ManagerEntry entry = nullptr;
    static_assert(sizeof entry == sizeof found);
    std::memcpy(&entry, &found, sizeof entry);
    return entry;
  }
  return nullptr;
}

// The manager tells the application at its next event; an empty message sees to it that there is one.
bool MessengerWindow::CallManager(twain::Identity& self, std::uint16_t message) {
  const twain::ManagerEntry manager = FindManager();
  const bool isTold = manager != nullptr && manager(&self, nullptr, twain::group::control, twain::data::null, message,
                                                    nullptr) == twain::result::success;
  if (window_) PostMessageW(window_.Get(), WM_NULL, 0, 0);
  return isTold;
}

}  // namespace data_source
