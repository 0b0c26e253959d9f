// A clipboard in memory that can be made to fail.
#pragma once

#include "platform/clipboard.h"

namespace set32 {

class HeadlessClipboard : public Clipboard {
 public:
  ClipboardRead Read(std::string& text) override {
    text.clear();
    if (locked_) return ClipboardRead::cantOpen;
    if (!text_) return ClipboardRead::noText;
    text = *text_;
    return ClipboardRead::text;
  }
  void Write(std::string_view text) override {
    if (!locked_) text_ = std::string(text);
  }

  // Something that isn't text lies there.
  void HoldNoText() { text_.reset(); }
  // Another program has it open.
  void SetLocked(bool locked) { locked_ = locked; }

 private:
  std::optional<std::string> text_;
  bool locked_ = false;
};

}  // namespace set32
