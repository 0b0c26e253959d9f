// A device at the other end of the NETS datagrams, for trying the panel out without one.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/posix/file_handle.h"

namespace set32::scan_answer {

struct DeviceOptions {
  std::uint32_t address = 0x7F000001;  // where it listens and what it answers from; 0: every local address
  std::uint16_t port = 53550;
  int delay = 0;                       // milliseconds between request and answer
  int copies = 1;                      // datagrams to a request
  std::vector<std::uint8_t> datagram;  // what it answers
};

// The answer of a well-behaved device: accepted by every search. The name is cut to 67 bytes.
std::vector<std::uint8_t> WellFormedAnswer(const std::string& name);

class Device {
 public:
  explicit Device(DeviceOptions options) : options_(std::move(options)) {}

  // False, with the reason told, when the address can't be had.
  bool Listen(std::string& why);
  // Waits for the next request, answers it, and tells who asked, "10.0.0.1:53550"; what is no request is passed over.
  // Empty when the socket failed.
  std::string AnswerNext();

 private:
  FileHandle ReceiveAt(std::uint32_t address);
  void Answer(std::uint32_t address, std::uint16_t port);

  DeviceOptions options_;
  FileHandle own_;
  FileHandle broadcasts_;  // an address of its own doesn't hear them
};

}  // namespace set32::scan_answer
