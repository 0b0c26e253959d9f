#include <winsock2.h>

#include <ws2tcpip.h>

#include "platform/win32/win32_sockets.h"

#include <algorithm>
#include <array>

#include "platform/win32/code_page.h"
#include "platform/win32/windows_api.h"

namespace set32 {

namespace {

sockaddr_in SocketAddress(std::uint32_t address, std::uint16_t port) {
  sockaddr_in result{};
  result.sin_family = AF_INET;
  result.sin_addr.s_addr = htonl(address);
  result.sin_port = htons(port);
  return result;
}

DWORD MillisecondsUntil(ULONGLONG end) {
  const ULONGLONG now = GetTickCount64();
  return now >= end ? 0 : static_cast<DWORD>(end - now);
}

// An address where nobody listens answers by a refusal, which would otherwise come out as a failure of the next
// receive.
void IgnoreRefusals(SOCKET socket) {
  constexpr DWORD refusals = 0x9800000C;
  BOOL report = FALSE;
  DWORD stored = 0;
  WSAIoctl(socket, refusals, &report, sizeof report, nullptr, 0, &stored, nullptr, nullptr);
}

class Win32Socket : public DatagramSocket {
 public:
  explicit Win32Socket(SOCKET socket) : socket_(socket) {}
  ~Win32Socket() override { closesocket(socket_); }
  Win32Socket(const Win32Socket&) = delete;
  Win32Socket& operator=(const Win32Socket&) = delete;

  bool AllowBroadcast() override {
    const BOOL on = TRUE;
    return setsockopt(socket_, SOL_SOCKET, SO_BROADCAST, reinterpret_cast<const char*>(&on), sizeof on) == 0;
  }

  bool Bind(std::uint16_t port) override {
    const sockaddr_in local = SocketAddress(INADDR_ANY, port);
    return bind(socket_, reinterpret_cast<const sockaddr*>(&local), sizeof local) == 0;
  }

  bool Send(std::span<const std::uint8_t> bytes, std::uint32_t address, std::uint16_t port) override {
    const sockaddr_in to = SocketAddress(address, port);
    const int sent = sendto(socket_, reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size()), 0,
                            reinterpret_cast<const sockaddr*>(&to), sizeof to);
    return sent >= 0 && static_cast<std::size_t>(sent) == bytes.size();
  }

  Received Receive(std::span<std::uint8_t> into, int milliseconds) override;

 private:
  enum class Waited { ready, nothing, failed };
  Waited WaitFor(DWORD milliseconds) const;

  SOCKET socket_;
};

Win32Socket::Waited Win32Socket::WaitFor(DWORD milliseconds) const {
  fd_set reading{};
  reading.fd_count = 1;
  reading.fd_array[0] = socket_;
  timeval wait{static_cast<long>(milliseconds / 1000), static_cast<long>(milliseconds % 1000 * 1000)};
  const int ready = select(0, &reading, nullptr, nullptr, &wait);
  if (ready == SOCKET_ERROR) return Waited::failed;
  return ready == 0 ? Waited::nothing : Waited::ready;
}

Received Win32Socket::Receive(std::span<std::uint8_t> into, int milliseconds) {
  const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(std::max(milliseconds, 0));
  for (;;) {
    const Waited waited = WaitFor(MillisecondsUntil(end));
    if (waited == Waited::nothing && MillisecondsUntil(end) == 0) return {ReceiveStatus::timeOut, 0, 0, 0};
    if (waited == Waited::ready) {
      sockaddr_in from{};
      int fromSize = sizeof from;
      const int size = recvfrom(socket_, reinterpret_cast<char*>(into.data()), static_cast<int>(into.size()), 0,
                                reinterpret_cast<sockaddr*>(&from), &fromSize);
      if (size >= 0)
        return {ReceiveStatus::datagram, static_cast<std::size_t>(size), ntohl(from.sin_addr.s_addr),
                ntohs(from.sin_port)};
      const int error = WSAGetLastError();
      if (error == WSAEMSGSIZE) return {};
      if (error == WSAEWOULDBLOCK || error == WSAEINTR || error == WSAECONNRESET) {
        if (MillisecondsUntil(end) == 0) return {ReceiveStatus::timeOut, 0, 0, 0};
        continue;
      }
    }
    if (waited == Waited::nothing) continue;
    ::Sleep(MillisecondsUntil(end));
    return {};
  }
}

}  // namespace

bool Win32Sockets::Start(std::uint16_t version) {
  WSADATA data{};
  return WSAStartup(version, &data) == 0;
}

void Win32Sockets::Stop() {
  WSACleanup();
}

std::unique_ptr<DatagramSocket> Win32Sockets::Open() {
  const SOCKET made = socket(AF_INET, SOCK_DGRAM, 0);
  if (made == INVALID_SOCKET) return nullptr;
  IgnoreRefusals(made);
  return std::make_unique<Win32Socket>(made);
}

bool Win32Sockets::HostName(std::string& name) {
  std::array<char, 600> buffer{};
  if (gethostname(buffer.data(), static_cast<int>(buffer.size()) - 1) != 0) return false;
  // The network's calls for bytes speak the system's code page, whatever the module's own is.
  name = win32::ModuleText().Narrow(win32::CodePage(GetACP()).Wide(buffer.data()));
  return true;
}

bool Win32Sockets::LookUp(std::string_view name) {
  ADDRINFOW wanted{};
  wanted.ai_family = AF_INET;
  wanted.ai_socktype = SOCK_DGRAM;
  ADDRINFOW* found = nullptr;
  if (GetAddrInfoW(win32::ModuleText().Wide(name).c_str(), nullptr, &wanted, &found) != 0) return false;
  FreeAddrInfoW(found);
  return true;
}

void Win32Sockets::Sleep(int milliseconds) {
  ::Sleep(static_cast<DWORD>(std::max(milliseconds, 0)));
}

}  // namespace set32
