// An application's side of the protocol, by way of the system's source manager.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "apps/data-source/core/containers.h"
#include "apps/data-source/twain_protocol.h"
#include "platform/win32/handle.h"

namespace acquire {

// A bitmap of the system's kind: header, colour table, rows from the bottom.
using Bitmap = std::vector<std::uint8_t>;

class Acquisition {
 public:
  Acquisition() = default;
  ~Acquisition();  // ends what stands, from transfer to manager
  Acquisition(const Acquisition&) = delete;
  Acquisition& operator=(const Acquisition&) = delete;

  // Each of these: false when it can't be, and Trouble() then says why. `parent` may be null.
  bool OpenManager(HWND parent);
  bool OpenSource(const std::string& name);
  bool Set(std::uint16_t cap, const data_source::Values& values);
  bool Set(std::uint16_t cap, std::uint16_t type, double value);
  // The message is one of twain::message::enable and enableForSettings.
  bool Enable(bool shows, bool isModal = false, std::uint16_t message = twain::message::enable);
  bool Disable();
  bool CloseSource();

  std::optional<data_source::Values> Get(std::uint16_t cap, std::uint16_t message = twain::message::getCurrent);

  // Runs the program's messages until the source tells something: one of twain::message, 0 when so many milliseconds
  // have passed.
  std::uint16_t Wait(DWORD patience = INFINITE);
  // The image that is ready; nothing on a failure.
  std::optional<Bitmap> Transfer();
  // Result: how many images wait behind this one, -1 on a failure.
  int EndTransfer();

  // Any operation of the source.
  std::uint16_t Call(std::uint32_t group, std::uint16_t data, std::uint16_t message, void* record);
  std::uint16_t Condition();
  const std::string& Trouble() const { return trouble_; }

 private:
  std::uint16_t CallManager(twain::Identity* of, std::uint32_t group, std::uint16_t data, std::uint16_t message,
                            void* record);
  bool Check(std::uint16_t answer, const char* what);
  // Whether the source took the message; else it is the program's. What the source tells is kept.
  bool Offer(MSG& message);

  set32::win32::OwnedModule library_;
  twain::ManagerEntry manager_ = nullptr;
  twain::Identity self_{};
  twain::Identity source_{};
  HWND parent_ = nullptr;
  bool managerStands_ = false, sourceStands_ = false, enabled_ = false, transfers_ = false;
  std::uint16_t told_ = 0;
  std::string trouble_;
};

}  // namespace acquire
