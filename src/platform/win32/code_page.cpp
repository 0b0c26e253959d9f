#include "platform/win32/code_page.h"

#include <algorithm>

#include "platform/utf8.h"
#include "platform/win32/windows_api.h"
#include "set32/windows_host.h"

namespace set32::win32 {

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";
constexpr std::size_t longestText = 0x1000000;

int Length(std::size_t size) {
  return static_cast<int>(std::min(size, longestText));
}

std::wstring ToWide(unsigned page, std::string_view text, DWORD flags = 0) {
  const int size = Length(text.size());
  if (size == 0) return {};
  std::wstring wide(static_cast<std::size_t>(size), L'\0');
  const int units = MultiByteToWideChar(page, flags, text.data(), size, wide.data(), size);
  wide.resize(static_cast<std::size_t>(std::max(units, 0)));
  return wide;
}

std::string FromWide(unsigned page, std::wstring_view text, bool* lost = nullptr) {
  const int units = Length(text.size());
  if (units == 0) return {};
  // UTF-8 knows neither best fits nor a character of its own for what is missing.
  const DWORD flags = page == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
  BOOL usedDefault = FALSE;
  BOOL* used = page == CP_UTF8 ? nullptr : &usedDefault;
  const int size = WideCharToMultiByte(page, flags, text.data(), units, nullptr, 0, nullptr, used);
  std::string bytes(static_cast<std::size_t>(std::max(size, 0)), '\0');
  WideCharToMultiByte(page, flags, text.data(), units, bytes.data(), size, nullptr, used);
  if (lost != nullptr) *lost = size <= 0 || usedDefault != FALSE;
  return bytes;
}

bool IsHighSurrogate(wchar_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowSurrogate(wchar_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

std::size_t UnitsOfCharacter(std::wstring_view text) {
  return text.size() > 1 && IsHighSurrogate(text[0]) && IsLowSurrogate(text[1]) ? 2 : 1;
}

}  // namespace

bool CodePage::Holds(std::string_view utf8) const {
  return HoldsWide(WideFromUtf8(utf8));
}

std::wstring CodePage::Wide(std::string_view text) const {
  return ToWide(number_, text);
}

std::string CodePage::Narrow(std::wstring_view text) const {
  return FromWide(number_, text);
}

bool CodePage::HoldsWide(std::wstring_view text) const {
  bool lost = false;
  FromWide(number_, text, &lost);
  return !lost;
}

std::string CodePage::FromUtf8(std::string_view text) const {
  return number_ == CP_UTF8 ? std::string(text) : Narrow(WideFromUtf8(text));
}

std::string CodePage::ToUtf8(std::string_view text) const {
  if (number_ == CP_UTF8) return utf8::Mend(text);
  std::string result;
  while (!text.empty()) {
    const std::string_view character = text.substr(0, CharacterLength(text));
    const std::wstring wide = ToWide(number_, character, MB_ERR_INVALID_CHARS);
    result += wide.empty() ? std::string(replacement) : Utf8FromWide(wide);
    text.remove_prefix(character.size());
  }
  return result;
}

std::size_t CodePage::CharacterLength(std::string_view text) const {
  if (number_ == CP_UTF8) return utf8::CharacterLength(text);
  if (text.size() < 2 || text[1] == '\0') return std::min<std::size_t>(text.size(), 1);
  return IsDBCSLeadByteEx(number_, static_cast<BYTE>(text[0])) ? 2 : 1;
}

namespace {

CodePage& Chosen() {
  static CodePage page(PanelCodePage());
  return page;
}

}  // namespace

const CodePage& ModuleText() {
  return Chosen();
}

void UseUtf8() {
  Chosen() = CodePage(CP_UTF8);
}

std::wstring WideFromUtf8(std::string_view text) {
  return ToWide(CP_UTF8, text);
}

std::string Utf8FromWide(std::wstring_view text) {
  return FromWide(CP_UTF8, text);
}

int CharactersOfUnits(std::wstring_view text, int units) {
  std::wstring_view rest = text.substr(0, static_cast<std::size_t>(std::max(units, 0)));
  int characters = 0;
  for (; !rest.empty(); ++characters) rest.remove_prefix(UnitsOfCharacter(rest));
  return characters;
}

int UnitsOfCharacters(std::wstring_view text, int characters) {
  std::wstring_view rest = text;
  while (characters-- > 0 && !rest.empty()) rest.remove_prefix(UnitsOfCharacter(rest));
  return static_cast<int>(text.size() - rest.size());
}

}  // namespace set32::win32
