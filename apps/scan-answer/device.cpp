#include "device.h"

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <string_view>
#include <thread>

#include "platform/posix/socket_address.h"
#include "scanner/address.h"

namespace set32::scan_answer {

namespace {

constexpr std::array<std::uint8_t, 5> requestStart = {'N', 'E', 'T', 'S', 0x10};
constexpr std::uint32_t limitedBroadcast = 0xFFFFFFFF;

}  // namespace

std::vector<std::uint8_t> WellFormedAnswer(const std::string& name) {
  constexpr std::size_t longest = 76, shortest = 12, nameOffset = 9;
  const std::string_view cut = std::string_view(name).substr(0, longest - nameOffset);
  std::vector<std::uint8_t> bytes(std::max(nameOffset + cut.size(), shortest));
  std::copy(requestStart.begin(), requestStart.end(), bytes.begin());
  bytes[4] = 0x20;
  bytes[8] = static_cast<std::uint8_t>(cut.size());
  std::copy(cut.begin(), cut.end(), bytes.begin() + nameOffset);
  return bytes;
}

// Several devices may stand on one machine and share the broadcast address.
FileHandle Device::ReceiveAt(std::uint32_t address) {
  FileHandle handle(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
  const int on = 1;
  const sockaddr_in local = SocketAddress(address, options_.port);
  if (::setsockopt(handle.Get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on) != 0 ||
      ::bind(handle.Get(), reinterpret_cast<const sockaddr*>(&local), sizeof local) != 0) {
    return FileHandle();
  }
  return handle;
}

bool Device::Listen(std::string& why) {
  own_ = ReceiveAt(options_.address);
  if (own_.IsOpen() && options_.address != INADDR_ANY) broadcasts_ = ReceiveAt(limitedBroadcast);
  if (own_.IsOpen() && (broadcasts_.IsOpen() || options_.address == INADDR_ANY)) return true;
  why = std::strerror(errno);
  return false;
}

std::string Device::AnswerNext() {
  for (;;) {
    std::array<pollfd, 2> waiting = {pollfd{own_.Get(), POLLIN, 0}, pollfd{broadcasts_.Get(), POLLIN, 0}};
    if (::poll(waiting.data(), waiting.size(), -1) < 0 && errno != EINTR) return {};
    for (const pollfd& ready : waiting) {
      if ((ready.revents & POLLIN) == 0) continue;
      std::array<std::uint8_t, 64> bytes{};
      sockaddr_in from{};
      socklen_t fromSize = sizeof from;
      const ssize_t size = ::recvfrom(ready.fd, bytes.data(), bytes.size(), MSG_DONTWAIT,
                                      reinterpret_cast<sockaddr*>(&from), &fromSize);
      if (size < static_cast<ssize_t>(requestStart.size())) continue;
      if (!std::equal(requestStart.begin(), requestStart.end(), bytes.begin())) continue;
      Answer(ntohl(from.sin_addr.s_addr), ntohs(from.sin_port));
      return DottedAddress(ntohl(from.sin_addr.s_addr)) + ':' + std::to_string(ntohs(from.sin_port));
    }
  }
}

void Device::Answer(std::uint32_t address, std::uint16_t port) {
  std::this_thread::sleep_for(std::chrono::milliseconds(options_.delay));
  const sockaddr_in to = SocketAddress(address, port);
  for (int i = 0; i < options_.copies; ++i) {
    ::sendto(own_.Get(), options_.datagram.data(), options_.datagram.size(), MSG_NOSIGNAL,
             reinterpret_cast<const sockaddr*>(&to), sizeof to);
  }
}

}  // namespace set32::scan_answer
