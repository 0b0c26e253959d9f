// A POSIX system's own facts. Its text is UTF-8. Any thread.
#pragma once

#include "platform/system.h"

namespace set32 {

// Language id of a locale's name such as "zh_TW.UTF-8"; English of the United States where it isn't known.
std::uint16_t LanguageOfLocale(std::string_view locale);

class PosixSystem : public System {
 public:
  // From LC_ALL, LC_MESSAGES and LANG, the first that is set.
  std::uint16_t DefaultLanguage() override;
  std::uint64_t Milliseconds() override;
  // Local time.
  int SecondsOfHour() override;
  // Heard where standard error is a terminal.
  void Beep() override;
  std::string FromUtf8(std::string_view text) override { return std::string(text); }
  std::string ToUtf8(std::string_view text) override;
  std::size_t CharacterLength(std::string_view text) override;
};

}  // namespace set32
