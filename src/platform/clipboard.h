// Plain text of the clipboard, in the module's code page. Host's thread only.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace set32 {

enum class ClipboardRead { text, noText, cantOpen };

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual ClipboardRead Read(std::string& text) = 0;
  virtual void Write(std::string_view text) = 0;
};

}  // namespace set32
