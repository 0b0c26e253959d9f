// Numbering of the system's USB devices.
#include "platform/posix/posix_usb.h"

#include <gmock/gmock.h>

#include "tests/support/scratch_folder.h"

namespace set32 {
namespace {

using testing::ElementsAre;

TEST(PosixUsbTree, NumbersDevicesByBusAndPorts) {
  const ScratchFolder tree;
  const auto place = [&](const std::string& name, const char* vendor, const char* product) {
    std::filesystem::create_directory(tree.Path(name));
    if (vendor != nullptr) tree.Write(name + "/idVendor", vendor);
    tree.Write(name + "/idProduct", product);
  };
  place("usb1", "1d6b\n", "0002\n");
  place("1-1:1.0", "dead\n", "beef\n");
  place("2-1", "0003\n", "000d\n");
  place("1-10", "0002\n", "000c\n");
  place("1-2.10", "0001\n", "000b\n");
  place("1-2", "0c5a\n", "0e72\n");
  place("1-2.9", "00zz\n", "0001\n");
  place("1-3", nullptr, "0001\n");
  place("1-", "0001\n", "0001\n");
  place("1.2", "0001\n", "0001\n");
  PosixUsb usb(tree.Path(""));
  const auto identity = [&](int number) -> std::string {
    const std::unique_ptr<UsbDevice> device = usb.Open(number);
    if (!device) return "none";
    const std::optional<UsbIdentity> found = device->Identity();
    return found ? std::to_string(found->vendor) + ':' + std::to_string(found->product) : "silent";
  };
  EXPECT_THAT(
      (std::vector{identity(-1), identity(0), identity(1), identity(2), identity(3), identity(4), identity(5)}),
      ElementsAre("none", "3162:3698", "silent", "1:11", "2:12", "3:13", "none"));
  EXPECT_EQ(PosixUsb(tree.Path("nothing")).Open(0), nullptr);
}

}  // namespace
}  // namespace set32
