#include "platform/posix/posix_sockets.h"

#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <thread>
#include <utility>

#include "platform/posix/file_handle.h"
#include "platform/posix/socket_address.h"

namespace set32 {

namespace {

using Clock = std::chrono::steady_clock;

// Rounded up, so that a poll doesn't come back just before the end.
int MillisecondsUntil(Clock::time_point end) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
  return static_cast<int>(std::max<long long>(left, 0));
}

class PosixSocket : public DatagramSocket {
 public:
  explicit PosixSocket(FileHandle handle) : handle_(std::move(handle)) {}

  bool AllowBroadcast() override {
    const int on = 1;
    return ::setsockopt(handle_.Get(), SOL_SOCKET, SO_BROADCAST, &on, sizeof on) == 0;
  }

  bool Bind(std::uint16_t port) override {
    const sockaddr_in local = SocketAddress(INADDR_ANY, port);
    return ::bind(handle_.Get(), reinterpret_cast<const sockaddr*>(&local), sizeof local) == 0;
  }

  bool Send(std::span<const std::uint8_t> bytes, std::uint32_t address, std::uint16_t port) override {
    const sockaddr_in to = SocketAddress(address, port);
    const ssize_t sent = ::sendto(handle_.Get(), bytes.data(), bytes.size(), MSG_DONTWAIT | MSG_NOSIGNAL,
                                  reinterpret_cast<const sockaddr*>(&to), sizeof to);
    return sent == static_cast<ssize_t>(bytes.size());
  }

  Received Receive(std::span<std::uint8_t> into, int milliseconds) override;

 private:
  FileHandle handle_;
};

Received PosixSocket::Receive(std::span<std::uint8_t> into, int milliseconds) {
  const Clock::time_point end = Clock::now() + std::chrono::milliseconds(std::max(milliseconds, 0));
  for (;;) {
    sockaddr_in from{};
    socklen_t fromSize = sizeof from;
    const ssize_t size = ::recvfrom(handle_.Get(), into.data(), into.size(), MSG_DONTWAIT | MSG_TRUNC,
                                    reinterpret_cast<sockaddr*>(&from), &fromSize);
    if (size >= 0) {
      if (static_cast<std::size_t>(size) > into.size()) return {};
      return {ReceiveStatus::datagram, static_cast<std::size_t>(size), ntohl(from.sin_addr.s_addr),
              ntohs(from.sin_port)};
    }
    if (errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR) {
      std::this_thread::sleep_until(end);
      return {};
    }
    const int left = MillisecondsUntil(end);
    if (left == 0) return {ReceiveStatus::timeOut, 0, 0, 0};
    pollfd waiting{handle_.Get(), POLLIN, 0};
    ::poll(&waiting, 1, left);
  }
}

}  // namespace

bool PosixSockets::Start(std::uint16_t) {
  return true;
}

std::unique_ptr<DatagramSocket> PosixSockets::Open() {
  FileHandle handle(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
  if (!handle.IsOpen()) return nullptr;
  return std::make_unique<PosixSocket>(std::move(handle));
}

bool PosixSockets::HostName(std::string& name) {
  std::array<char, 600> buffer{};
  if (::gethostname(buffer.data(), buffer.size() - 1) != 0) return false;
  name = buffer.data();
  return true;
}

bool PosixSockets::LookUp(std::string_view name) {
  addrinfo wanted{};
  wanted.ai_family = AF_INET;
  wanted.ai_socktype = SOCK_DGRAM;
  addrinfo* found = nullptr;
  if (::getaddrinfo(std::string(name).c_str(), nullptr, &wanted, &found) != 0) return false;
  ::freeaddrinfo(found);
  return true;
}

void PosixSockets::Sleep(int milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(std::max(milliseconds, 0)));
}

}  // namespace set32
