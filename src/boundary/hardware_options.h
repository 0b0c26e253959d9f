// The hardware options, beside the module: what each key means, read anew at each call. A missing file, section or
// key reads as its default. The calls and the system must outlive the object. Any thread.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "boundary/option_file.h"
#include "platform/geometry.h"

namespace set32 {

class HardwareOptions {
 public:
  HardwareOptions(ProfileCalls& calls, System& system, std::string path) : file_(calls, system, std::move(path)) {}

  // Whether the advanced dialog shows its check box for high-bit output.
  bool HighBitControlShown() const { return file_.Read(hardware_key::highBitControl) != 0; }
  // Upper left corner of the advanced dialog at its last close; nothing where no two numbers are stored.
  std::optional<Point> DialogPlace() const;
  bool WriteDialogPlace(const Rect& place) const;

 private:
  OptionFile file_;
};

}  // namespace set32
