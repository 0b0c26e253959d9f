// A window that nobody sees, through which the source lets the application's call return before it tells it anything.
#pragma once

#include <windows.h>

#include <functional>

#include "apps/data-source/core/surroundings.h"
#include "apps/data-source/window/global_memory.h"
#include "platform/win32/handle.h"

namespace data_source {

class MessengerWindow final : public Messenger {
 public:
  using Deliver = std::function<void(std::uint16_t message)>;

  MessengerWindow(const GlobalMemory& memory, Deliver deliver) : memory_(memory), deliver_(std::move(deliver)) {}

  bool Open() override;
  void Close() override;
  void DeliverLater(std::uint16_t message) override;
  bool CallManager(twain::Identity& self, std::uint16_t message) override;

  // Called by the window.
  LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void OnGone() { window_.Release(); }

 private:
  twain::ManagerEntry FindManager() const;

  const GlobalMemory& memory_;
  Deliver deliver_;
  set32::win32::OwnedWindow window_;
};

}  // namespace data_source
