// The datagram protocol NETS: who is there on the network?
//
// All three operations block the caller's thread and sleep while they wait. Each opens and closes its own socket, and
// none lasts longer than told here, whatever arrives.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/sockets.h"
#include "platform/system.h"
#include "scanner/scanner_list.h"

namespace set32 {

namespace nets {

// Versions that the socket library is asked for.
inline constexpr std::uint16_t oldLibrary = 0x0101;
inline constexpr std::uint16_t newLibrary = 0x0202;

// A search takes up at most so many new scanners, far more than answer on an honest network.
inline constexpr int maxFound = 1024;
// A pass of the search is over after so many milliseconds, also while datagrams keep coming.
inline constexpr int passLimit = 2000;

}  // namespace nets

// The socket library while it is in use.
class SocketLibrary {
 public:
  SocketLibrary(Sockets& sockets, std::uint16_t version) : sockets_(sockets), started_(sockets.Start(version)) {}
  ~SocketLibrary() {
    if (started_) sockets_.Stop();
  }
  SocketLibrary(const SocketLibrary&) = delete;
  SocketLibrary& operator=(const SocketLibrary&) = delete;
  explicit operator bool() const { return started_; }

 private:
  Sockets& sockets_;
  bool started_;
};

// Asks the whole local network, twice, and enters every sender of an answer into the list. Starts the library itself.
// Any failure ends it; what was found before stays.
void BroadcastDiscovery(Sockets& sockets, System& system, CScannerList& list);

// Asks each added network scanner at `port` and sets SCANNER_FLAG_ANSWERED of those that answer within 2 to 3
// seconds; it lasts that long also when there is nobody to ask. Names that are no address are not asked. Result:
// whether the last look found a datagram. The library must be started.
bool CheckAddedScanners(Sockets& sockets, System& system, DistinctRecords& added, std::uint16_t port);

// Asks one address and returns true at the first datagram that comes, from anybody; false after 2 to 3 seconds, and
// at once for a text that is no dotted address. The library must be started.
bool ProbeScanner(Sockets& sockets, System& system, std::string_view address, std::uint16_t port);

}  // namespace set32
