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

class ForwardingClipboard : public Clipboard {
 public:
  explicit ForwardingClipboard(Clipboard& target) : target_(target) {}
  ClipboardRead Read(std::string& text) override { return target_.Read(text); }
  void Write(std::string_view text) override { target_.Write(text); }

 private:
  Clipboard& target_;
};

}  // namespace set32
