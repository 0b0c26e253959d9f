#include "apps/scan-desk/window/file_on_disk.h"

#include <algorithm>

namespace scan_desk {

FileOnDisk::FileOnDisk(const std::wstring& path)
    : file_(set32::win32::OwnedFile(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                                FILE_FLAG_SEQUENTIAL_SCAN, nullptr))) {
  LARGE_INTEGER size{};
  if (!file_ || !GetFileSizeEx(file_.Get(), &size)) error_ = GetLastError();
  remaining_ = static_cast<std::uint64_t>(size.QuadPart);
}

std::size_t FileOnDisk::Read(std::span<std::uint8_t> into) {
  constexpr std::size_t largestStep = 1U << 20;
  if (error_ != ERROR_SUCCESS) throw Failure{};
  std::size_t done = 0;
  while (done < into.size()) {
    DWORD moved = 0;
    const auto wanted = static_cast<DWORD>(std::min(into.size() - done, largestStep));
    if (!ReadFile(file_.Get(), into.data() + done, wanted, &moved, nullptr)) {
      error_ = GetLastError();
      throw Failure{};
    }
    if (moved == 0) break;
    done += moved;
  }
  remaining_ -= std::min<std::uint64_t>(remaining_, done);
  return done;
}

}  // namespace scan_desk
