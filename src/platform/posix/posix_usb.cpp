#include "platform/posix/posix_usb.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>
#include <vector>

namespace set32 {

namespace {

namespace fs = std::filesystem;

// Bus and ports of a device's name, "1-2.3" as 1, 2, 3; empty for interfaces ("1-2:1.0") and root hubs ("usb1").
std::vector<unsigned> Ports(std::string_view name) {
  std::vector<unsigned> ports;
  while (!name.empty()) {
    unsigned port = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), port);
    if (error != std::errc()) return {};
    ports.push_back(port);
    name.remove_prefix(static_cast<std::size_t>(end - name.data()));
    if (name.empty()) break;
    if (name.front() != (ports.size() == 1 ? '-' : '.')) return {};
    name.remove_prefix(1);
    if (name.empty()) return {};
  }
  return ports;
}

// Four hexadecimal digits on a line.
std::optional<std::uint16_t> ReadId(const fs::path& file) {
  std::ifstream in(file);
  char digits[4] = {};
  if (!in.read(digits, sizeof digits)) return {};
  std::uint16_t value = 0;
  const auto [end, error] = std::from_chars(digits, digits + sizeof digits, value, 16);
  if (error != std::errc() || end != digits + sizeof digits) return {};
  return value;
}

class PosixUsbDevice : public UsbDevice {
 public:
  explicit PosixUsbDevice(fs::path folder) : folder_(std::move(folder)) {}
  std::optional<UsbIdentity> Identity() override {
    const auto vendor = ReadId(folder_ / "idVendor");
    const auto product = ReadId(folder_ / "idProduct");
    if (!vendor || !product) return {};
    return UsbIdentity{*vendor, *product};
  }

 private:
  fs::path folder_;
};

}  // namespace

std::unique_ptr<UsbDevice> PosixUsb::Open(int number) {
  if (number < 0 || number > lastUsbNumber) return nullptr;
  std::vector<std::pair<std::vector<unsigned>, fs::path>> devices;
  std::error_code error;
  for (fs::directory_iterator at(tree_, error), end; !error && at != end; at.increment(error)) {
    std::vector<unsigned> ports = Ports(at->path().filename().string());
    std::error_code missing;
    if (ports.empty() || !fs::exists(at->path() / "idVendor", missing)) continue;
    devices.emplace_back(std::move(ports), at->path());
  }
  if (static_cast<std::size_t>(number) >= devices.size()) return nullptr;
  std::sort(devices.begin(), devices.end());
  return std::make_unique<PosixUsbDevice>(devices[static_cast<std::size_t>(number)].second);
}

}  // namespace set32
