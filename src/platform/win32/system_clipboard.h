// The system's clipboard.
#pragma once

#include "platform/clipboard.h"

namespace set32 {

class SystemClipboard : public Clipboard {
 public:
  ClipboardRead Read(std::string& text) override;
  void Write(std::string_view text) override;
};

}  // namespace set32
