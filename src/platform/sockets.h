// Datagram sockets, as far as the search for scanners needs them.
//
// Addresses are IPv4 in host order: a.b.c.d is a * 2^24 + b * 2^16 + c * 2^8 + d. Any thread, one at a time for a
// socket. Nothing throws; what is open is closed by releasing the object.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace set32 {

inline constexpr std::uint32_t broadcastAddress = 0xFFFFFFFF;

enum class ReceiveStatus {
  datagram,
  timeOut,  // nothing came within the wait
  // Any other failure. A datagram longer than the buffer is one; it comes at once, and the buffer may hold its start.
  // A failure that would come back at every call takes the whole wait, so that a loop over it doesn't spin.
  error,
};

struct Received {
  ReceiveStatus status = ReceiveStatus::error;
  std::size_t size = 0;
  std::uint32_t sender = 0;
  std::uint16_t senderPort = 0;
};

class DatagramSocket {
 public:
  virtual ~DatagramSocket() = default;
  virtual bool AllowBroadcast() = 0;
  // Every local address; port 0 takes a free one.
  virtual bool Bind(std::uint16_t port) = 0;
  // A broadcast that wasn't allowed before fails.
  virtual bool Send(std::span<const std::uint8_t> bytes, std::uint32_t address, std::uint16_t port) = 0;
  // Sleeps until a datagram comes or the wait is over. A wait of 0 only looks. Bytes of the buffer past the datagram
  // stay as they were.
  virtual Received Receive(std::span<std::uint8_t> into, int milliseconds) = 0;
};

class Sockets {
 public:
  virtual ~Sockets() = default;
  // Starts the socket library with this version, 0x0101 or 0x0202; each true is matched by one Stop.
  virtual bool Start(std::uint16_t version) = 0;
  virtual void Stop() = 0;
  // Null on failure.
  virtual std::unique_ptr<DatagramSocket> Open() = 0;
  virtual bool HostName(std::string& name) = 0;
  virtual bool LookUp(std::string_view name) = 0;
  // Waits without a socket, for the searches that last as long when none could be opened.
  virtual void Sleep(int milliseconds) = 0;
};

}  // namespace set32
