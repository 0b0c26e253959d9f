// Datagram sockets of the system.
#pragma once

#include "platform/sockets.h"

namespace set32 {

class PosixSockets : public Sockets {
 public:
  // There is no library to start.
  bool Start(std::uint16_t version) override;
  void Stop() override {}
  std::unique_ptr<DatagramSocket> Open() override;
  bool HostName(std::string& name) override;
  // May ask the system's name service.
  bool LookUp(std::string_view name) override;
  void Sleep(int milliseconds) override;
};

}  // namespace set32
