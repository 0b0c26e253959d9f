// An address and a port as the socket calls take them.
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>

#include <cstdint>

namespace set32 {

inline sockaddr_in SocketAddress(std::uint32_t address, std::uint16_t port) {
  sockaddr_in result{};
  result.sin_family = AF_INET;
  result.sin_addr.s_addr = htonl(address);
  result.sin_port = htons(port);
  return result;
}

}  // namespace set32
