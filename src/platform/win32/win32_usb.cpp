#include "platform/win32/win32_usb.h"

#include <memory>
#include <string>

#include "platform/win32/handle.h"

namespace set32 {

namespace {

constexpr DWORD getDeviceDescriptor = 0x80002018;
constexpr DWORD patience = 1000;  // milliseconds that a device has to answer

struct DeviceDescriptor {
  std::uint16_t vendor;
  std::uint16_t product;
  std::uint16_t revision;
  std::uint16_t language;
};
static_assert(sizeof(DeviceDescriptor) == 8);

class Win32UsbDevice : public UsbDevice {
 public:
  explicit Win32UsbDevice(win32::OwnedHandle handle) : handle_(std::move(handle)) {}

  // The driver answers in its own time, and only so can a device that hangs be given up.
  std::optional<UsbIdentity> Identity() override {
    auto question = std::make_unique<Question>();
    if (!question->done) return {};
    DeviceDescriptor& descriptor = question->descriptor;
    DWORD stored = 0;
    const BOOL atOnce = DeviceIoControl(handle_.Get(), getDeviceDescriptor, &descriptor, sizeof descriptor,
                                        &descriptor, sizeof descriptor, &stored, &question->request);
    if (!atOnce) {
      if (GetLastError() != ERROR_IO_PENDING) return {};
      if (!question->Ends()) CancelIo(handle_.Get());
      if (!question->Ends()) {
        static_cast<void>(question.release());  // left to the driver, which may still write into it
        return {};
      }
    }
    if (!GetOverlappedResult(handle_.Get(), &question->request, &stored, FALSE) || stored < sizeof(UsbIdentity))
      return {};
    return UsbIdentity{descriptor.vendor, descriptor.product};
  }

 private:
  struct Question {
    Question() { request.hEvent = done.Get(); }
    bool Ends() const { return WaitForSingleObject(done.Get(), patience) == WAIT_OBJECT_0; }

    DeviceDescriptor descriptor{};
    OVERLAPPED request{};
    win32::OwnedHandle done{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
  };

  win32::OwnedHandle handle_;
};

}  // namespace

std::unique_ptr<UsbDevice> Win32UsbDevices::Open(int number) {
  if (number < 0 || number > lastUsbNumber) return nullptr;
  const std::wstring name = L"\\\\.\\usbscan" + std::to_wstring(number);
  win32::OwnedHandle handle =
      win32::OwnedFile(CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                   nullptr, OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr));
  if (!handle) return nullptr;
  return std::make_unique<Win32UsbDevice>(std::move(handle));
}

}  // namespace set32
