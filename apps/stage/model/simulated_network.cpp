#include "apps/stage/model/simulated_network.h"

#include <algorithm>
#include <utility>

namespace set32 {

class SimulatedNetwork::Socket : public DatagramSocket {
 public:
  explicit Socket(SimulatedNetwork& network) : network_(network) {}

  bool AllowBroadcast() override {
    mayBroadcast_ = true;
    return true;
  }

  bool Bind(std::uint16_t port) override {
    if (network_.Fails(Step::bind)) return false;
    port_ = port;
    return true;
  }

  bool Send(std::span<const std::uint8_t> bytes, std::uint32_t address, std::uint16_t port) override;
  Received Receive(std::span<std::uint8_t> into, int milliseconds) override;

 private:
  struct Arrival {
    std::uint64_t due;
    std::uint32_t sender;
    std::uint16_t senderPort;
    std::vector<std::uint8_t> datagram;
  };

  void Deliver(Arrival arrival);

  SimulatedNetwork& network_;
  bool mayBroadcast_ = false;
  std::uint16_t port_ = 0;
  std::vector<Arrival> arrivals_;  // by time, equal times in the order of delivery
  std::size_t next_ = 0;
};

void SimulatedNetwork::Socket::Deliver(Arrival arrival) {
  const auto place = std::upper_bound(arrivals_.begin() + static_cast<std::ptrdiff_t>(next_), arrivals_.end(),
                                      arrival.due, [](std::uint64_t due, const Arrival& a) { return due < a.due; });
  arrivals_.insert(place, std::move(arrival));
}

bool SimulatedNetwork::Socket::Send(std::span<const std::uint8_t> bytes, std::uint32_t address, std::uint16_t port) {
  const bool broadcast = address == broadcastAddress;
  if (network_.Fails(Step::send) || (broadcast && !mayBroadcast_)) return false;
  const std::vector<std::uint8_t> copy(bytes.begin(), bytes.end());
  network_.requests_.push_back({copy, address, port, port_});
  const std::uint64_t now = network_.clock_.Now();
  if (broadcast && network_.loops_ && port == port_) Deliver({now, ownAddress, port_, copy});
  for (const Answer& answer : network_.answers_) {
    if (!broadcast && answer.address != address) continue;
    const std::uint64_t due = now + static_cast<std::uint64_t>(std::max(answer.delay, 0));
    Deliver({due, answer.address, port, answer.datagram});
  }
  return true;
}

Received SimulatedNetwork::Socket::Receive(std::span<std::uint8_t> into, int milliseconds) {
  const std::uint64_t end = network_.clock_.Now() + static_cast<std::uint64_t>(std::max(milliseconds, 0));
  if (next_ == arrivals_.size() || arrivals_[next_].due > end) {
    network_.clock_.Advance(end - network_.clock_.Now());
    return {ReceiveStatus::timeOut, 0, 0, 0};
  }
  const Arrival arrival = std::move(arrivals_[next_++]);
  if (arrival.due > network_.clock_.Now()) network_.clock_.Advance(arrival.due - network_.clock_.Now());
  const std::size_t size = std::min(arrival.datagram.size(), into.size());
  std::copy_n(arrival.datagram.begin(), size, into.begin());
  if (size < arrival.datagram.size()) return {};
  return {ReceiveStatus::datagram, size, arrival.sender, arrival.senderPort};
}

void SimulatedNetwork::Silence(std::uint32_t address) {
  std::erase_if(answers_, [address](const Answer& answer) { return answer.address == address; });
}

bool SimulatedNetwork::Start(std::uint16_t version) {
  (void)version;
  if (Fails(Step::start)) return false;
  ++running_;
  return true;
}

std::unique_ptr<DatagramSocket> SimulatedNetwork::Open() {
  if (Fails(Step::socket)) return nullptr;
  return std::make_unique<Socket>(*this);
}

bool SimulatedNetwork::HostName(std::string& name) {
  if (Fails(Step::hostName)) return false;
  name = "simulated";
  return true;
}

bool SimulatedNetwork::LookUp(std::string_view name) {
  (void)name;
  return !Fails(Step::lookUp);
}

}  // namespace set32
