// Searches under floods of datagrams, between two network namespaces of the attack's own. Each ends by its own
// deadline, whatever goes on arriving, and the list keeps to its bound and to those that may have answered.
#include <fcntl.h>
#include <sched.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "apps/driver/choices.h"
#include "apps/stage/forwarding.h"
#include "attack/flooder.h"
#include "attack/processes.h"
#include "attack/verdict.h"
#include "platform/posix/posix_sockets.h"
#include "platform/posix/posix_system.h"
#include "scanner/address.h"
#include "scanner/nets.h"

namespace set32 {
namespace {

using std::chrono::duration_cast;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr std::uint32_t here = 0x0A4D0001;  // 10.77.0.1, as data/two_networks.sh gives it
constexpr const char* there = "10.77.0.2";  // hears the requests, and so do the flooders
constexpr int flooderCount = 3;
constexpr const char* otherNetwork = "SET32_TEST_OTHER_NETWORK";  // a process there

// Counts what is received, and how often somebody still waited well after the deadline of what was asked last. A
// pause of the whole machine can make one wait late, no more.
class CountingSockets : public ForwardingSockets {
 public:
  using ForwardingSockets::ForwardingSockets;
  std::unique_ptr<DatagramSocket> Open() override {
    auto socket = ForwardingSockets::Open();
    return socket == nullptr ? nullptr : std::make_unique<Counting>(*this, std::move(socket));
  }
  long received = 0;
  long late = 0;
  milliseconds deadline{0};

 private:
  class Counting : public DatagramSocket {
   public:
    Counting(CountingSockets& owner, std::unique_ptr<DatagramSocket> socket)
        : owner_(owner), socket_(std::move(socket)) {}
    bool AllowBroadcast() override { return socket_->AllowBroadcast(); }
    bool Bind(std::uint16_t port) override { return socket_->Bind(port); }
    bool Send(std::span<const std::uint8_t> bytes, std::uint32_t address, std::uint16_t port) override {
      asked_ = steady_clock::now();
      return socket_->Send(bytes, address, port);
    }
    Received Receive(std::span<std::uint8_t> into, int wait) override {
      constexpr milliseconds pause(1000);
      if (steady_clock::now() > asked_ + owner_.deadline + pause) ++owner_.late;
      const Received seen = socket_->Receive(into, wait);
      if (seen.status != ReceiveStatus::timeOut) ++owner_.received;
      return seen;
    }

   private:
    CountingSockets& owner_;
    std::unique_ptr<DatagramSocket> socket_;
    steady_clock::time_point asked_ = steady_clock::now();
  };
};

class Floods {
 public:
  explicit Floods(std::uint32_t seed) : dice_(seed) {}

  AttackOutcome Go(const AttackOrder& order) {
    do {
      const auto kind = static_cast<Flooder::Kind>(dice_.Below(3));
      Tellings ready;
      // Several, so that a busy machine leaves less silence, which ends a search before its deadline.
      std::vector<Child> flooders;
      flooders.reserve(flooderCount);
      for (int i = 0; i < flooderCount; ++i) {
        flooders.emplace_back([&, seed = dice_.Next()] { return FloodFromThere(kind, seed, ready); });
      }
      ready.CloseTelling();
      int isReady = 0;
      if (!ready.Hear(isReady)) return NotTried("this machine doesn't allow forged datagrams");
      const long before = sockets_.received;
      Search(kind);
      if (why_.empty() && order.GoesOn()) Check(kind);
      if (why_.empty() && order.GoesOn()) Probe();
      if (why_.empty() && sockets_.received == before) why_ = "nothing of the flood arrived";
    } while (why_.empty() && order.GoesOn());
    const std::string figures = std::to_string(operations_) + " searches, " + std::to_string(sockets_.received) +
                                " datagrams heard, " + std::to_string(found_) + " scanners, the longest search " +
                                std::to_string(longest_.count()) + " ms";
    return why_.empty() ? Held(figures) : Fell(figures, why_);
  }

 private:
  static int FloodFromThere(Flooder::Kind kind, std::uint32_t seed, const Tellings& ready) {
    const FileHandle network(
        open((std::string("/proc/") + std::getenv(otherNetwork) + "/ns/net").c_str(), O_RDONLY | O_CLOEXEC));
    Flooder flooder(kind, here, seed);
    if (setns(network.Get(), CLONE_NEWNET) != 0 || !flooder.Open()) return 1;
    ready.Tell(0);
    flooder.Flood();
  }

  // A search asks `times`, each time with the same deadline. How long it lasts by the clock is no fault on a busy
  // machine, short of three times as long as it may.
  void Time(const char* name, milliseconds deadline, int times, const std::function<void()>& operation) {
    sockets_.deadline = deadline;
    sockets_.late = 0;
    const auto start = steady_clock::now();
    operation();
    const auto lasted = duration_cast<milliseconds>(steady_clock::now() - start);
    longest_ = std::max(longest_, lasted);
    ++operations_;
    if (sockets_.late > times) why_ = std::string(name) + " went on after its deadline";
    if (lasted > deadline * times * 3) why_ = std::string(name) + " lasted " + std::to_string(lasted.count()) + " ms";
  }

  void Search(Flooder::Kind kind) {
    CScannerList list;
    Time("a search", milliseconds(nets::passLimit), 2, [&] { BroadcastDiscovery(sockets_, system_, list); });
    if (list.Count() > nets::maxFound) why_ = "the list took up " + std::to_string(list.Count());
    found_ += list.Count();
    if (kind == Flooder::Kind::answers && list.Count() == 0) why_ = "no answer of many was taken up";
    if (kind == Flooder::Kind::noise && list.Count() != 0) why_ = "noise became a scanner";
    std::set<std::string> names;
    for (const ScannerNode* node = list.Head(); node != nullptr; node = node->next.get()) {
      const std::string name(node->record.Name());
      if (!ParseAddress(name) || !names.insert(name).second) why_ = "the list holds " + name;
    }
  }

  void Check(Flooder::Kind kind) {
    DistinctRecords added(1);
    ScannerRecord record;
    record.flags = SCANNER_FLAG_ADDED | SCANNER_FLAG_ANSWERED;
    record.SetName(there);
    added.Put(record);
    Time("a check", milliseconds(3000), 1, [&] { CheckAddedScanners(sockets_, system_, added, networkScannerPort); });
    const bool answered = (added.All()[0].flags & SCANNER_FLAG_ANSWERED) != 0;
    if (answered && kind == Flooder::Kind::noise) why_ = "noise answered a check";
  }

  void Probe() {
    Time("a probe", milliseconds(3000), 1, [&] { ProbeScanner(sockets_, system_, there, networkScannerPort); });
  }

  Dice dice_;
  PosixSockets plain_;
  CountingSockets sockets_{plain_};
  PosixSystem system_;
  std::string why_;
  long operations_ = 0;
  long found_ = 0;
  milliseconds longest_{0};
};

// This program once more, with two networks of its own.
AttackOutcome RunInside(const std::string& self, const AttackOrder& order) {
  alarm(0);  // the one inside looks at the clock itself
  const auto left = duration_cast<std::chrono::seconds>(order.end - steady_clock::now() + milliseconds(999));
  const std::string command = "SET32_TEST_NETWORK_SECONDS=" + std::to_string(left.count() + 300) +
                              " unshare -Urnu sh '" SET32_TEST_DATA "/two_networks.sh' '" + self + "' " +
                              std::to_string(left.count()) + ' ' + std::to_string(order.seed) + " 2>&1";
  std::FILE* const run = popen(command.c_str(), "r");
  if (run == nullptr) return NotTried("no shell");
  std::string line, last;
  bool hasStarted = false;
  for (int c = std::fgetc(run); c != EOF; c = std::fgetc(run)) {
    if (c != '\n') {
      line += static_cast<char>(c);
      continue;
    }
    hasStarted = hasStarted || line == "inside";
    std::fprintf(stderr, "%s\n", line.c_str());
    last = std::exchange(line, {});
  }
  const int status = pclose(run);
  const std::string start = "floods: ", held = " - held", fell = " - FELL: ", notTried = "not tried: ";
  if (!hasStarted) return NotTried("no network namespaces here (" + last + ")");
  if (!last.starts_with(start)) return Fell("cut short", "ended with status " + std::to_string(status));
  last.erase(0, start.size());
  if (last.starts_with(notTried)) return NotTried(last.substr(notTried.size()));
  if (last.ends_with(held) && status == 0) return Held(last.substr(0, last.size() - held.size()));
  const std::size_t at = std::min(last.find(fell), last.size());
  return Fell(last.substr(0, at), last.substr(std::min(at + fell.size(), last.size())));
}

}  // namespace
}  // namespace set32

int main(int count, char** words) {
  const bool isInside = std::getenv(set32::otherNetwork) != nullptr;
  if (isInside) std::puts("inside");
  return set32::RunAttack("floods", count, words, [&](const set32::AttackOrder& order) {
    return isInside ? set32::Floods(order.seed).Go(order)
                    : set32::RunInside(std::filesystem::read_symlink("/proc/self/exe").string(), order);
  });
}
