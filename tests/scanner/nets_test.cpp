// What the three searches make of answers, silence, failures and floods, and how long each of them lasts.
#include "scanner/nets.h"

#include <gmock/gmock.h>

#include "apps/stage/forwarding.h"
#include "apps/stage/model/headless_system.h"
#include "apps/stage/model/simulated_network.h"
#include "scanner/address.h"

namespace set32 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Bytes = std::vector<std::uint8_t>;
using Step = SimulatedNetwork::Step;

const Bytes theRequest = {'N', 'E', 'T', 'S', 0x10, 0, 0, 0};

std::uint32_t At(const char* dotted) {
  return ParseAddress(dotted).value();
}

// A datagram of this size that all three operations accept, but for what the arguments change.
Bytes Answer(std::size_t size = 16, std::uint8_t kind = 0x20, std::string_view magic = "NETS") {
  Bytes bytes(size);
  for (std::size_t i = 0; i < std::min(size, magic.size()); ++i) bytes[i] = static_cast<std::uint8_t>(magic[i]);
  if (size > 4) bytes[4] = kind;
  return bytes;
}

std::vector<std::string> NamesOf(const CScannerList& list) {
  std::vector<std::string> names;
  for (const ScannerNode* node = list.Head(); node != nullptr; node = node->next.get()) {
    names.emplace_back(node->record.Name());
  }
  return names;
}

ScannerRecord Added(std::string_view name, std::uint32_t flags = SCANNER_FLAG_ADDED) {
  ScannerRecord record;
  record.flags = flags;
  record.SetName(name);
  const AddressHalves halves = SplitAddress(ParseAddress(name).value_or(1));
  record.highHalf = halves.high;
  record.lowHalf = halves.low;
  return record;
}

class Nets : public testing::Test {
 protected:
  std::uint64_t LastsMilliseconds(const std::function<void()>& operation) {
    const std::uint64_t start = clock_.Now();
    operation();
    return clock_.Now() - start;
  }

  // All three operations start and stop the library in the same way.
  void TearDown() override { EXPECT_EQ(network_.Running(), 0); }

  SimulatedClock clock_;
  HeadlessSystem system_{clock_, 0x0404};
  SimulatedNetwork network_{clock_};
  CScannerList list_;
  DistinctRecords added_{maxScanners};
};

TEST_F(Nets, EachOperationAcceptsItsOwnAnswers) {
  struct Case {
    const char* what;
    Bytes datagram;
    bool found, marks, probes;
  };
  Bytes nameWithoutEnd = Answer(12);
  nameWithoutEnd[8] = 255;
  const Case cases[] = {
      {"plain", Answer(), true, true, true},
      {"no magic", Answer(16, 0x20, "nets"), true, false, true},
      {"kind of a request", Answer(16, 0x10), false, true, true},
      {"11 bytes", Answer(11), true, false, true},
      {"12 bytes", Answer(12), true, true, true},
      {"5 bytes", Answer(5), true, false, true},
      {"1 byte", Answer(1), false, false, true},
      {"empty", {}, false, false, false},
      {"76 bytes", Answer(76), true, true, true},
      {"77 bytes", Answer(77), true, false, false},
      {"600 bytes", Answer(600), true, false, false},
      {"601 bytes", Answer(601), false, false, false},
      {"name length past the end", nameWithoutEnd, true, true, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    SimulatedNetwork network(clock_);
    network.AddAnswer({At("10.1.2.3"), c.datagram});
    CScannerList list;
    BroadcastDiscovery(network, system_, list);
    EXPECT_EQ(NamesOf(list), c.found ? std::vector<std::string>{"10.1.2.3"} : std::vector<std::string>{});
    DistinctRecords added(10);
    added.Put(Added("10.1.2.3"));
    CheckAddedScanners(network, system_, added, networkScannerPort);
    EXPECT_EQ((added.All()[0].flags & SCANNER_FLAG_ANSWERED) != 0, c.marks);
    EXPECT_EQ(ProbeScanner(network, system_, "10.1.2.3", networkScannerPort), c.probes);
  }
}

TEST_F(Nets, DiscoveryAsksTwiceAndEntersEachSenderOnce) {
  network_.AddAnswer({At("10.0.0.9"), Answer()});
  network_.AddAnswer({At("192.168.1.20"), Answer()});
  network_.AddAnswer({At("10.0.0.9"), Answer(40)});
  network_.SetLoops(true);
  EXPECT_EQ(LastsMilliseconds([&] { BroadcastDiscovery(network_, system_, list_); }), 40U);
  EXPECT_THAT(NamesOf(list_), ElementsAre("10.0.0.9", "192.168.1.20"));
  const SimulatedNetwork::Request broadcast{theRequest, 0xFFFFFFFF, 53550, 53550};
  EXPECT_THAT(network_.Requests(), ElementsAre(broadcast, broadcast));
  const ScannerRecord& second = list_.Head()->next->record;
  EXPECT_EQ(second.id, 0x1401A8C0U);
  EXPECT_EQ(second.port, 53550U);
  EXPECT_EQ(second.flags, 0U);
}

// The first pass ends at the third time-out counted from the start, the second at its first; answers between reset
// nothing.
TEST_F(Nets, AnswersNeitherStopNorResetTheCountOfTimeOuts) {
  struct Case {
    int delay;
    unsigned lasts;
    bool found;
  };
  // An answer at 25 leaves 10 more of silence in the first pass; the second pass, at 35, hears nothing before 45.
  for (const Case& c : {Case{0, 40, true}, Case{25, 45, true}, Case{31, 41, true}, Case{45, 40, false}}) {
    SCOPED_TRACE(c.delay);
    SimulatedNetwork network(clock_);
    network.AddAnswer({At("10.0.0.1"), Answer(), c.delay});
    CScannerList list;
    EXPECT_EQ(LastsMilliseconds([&] { BroadcastDiscovery(network, system_, list); }), c.lasts);
    EXPECT_EQ(list.Count() == 1, c.found);
  }
}

TEST_F(Nets, DatagramTooShortForItsKindIsReadWithWhatTheOneBeforeLeft) {
  network_.AddAnswer({At("10.0.0.1"), Bytes(3)});
  network_.AddAnswer({At("10.0.0.2"), Answer()});
  network_.AddAnswer({At("10.0.0.3"), Bytes(3)});
  network_.AddAnswer({At("10.0.0.4"), Answer(8, 0x10)});
  network_.AddAnswer({At("10.0.0.5"), Bytes(3)});
  BroadcastDiscovery(network_, system_, list_);
  EXPECT_THAT(NamesOf(list_), ElementsAre("10.0.0.2", "10.0.0.3"));
}

TEST_F(Nets, FailureOfAnyStepEndsDiscovery) {
  for (const Step step : {Step::start, Step::socket, Step::bind, Step::hostName, Step::lookUp, Step::send}) {
    SimulatedNetwork network(clock_);
    network.AddAnswer({At("10.0.0.1"), Answer()});
    network.Fail(step);
    EXPECT_EQ(LastsMilliseconds([&] { BroadcastDiscovery(network, system_, list_); }), 0U);
    EXPECT_THAT(network.Requests(), IsEmpty());
    EXPECT_EQ(network.Running(), 0);
  }
  EXPECT_EQ(list_.Count(), 0);
}

// A socket whose receive never runs dry: it gives one thing after another, and time passes only slowly.
class Flood : public ForwardingSockets {
 public:
  enum class Kind { answers, noise, errors };
  Flood(Sockets& quiet, SimulatedClock& clock, Kind kind) : ForwardingSockets(quiet), clock_(clock), kind_(kind) {}

  std::unique_ptr<DatagramSocket> Open() override { return std::make_unique<Socket>(*this); }
  int received = 0;

 private:
  struct Socket : DatagramSocket {
    explicit Socket(Flood& owner) : flood(owner) {}
    bool AllowBroadcast() override { return true; }
    bool Bind(std::uint16_t) override { return true; }
    bool Send(std::span<const std::uint8_t>, std::uint32_t, std::uint16_t) override { return true; }
    Received Receive(std::span<std::uint8_t> into, int milliseconds) override {
      EXPECT_GT(milliseconds, 0);
      if (++flood.received % 250 == 0) flood.clock_.Advance(1);
      if (flood.kind_ == Kind::errors) return {};
      const Bytes datagram = flood.kind_ == Kind::answers ? Answer(12) : Bytes(12, 0xFF);
      std::copy(datagram.begin(), datagram.end(), into.begin());
      return {ReceiveStatus::datagram, datagram.size(), 0x0A000000U + static_cast<std::uint32_t>(flood.received), 1};
    }
    Flood& flood;
  };

  SimulatedClock& clock_;
  Kind kind_;
};

TEST_F(Nets, FloodMovesNeitherTheDeadlineNorTheBoundOfTheList) {
  for (const Flood::Kind kind : {Flood::Kind::answers, Flood::Kind::noise, Flood::Kind::errors}) {
    CScannerList list;
    Flood flood(network_, clock_, kind);
    EXPECT_EQ(LastsMilliseconds([&] { BroadcastDiscovery(flood, system_, list); }), 4000U);  // two passes of 2 s
    EXPECT_EQ(flood.received, 1'000'000);
    EXPECT_EQ(list.Count(), kind == Flood::Kind::answers ? nets::maxFound : 0);

    DistinctRecords added(10);
    added.Put(Added("10.0.0.7"));
    added.Put(Added("11.0.0.7", SCANNER_FLAG_ADDED | SCANNER_FLAG_ANSWERED));
    flood.received = 0;
    EXPECT_EQ(LastsMilliseconds([&] { CheckAddedScanners(flood, system_, added, networkScannerPort); }), 3000U);
    EXPECT_EQ(added.All()[0].flags, kind == Flood::Kind::answers ? 6U : 2U);
    EXPECT_EQ(added.All()[1].flags, 2U);
  }
}

TEST_F(Nets, CheckAsksTheAddressesAndForgetsOldAnswers) {
  ScannerRecord usb = Added("10.0.0.8", 6);
  usb.type = scanner_type::usb;
  usb.lowHalf = 1;
  for (const ScannerRecord& record :
       {Added("10.0.0.1", 6), Added("10.0.0.2"), Added("scanner.example.org", 6), Added("10.0.0.256", 6), usb}) {
    added_.Put(record);
  }
  ScannerRecord sameName = Added("10.0.0.2");
  sameName.highHalf = 77;
  added_.Put(sameName);
  network_.AddAnswer({At("10.0.0.2"), Answer(), 1900});
  network_.AddAnswer({At("10.0.0.3"), Answer()});
  EXPECT_EQ(LastsMilliseconds([&] { CheckAddedScanners(network_, system_, added_, 53550); }), 3000U);
  const auto asked = [](const char* address) { return SimulatedNetwork::Request{theRequest, At(address), 53550, 0}; };
  EXPECT_THAT(network_.Requests(), ElementsAre(asked("10.0.0.1"), asked("10.0.0.2"), asked("10.0.0.2")));
  std::vector<std::uint32_t> flags;
  for (const ScannerRecord& record : added_.All()) flags.push_back(record.flags);
  // Only the first record of a name is marked, and a USB record isn't asked.
  EXPECT_THAT(flags, ElementsAre(2, 6, 2, 2, 6, 2));
}

TEST_F(Nets, WaitLastsUntilTheThirdChangeOfTheSecond) {
  struct Case {
    std::uint64_t start;
    unsigned lasts;
  };
  for (const Case& c : {Case{10'000, 3000}, Case{10'700, 2300}, Case{10'999, 2001}, Case{3'599'400, 2600}}) {
    SCOPED_TRACE(c.start);
    SimulatedClock clock;
    clock.Advance(c.start);
    HeadlessSystem system(clock, 0x0404);
    SimulatedNetwork network(clock);
    EXPECT_FALSE(ProbeScanner(network, system, "10.0.0.1", networkScannerPort));
    // The last looks at the clock are 10 ms apart.
    EXPECT_GE(clock.Now() - c.start, c.lasts);
    EXPECT_LE(clock.Now() - c.start, c.lasts + 9);
    const std::uint64_t again = clock.Now();
    network.Fail(Step::socket);
    EXPECT_FALSE(ProbeScanner(network, system, "10.0.0.1", networkScannerPort));
    EXPECT_GE(clock.Now() - again, 2000U);
    EXPECT_LE(clock.Now() - again, 3000U);
    EXPECT_EQ(CheckAddedScanners(network, system, added_, networkScannerPort), false);
  }
}

// Somebody sets the clock of the hour while the wait is under way.
class SetClock : public ForwardingSystem {
 public:
  SetClock(System& system, int shift) : ForwardingSystem(system), shift_(shift) {}
  int SecondsOfHour() override {
    const int now = ForwardingSystem::SecondsOfHour();
    return looks_++ == 0 ? now : ((now + shift_) % 3600 + 3600) % 3600;
  }

 private:
  int shift_;
  int looks_ = 0;
};

TEST_F(Nets, ClockThatIsSetMeanwhileNeitherEndsNorProlongsTheWait) {
  for (const int shift : {-1, -3, -600, -3597, 3, 600}) {
    SCOPED_TRACE(shift);
    SetClock system(system_, shift);
    // Datagrams keep coming, so the clock is looked at all the time.
    Flood flood(network_, clock_, Flood::Kind::noise);
    const std::uint64_t lasted =
        LastsMilliseconds([&] { CheckAddedScanners(flood, system, added_, networkScannerPort); });
    EXPECT_GE(lasted, 2000U);
    EXPECT_LE(lasted, 3000U);
  }
}

TEST_F(Nets, ProbeEndsWithTheFirstDatagramAndIgnoresWhatIsNoAddress) {
  network_.AddAnswer({At("10.0.0.1"), {}, 100});
  network_.AddAnswer({At("10.0.0.1"), Bytes{0}, 250});
  EXPECT_EQ(LastsMilliseconds([&] { EXPECT_TRUE(ProbeScanner(network_, system_, "10.0.0.1", 53550)); }), 250U);
  EXPECT_THAT(network_.Requests(), ElementsAre(SimulatedNetwork::Request{theRequest, At("10.0.0.1"), 53550, 0}));
  for (const char* text : {"", "...", "NoDefault", "10.0.0", "10.0.0.1.2", "10.0.0.256", "10.0.0.1 ", "10..0.1",
                           "10.0.0.-1", "0x0a.0.0.1", "10.0.0.0001", "scanner.in.the.attic"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(LastsMilliseconds([&] { EXPECT_FALSE(ProbeScanner(network_, system_, text, 53550)); }), 0U);
  }
  EXPECT_EQ(network_.Requests().size(), 1U);
  // A socket that wasn't allowed to broadcast doesn't, whatever address a profile names.
  EXPECT_FALSE(ProbeScanner(network_, system_, "255.255.255.255", 53550));
}

}  // namespace
}  // namespace set32
