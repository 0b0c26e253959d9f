#include "attack/flooder.h"

#include <sys/socket.h>

#include <algorithm>

#include "apps/driver/wild_values.h"
#include "platform/posix/socket_address.h"
#include "scanner/scanner_record.h"

namespace set32 {

namespace {

constexpr std::size_t ipHeader = 20;
constexpr std::size_t udpHeader = 8;
constexpr int longestUnsplit = 1400;

void PutWord(std::uint8_t* at, std::size_t word) {
  at[0] = static_cast<std::uint8_t>(word >> 8);
  at[1] = static_cast<std::uint8_t>(word);
}

void PutAddress(std::uint8_t* at, std::uint32_t address) {
  PutWord(at, address >> 16);
  PutWord(at + 2, address & 0xFFFF);
}

// A whole packet with a sender of our choice; the system fills in the checksum of the IP header, and UDP needs none.
std::vector<std::uint8_t> Packet(std::uint32_t from, std::uint32_t to, std::uint16_t port,
                                 const std::vector<std::uint8_t>& datagram) {
  constexpr std::uint8_t version4Of5Words = 0x45, timeToLive = 64;
  std::vector<std::uint8_t> packet(ipHeader + udpHeader, 0);
  packet[0] = version4Of5Words;
  PutWord(&packet[2], packet.size() + datagram.size());
  packet[8] = timeToLive;
  packet[9] = IPPROTO_UDP;
  PutAddress(&packet[12], from);
  PutAddress(&packet[16], to);
  PutWord(&packet[ipHeader], networkScannerPort);
  PutWord(&packet[ipHeader + 2], port);
  PutWord(&packet[ipHeader + 4], udpHeader + datagram.size());
  packet.insert(packet.end(), datagram.begin(), datagram.end());
  return packet;
}

}  // namespace

bool Flooder::Open() {
  listening_ = FileHandle(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  sending_ = FileHandle(socket(AF_INET, SOCK_RAW | SOCK_CLOEXEC, IPPROTO_RAW));
  const int on = 1;
  setsockopt(listening_.Get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);  // all of them hear a broadcast
  const sockaddr_in local = SocketAddress(INADDR_ANY, networkScannerPort);
  return sending_.IsOpen() && bind(listening_.Get(), reinterpret_cast<const sockaddr*>(&local), sizeof local) == 0;
}

void Flooder::Flood() {
  for (;;) {
    LearnPort();
    constexpr int between = 64;
    for (int i = 0; i < between; ++i) Send(askedFrom_ != 0 && dice_.OneIn(2) ? askedFrom_ : networkScannerPort);
  }
}

void Flooder::LearnPort() {
  std::array<std::uint8_t, 64> bytes{};
  sockaddr_in from{};
  socklen_t size = sizeof from;
  if (recvfrom(listening_.Get(), bytes.data(), bytes.size(), 0, reinterpret_cast<sockaddr*>(&from), &size) >= 0)
    askedFrom_ = ntohs(from.sin_port);
}

std::vector<std::uint8_t> Flooder::Next() {
  static constexpr std::uint8_t answer[] = {'N', 'E', 'T', 'S', 0x20, 0, 0, 0, 0, 0, 0, 0};
  const bool isAnswer = kind_ == Kind::answers || (kind_ == Kind::mixed && dice_.OneIn(2));
  if (isAnswer) return {std::begin(answer), std::end(answer)};
  std::vector<std::uint8_t> bytes = WildBytes(dice_, dice_.OneIn(4) ? longestUnsplit : 80);
  constexpr std::size_t kind = 4;
  if (kind_ == Kind::noise && bytes.size() > kind && bytes[kind] == answer[kind]) bytes[kind] = 0x10;
  return bytes;
}

void Flooder::Send(std::uint16_t port) {
  constexpr std::uint32_t anyNetwork = 0x0A000000;  // 10.0.0.0, and any host there
  const std::uint32_t from = anyNetwork + dice_.Next() % 0xFFFFFE + 1;
  const std::vector<std::uint8_t> packet = Packet(from, target_, port, Next());
  const sockaddr_in to = SocketAddress(target_, 0);
  sendto(sending_.Get(), packet.data(), packet.size(), MSG_NOSIGNAL, reinterpret_cast<const sockaddr*>(&to),
         sizeof to);
}

}  // namespace set32
