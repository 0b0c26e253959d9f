// Any datagrams from any senders, cut out of the input: a length and a sender's byte each, then the bytes. All three
// searches end in their time and hold no more than was heard.
#include <cstdlib>

#include "apps/stage/model/headless_system.h"
#include "apps/stage/model/simulated_network.h"
#include "scanner/nets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace set32;
  SimulatedClock clock;
  HeadlessSystem system(clock, 0x0404);
  SimulatedNetwork network(clock);
  int answers = 0;
  while (size >= 3) {
    const std::size_t length = std::min<std::size_t>((data[0] | data[1] << 8) & 0x3FF, size - 3);
    network.AddAnswer({0x0A000000U | data[2], {data + 3, data + 3 + length}, data[1] >> 2});
    data += 3 + length;
    size -= 3 + length;
    ++answers;
  }
  CScannerList list;
  BroadcastDiscovery(network, system, list);
  if (clock.Now() > 2 * std::uint64_t{nets::passLimit} || list.Count() > answers) std::abort();
  DistinctRecords added(2);
  for (const char* name : {"10.0.0.1", "no address"}) {
    ScannerRecord record;
    record.SetName(name);
    added.Put(record);
  }
  std::uint64_t start = clock.Now();
  CheckAddedScanners(network, system, added, networkScannerPort);
  if (clock.Now() - start < 2000 || clock.Now() - start > 3000) std::abort();
  start = clock.Now();
  ProbeScanner(network, system, "10.0.0.2", networkScannerPort);
  if (clock.Now() - start > 3000 || network.Running() != 0) std::abort();
  return 0;
}
