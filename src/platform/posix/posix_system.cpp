#include "platform/posix/posix_system.h"

#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <ctime>

#include "platform/utf8.h"

namespace set32 {

namespace {

struct LocaleLanguage {
  std::string_view locale;
  std::uint16_t id;
};

// A name with a country stands before the bare language, since the first that fits counts.
constexpr LocaleLanguage localeLanguages[] = {
    {"zh_TW", 0x0404}, {"zh_HK", 0x0C04}, {"zh_SG", 0x1004}, {"zh", 0x0804}, {"en_GB", 0x0809}, {"en_AU", 0x0C09},
    {"en_CA", 0x1009}, {"en", 0x0409},    {"cs", 0x0405},    {"da", 0x0406}, {"de", 0x0407},    {"el", 0x0408},
    {"es", 0x0C0A},    {"fi", 0x040B},    {"fr", 0x040C},    {"he", 0x040D}, {"hu", 0x040E},    {"it", 0x0410},
    {"ja", 0x0411},    {"ko", 0x0412},    {"nl", 0x0413},    {"nb", 0x0414}, {"pl", 0x0415},    {"pt_BR", 0x0416},
    {"pt", 0x0816},    {"ru", 0x0419},    {"sv", 0x041D},    {"th", 0x041E}, {"tr", 0x041F},
};

constexpr std::uint16_t englishUnitedStates = 0x0409;

// Whether the name is this one, with nothing or an encoding, a country or a modifier behind it.
bool Names(std::string_view locale, std::string_view name) {
  if (!locale.starts_with(name)) return false;
  return locale.size() == name.size() || std::string_view("_.@").find(locale[name.size()]) != std::string_view::npos;
}

}  // namespace

std::uint16_t LanguageOfLocale(std::string_view locale) {
  for (const LocaleLanguage& language : localeLanguages) {
    if (Names(locale, language.locale)) return language.id;
  }
  return englishUnitedStates;
}

std::uint16_t PosixSystem::DefaultLanguage() {
  for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* const locale = std::getenv(name);
    if (locale != nullptr && locale[0] != '\0') return LanguageOfLocale(locale);
  }
  return englishUnitedStates;
}

std::uint64_t PosixSystem::Milliseconds() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

int PosixSystem::SecondsOfHour() {
  const std::time_t now = std::time(nullptr);
  std::tm local = {};
  localtime_r(&now, &local);
  return local.tm_min * 60 + local.tm_sec;
}

void PosixSystem::Beep() {
  const char bell = '\a';
  if (isatty(STDERR_FILENO) != 0 && write(STDERR_FILENO, &bell, 1) != 1) return;
}

std::string PosixSystem::ToUtf8(std::string_view text) {
  return utf8::Mend(text);
}

std::size_t PosixSystem::CharacterLength(std::string_view text) {
  return utf8::CharacterLength(text);
}

}  // namespace set32
