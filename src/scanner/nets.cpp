#include "scanner/nets.h"

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "scanner/address.h"

namespace set32 {

namespace {

constexpr std::array<std::uint8_t, 8> request = {'N', 'E', 'T', 'S', 0x10, 0, 0, 0};
constexpr std::size_t magicBytes = 4;
constexpr std::size_t kindOffset = 4;  // 0x10 in a request, so that an own one is never taken for an answer
constexpr std::uint8_t answerKind = 0x20;

constexpr std::size_t searchBufferBytes = 600;
constexpr std::size_t checkBufferBytes = 76;
constexpr std::size_t smallestAnswer = 12;  // for CheckAddedScanners

constexpr int searchWait = 10;  // milliseconds of silence that count as one time-out
constexpr int searchPasses = 2;

using SearchBuffer = std::array<std::uint8_t, searchBufferBytes>;

class Discovery {
 public:
  Discovery(DatagramSocket& socket, System& system, CScannerList& list)
      : socket_(socket), system_(system), list_(list) {}

  // False when the request couldn't be sent.
  bool Pass() {
    if (!socket_.Send(request, broadcastAddress, networkScannerPort)) return false;
    const std::uint64_t end = system_.Milliseconds() + nets::passLimit;
    for (std::uint64_t now = system_.Milliseconds(); now < end; now = system_.Milliseconds()) {
      const int wait = static_cast<int>(std::min<std::uint64_t>(searchWait, end - now));
      const Received received = socket_.Receive(buffer_, wait);
      if (received.status == ReceiveStatus::timeOut) {
        if (timeOuts_ > 2) break;
        ++timeOuts_;
      } else if (received.status == ReceiveStatus::datagram && buffer_[kindOffset] == answerKind) {
        Enter(received.sender);
      }
    }
    return true;
  }

 private:
  void Enter(std::uint32_t sender) {
    if (found_ == nets::maxFound) return;
    const AddressHalves halves = SplitAddress(sender);
    // The device's own name in the datagram isn't used: a network scanner is named by its address.
    if (list_.AddScannerEntry(scanner_type::network, halves.high, halves.low, networkScannerPort, {}, 0) == nullptr) {
      return;
    }
    ++found_;
  }

  DatagramSocket& socket_;
  System& system_;
  CScannerList& list_;
  // Cleared once: a datagram too short for a field leaves what the one before had there.
  SearchBuffer buffer_{};
  int timeOuts_ = 1;  // counted through both passes, so the second ends at its first silence
  int found_ = 0;
};

// The clock of the wait counts whole seconds of the hour until the third change, so it lasts between 2 and 3 seconds
// as they fall. The clock that only goes forward holds it to that when the hour's clock is set meanwhile.
class ThreeSeconds {
 public:
  explicit ThreeSeconds(System& system)
      : system_(system), startMilliseconds_(system.Milliseconds()), startSecond_(system.SecondsOfHour()) {}

  bool AreOver() {
    const std::uint64_t elapsed = Elapsed();
    if (elapsed < earliest || elapsed >= latest) return elapsed >= latest;
    constexpr int hour = 3600;
    return (system_.SecondsOfHour() - startSecond_ + hour) % hour >= 3;
  }

  // How long to sleep before the clock is worth another look.
  int NextSleep() {
    const std::uint64_t elapsed = Elapsed();
    if (elapsed < earliest) return static_cast<int>(earliest - elapsed);
    return static_cast<int>(std::clamp<std::uint64_t>(latest - std::min(elapsed, latest), 1, 10));
  }

 private:
  static constexpr std::uint64_t earliest = 2000;
  static constexpr std::uint64_t latest = 3000;

  std::uint64_t Elapsed() { return system_.Milliseconds() - startMilliseconds_; }

  System& system_;
  std::uint64_t startMilliseconds_;
  int startSecond_;
};

// A socket to ask with; while there is none, receiving only sleeps.
class Asker {
 public:
  explicit Asker(Sockets& sockets) : sockets_(sockets), socket_(sockets.Open()) {}

  void Ask(std::uint32_t address, std::uint16_t port) {
    if (socket_) socket_->Send(request, address, port);
  }

  Received Receive(std::span<std::uint8_t> into, int milliseconds) {
    if (socket_) return socket_->Receive(into, milliseconds);
    sockets_.Sleep(milliseconds);
    return {ReceiveStatus::timeOut, 0, 0, 0};
  }

 private:
  Sockets& sockets_;
  std::unique_ptr<DatagramSocket> socket_;
};

bool IsCheckAnswer(std::span<const std::uint8_t> datagram) {
  return datagram.size() >= smallestAnswer &&
         std::equal(request.begin(), request.begin() + magicBytes, datagram.begin());
}

}  // namespace

void BroadcastDiscovery(Sockets& sockets, System& system, CScannerList& list) {
  const SocketLibrary library(sockets, nets::newLibrary);
  if (!library) return;
  const std::unique_ptr<DatagramSocket> socket = sockets.Open();
  if (!socket || !socket->AllowBroadcast() || !socket->Bind(networkScannerPort)) return;
  std::string hostName;
  if (!sockets.HostName(hostName) || !sockets.LookUp(hostName)) return;
  Discovery discovery(*socket, system, list);
  for (int pass = 0; pass < searchPasses; ++pass) {
    if (!discovery.Pass()) return;
  }
}

bool CheckAddedScanners(Sockets& sockets, System& system, DistinctRecords& added, std::uint16_t port) {
  Asker asker(sockets);
  std::map<std::string, std::size_t, std::less<>> firstByName;
  for (std::size_t i = 0; i < added.All().size(); ++i) {
    const ScannerRecord& record = added.All()[i];
    firstByName.emplace(record.Name(), i);
    if (record.type != scanner_type::network) continue;
    if (const auto address = ParseAddress(record.Name())) asker.Ask(*address, port);
    added.FlagsAt(i) &= ~SCANNER_FLAG_ANSWERED;
  }
  bool lastWasDatagram = false;
  std::array<std::uint8_t, checkBufferBytes> buffer{};
  for (ThreeSeconds wait(system); !wait.AreOver();) {
    const Received received = asker.Receive(buffer, wait.NextSleep());
    lastWasDatagram = received.status == ReceiveStatus::datagram;
    if (!lastWasDatagram || !IsCheckAnswer(std::span(buffer).first(received.size))) continue;
    const auto found = firstByName.find(DottedAddress(received.sender));
    if (found != firstByName.end()) added.FlagsAt(found->second) |= SCANNER_FLAG_ANSWERED;
  }
  return lastWasDatagram;
}

bool ProbeScanner(Sockets& sockets, System& system, std::string_view address, std::uint16_t port) {
  const auto parsed = ParseAddress(address);
  if (!parsed) return false;
  Asker asker(sockets);
  ThreeSeconds wait(system);
  asker.Ask(*parsed, port);
  std::array<std::uint8_t, checkBufferBytes> buffer{};
  while (!wait.AreOver()) {
    const Received received = asker.Receive(buffer, wait.NextSleep());
    if (received.status == ReceiveStatus::datagram && received.size > 0) return true;
  }
  return false;
}

}  // namespace set32
