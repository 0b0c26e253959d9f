#include "apps/scan-desk/window/arguments.h"

#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <initializer_list>
#include <span>

#include "platform/win32/handle.h"

namespace scan_desk {

namespace {

inline void FreeWords(wchar_t** words) {
  LocalFree(words);
}

using OwnedWords = set32::win32::Owned<wchar_t**, FreeWords>;

// An option with the words that it may be followed by; the place in the list is what `set` is told.
struct Option {
  const wchar_t* name;
  std::initializer_list<const wchar_t*> words;
  void (*set)(Arguments& arguments, int which);
};

const Option options[] = {
    {L"--face",
     {L"sheet", L"inline"},
     [](Arguments& arguments, int which) { arguments.choices.face = which == 0 ? Face::sheet : Face::inlinePage; }},
    {L"--network",
     {L"usb", L"real"},
     [](Arguments& arguments, int which) {
       arguments.choices.search = which == 0 ? Search::usb : Search::usbAndNetwork;
     }},
    {L"--jpeg", {L"off", L"on"}, [](Arguments& arguments, int which) { arguments.choices.jpegModes = which == 1; }},
    {L"--output-bits",
     {L"36", L"42", L"48"},
     [](Arguments& arguments, int which) { arguments.choices.outputBits = 36 + 6 * which; }},
    {L"--page", {L"0", L"1"}, [](Arguments& arguments, int which) { arguments.page = which; }},
    {L"--tab", {L"0", L"1", L"2"}, [](Arguments& arguments, int which) { arguments.tab = which; }},
};

bool Follow(const std::wstring& name, const std::wstring& word, Arguments& arguments) {
  for (const Option& option : options) {
    if (name != option.name) continue;
    const auto* const found = std::find(option.words.begin(), option.words.end(), word);
    if (found == option.words.end()) return false;
    option.set(arguments, static_cast<int>(found - option.words.begin()));
    return true;
  }
  return false;
}

}  // namespace

const wchar_t usage[] =
    L"scan-desk [OPTION...] [PREVIEW]\n\n"
    L"--face sheet|inline: the panel as a tabbed sheet, or as one page with a dialog\n"
    L"--network usb|real: real lets the panel search this machine's network, where every machine hears it\n"
    L"--jpeg on|off, --output-bits 36|42|48: what the device can do, for the inline face\n"
    L"--page 0|1, --tab 0|1|2: turn to a page of the sheet, and to a tab of its Advanced page\n"
    L"--advanced: open the inline face's dialog\n"
    L"--drag: drag the upper slider of the Advanced page, and say how long a step takes until it is painted\n"
    L"--snapshot FILE.png: write a picture of the window as soon as the panel stands\n"
    L"--once: end then";

std::optional<Arguments> ReadArguments(const wchar_t* commandLine) {
  int count = 0;
  const OwnedWords words(CommandLineToArgvW(commandLine, &count));
  if (!words) return {};
  Arguments arguments;
  const std::span<wchar_t*> values(words.Get(), static_cast<std::size_t>(count));
  for (std::size_t i = 1; i < values.size(); ++i) {
    const std::wstring value = values[i];
    const std::wstring next = i + 1 < values.size() ? values[i + 1] : L"";
    if (value == L"--once") {
      arguments.once = true;
    } else if (value == L"--advanced") {
      arguments.advanced = true;
    } else if (value == L"--drag") {
      arguments.drag = true;
    } else if (value == L"--snapshot" && !next.empty()) {
      arguments.snapshot = values[++i];
    } else if (Follow(value, next, arguments)) {
      ++i;
    } else if (value.starts_with(L"--") || !arguments.picture.empty()) {
      return {};
    } else {
      arguments.picture = value;
    }
  }
  return arguments;
}

}  // namespace scan_desk
