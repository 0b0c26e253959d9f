// scan-answer: stands for a network scanner.
#include <charconv>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "device.h"
#include "scanner/address.h"

namespace set32::scan_answer {
namespace {

constexpr char usage[] =
    "usage: scan-answer [OPTION VALUE]...\n"
    "Answers the panel's search for network scanners until it is ended, and tells who asks.\n"
    "  --address A  listen at this address and answer from it (127.0.0.1; 0.0.0.0: every local one)\n"
    "  --port P     UDP port (53550)\n"
    "  --name TEXT  the device's name in the answer (scan-answer)\n"
    "  --delay MS   wait before an answer (0)\n"
    "  --bytes HEX  answer these bytes instead of a well-formed answer\n"
    "  --flood N    N datagrams to a request (1)\n"
    "  --help       this text\n";

std::optional<int> ParseNumber(std::string_view text, int highest) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || value < 0 || value > highest) return {};
  return value;
}

std::optional<std::vector<std::uint8_t>> ParseHex(std::string_view text) {
  constexpr std::size_t largestDatagram = 65507;
  if (text.size() % 2 != 0 || text.size() / 2 > largestDatagram) return {};
  std::vector<std::uint8_t> bytes(text.size() / 2);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const char* digits = text.data() + 2 * i;
    const auto [end, error] = std::from_chars(digits, digits + 2, bytes[i], 16);
    if (error != std::errc() || end != digits + 2) return {};
  }
  return bytes;
}

template <typename From, typename To>
bool Take(const std::optional<From>& value, To& target) {
  if (value) target = static_cast<To>(*value);
  return value.has_value();
}

// Says what is wrong, and gives nothing, when the words make no sense.
std::optional<DeviceOptions> ParseOptions(int count, char** words) {
  DeviceOptions options;
  options.datagram = WellFormedAnswer("scan-answer");
  for (int i = 1; i < count; i += 2) {
    const std::string_view option = words[i];
    if (i + 1 == count) {
      std::fprintf(stderr, "scan-answer: nothing stands behind %s\n", words[i]);
      return {};
    }
    const std::string_view value = words[i + 1];
    bool taken = false;
    if (option == "--address") taken = Take(ParseAddress(value), options.address);
    if (option == "--port") taken = Take(ParseNumber(value, 65535), options.port);
    if (option == "--delay") taken = Take(ParseNumber(value, 3'600'000), options.delay);
    if (option == "--flood") taken = Take(ParseNumber(value, 100'000'000), options.copies);
    if (option == "--bytes") taken = Take(ParseHex(value), options.datagram);
    if (option == "--name") taken = Take(std::optional(WellFormedAnswer(std::string(value))), options.datagram);
    if (!taken) {
      std::fprintf(stderr, "scan-answer: can't take %s %s\n", words[i], words[i + 1]);
      return {};
    }
  }
  return options;
}

int Run(int count, char** words) {
  if (count == 2 && std::string_view(words[1]) == "--help") {
    std::fputs(usage, stdout);
    return 0;
  }
  const std::optional<DeviceOptions> options = ParseOptions(count, words);
  if (!options) {
    std::fputs(usage, stderr);
    return 2;
  }
  Device device(*options);
  std::string why;
  if (!device.Listen(why)) {
    std::fprintf(stderr, "scan-answer: %s\n", why.c_str());
    return 1;
  }
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
  std::printf("listening %s:%d\n", DottedAddress(options->address).c_str(), options->port);
  for (;;) {
    const std::string who = device.AnswerNext();
    if (who.empty()) return 1;
    std::printf("asked by %s\n", who.c_str());
  }
}

}  // namespace
}  // namespace set32::scan_answer

int main(int count, char** words) {
  return set32::scan_answer::Run(count, words);
}
