// A file that a bitmap is read from, as the picture's reader wants it.
#pragma once

#include <windows.h>

#include <string>

#include "adjust/dib/dib_file.h"
#include "platform/win32/handle.h"

namespace scan_desk {

class FileOnDisk final : public set32::DibFile {
 public:
  // Opens for reading. Error() tells whether that went well, and Read throws when it didn't.
  explicit FileOnDisk(const std::wstring& path);

  DWORD Error() const { return error_; }

  std::size_t Read(std::span<std::uint8_t> into) override;
  void Write(std::span<const std::uint8_t>) override { throw Failure{}; }
  std::uint64_t Remaining() override { return remaining_; }

 private:
  set32::win32::OwnedHandle file_;
  DWORD error_ = ERROR_SUCCESS;
  std::uint64_t remaining_ = 0;
};

}  // namespace scan_desk
