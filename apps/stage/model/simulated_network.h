// The network that a script or a test declares. Waits pass in simulated time.
//
// A scanner is an address with datagrams. It answers each request that reaches it, sent to its address or broadcast,
// in the order in which the datagrams were declared. One thread; sockets must not outlive the network.
#pragma once

#include <cstdint>
#include <set>
#include <vector>

#include "apps/stage/model/simulated_clock.h"
#include "platform/sockets.h"

namespace set32 {

class SimulatedNetwork : public Sockets {
 public:
  enum class Step { start, socket, bind, hostName, lookUp, send };

  struct Answer {
    std::uint32_t address = 0;
    std::vector<std::uint8_t> datagram;
    int delay = 0;  // milliseconds after the request
  };

  // Where the own broadcast comes from, when it is heard.
  static constexpr std::uint32_t ownAddress = 0xC0000201;  // 192.0.2.1

  explicit SimulatedNetwork(SimulatedClock& clock) : clock_(clock) {}

  void AddAnswer(Answer answer) { answers_.push_back(std::move(answer)); }
  void Silence(std::uint32_t address);
  // The step fails from now on, beside those that fail already.
  void Fail(Step step) { failing_.insert(step); }
  void FailNothing() { failing_.clear(); }
  // Whether a broadcast comes back to a socket of the sender that is bound to the port.
  void SetLoops(bool loops) { loops_ = loops; }

  // For tests: what was sent, and how many starts weren't stopped.
  struct Request {
    std::vector<std::uint8_t> bytes;
    std::uint32_t address = 0;
    std::uint16_t port = 0;
    std::uint16_t fromPort = 0;  // 0: a free one
    bool operator==(const Request&) const = default;
  };
  const std::vector<Request>& Requests() const { return requests_; }
  int Running() const { return running_; }

  bool Start(std::uint16_t version) override;
  void Stop() override { --running_; }
  std::unique_ptr<DatagramSocket> Open() override;
  bool HostName(std::string& name) override;
  bool LookUp(std::string_view name) override;
  void Sleep(int milliseconds) override { clock_.Advance(static_cast<std::uint64_t>(milliseconds)); }

 private:
  class Socket;

  bool Fails(Step step) const { return failing_.contains(step); }

  SimulatedClock& clock_;
  std::vector<Answer> answers_;
  std::set<Step> failing_;
  bool loops_ = false;
  std::vector<Request> requests_;
  int running_ = 0;
};

}  // namespace set32
