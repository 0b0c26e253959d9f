// Datagrams by WinSock.
#pragma once

#include "platform/sockets.h"

namespace set32 {

class Win32Sockets : public Sockets {
 public:
  bool Start(std::uint16_t version) override;
  void Stop() override;
  std::unique_ptr<DatagramSocket> Open() override;
  bool HostName(std::string& name) override;
  bool LookUp(std::string_view name) override;
  void Sleep(int milliseconds) override;
};

}  // namespace set32
