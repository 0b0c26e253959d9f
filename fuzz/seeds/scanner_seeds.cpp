#include "apps/stage/model/headless_system.h"
#include "apps/stage/model/simulated_network.h"
#include "fuzz/seeds/seeds.h"
#include "scanner/nets.h"

namespace set32::fuzz {

namespace {

// What the search sends, made an answer.
std::string AnswerOf(std::string request) {
  constexpr std::size_t kindAt = 4;
  constexpr char answerKind = 0x20;
  request[kindAt] = answerKind;
  return request;
}

// As the target cuts it: the length with the delay above it, the sender, the datagram.
std::string Datagram(const std::string& bytes, std::uint8_t delay, char sender) {
  return std::string{static_cast<char>(bytes.size()), static_cast<char>(delay << 2), sender} + bytes;
}

}  // namespace

void AddScanners(Seeds& seeds) {
  SimulatedClock clock;
  HeadlessSystem system(clock, 0x0404);
  SimulatedNetwork network(clock);
  CScannerList list;
  BroadcastDiscovery(network, system, list);
  if (network.Requests().empty()) return;
  const auto& bytes = network.Requests().front().bytes;
  const std::string request(bytes.begin(), bytes.end());
  const std::string answer = AnswerOf(request);
  seeds.Add("fuzz_nets", Datagram(answer, 0, 1) + Datagram(answer, 10, 2) + Datagram(request, 5, 3));
  seeds.Add("fuzz_nets", Datagram(answer, 60, 1) + Datagram(answer.substr(0, 5), 0, 1) + Datagram("", 0, 4));
  seeds.AddWords("fuzz_nets", {request.substr(0, 4), answer});
}

}  // namespace set32::fuzz
