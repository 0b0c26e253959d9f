#include "apps/scan-desk/window/arguments.h"

#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <span>

#include "apps/scan-desk/window/system_text.h"
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

struct Flag {
  const wchar_t* name;
  bool Arguments::*set;
};

constexpr Flag flags[] = {{L"--advanced", &Arguments::advanced},
                          {L"--drag", &Arguments::drag},
                          {L"--once", &Arguments::once},
                          {L"--help", &Arguments::help}};

template <typename Row, std::size_t count>
const Row* Find(const Row (&rows)[count], const std::wstring& name) {
  const auto* const found = std::ranges::find_if(rows, [&](const Row& row) { return name == row.name; });
  return found == std::end(rows) ? nullptr : found;
}

std::wstring Listed(const Option& option) {
  std::wstring list;
  for (const wchar_t* word : option.words) list += (list.empty() ? L" " : L" or ") + std::wstring(word);
  return list;
}

class Reader {
 public:
  Reader(std::span<wchar_t*> words, std::wstring& trouble) : words_(words), trouble_(trouble) {}

  std::optional<Arguments> Read() {
    while (at_ < words_.size()) {
      if (!Take(words_[at_++])) return {};
    }
    return arguments_;
  }

 private:
  bool Take(const std::wstring& word) {
    if (const Flag* flag = Find(flags, word)) {
      arguments_.*flag->set = true;
      return true;
    }
    if (const Option* option = Find(options, word)) return Follow(*option);
    if (word == L"--snapshot") return TakeSnapshot();
    if (word.starts_with(L"-")) return Refuse(L"There is no option " + word + L".");
    if (!arguments_.picture.empty()) return Refuse(L"One preview is shown, not " + word + L" too.");
    arguments_.picture = word;
    return true;
  }

  bool Follow(const Option& option) {
    const std::wstring word = Next();
    const auto* const found = std::ranges::find(option.words, word);
    if (found == option.words.end())
      return Refuse(option.name + std::wstring(L" is followed by") + Listed(option) + L".");
    option.set(arguments_, static_cast<int>(found - option.words.begin()));
    return true;
  }

  bool TakeSnapshot() {
    arguments_.snapshot = Next();
    return !arguments_.snapshot.empty() || Refuse(L"--snapshot is followed by a file.");
  }

  std::wstring Next() { return at_ < words_.size() ? words_[at_++] : L""; }
  bool Refuse(const std::wstring& trouble) {
    trouble_ = trouble;
    return false;
  }

  std::span<wchar_t*> words_;
  std::size_t at_ = 1;
  std::wstring& trouble_;
  Arguments arguments_;
};

}  // namespace

const wchar_t usage[] =
    L"usage: scan-desk [OPTION...] [PREVIEW]\n\n"
    L"--face sheet|inline: the panel as a tabbed sheet, or as one page with a dialog\n"
    L"--network usb|real: real lets the panel search this machine's network, where every machine hears it\n"
    L"--jpeg on|off, --output-bits 36|42|48: what the device can do, for the inline face\n"
    L"--page 0|1, --tab 0|1|2: turn to a page of the sheet, and to a tab of its Advanced page\n"
    L"--advanced: open the inline face's dialog\n"
    L"--drag: drag the upper slider of the Advanced page, and say how long a step takes until it is painted\n"
    L"--snapshot FILE.png: write a picture of the window as soon as the panel stands\n"
    L"--once: end then\n"
    L"--help: say this";

std::optional<Arguments> ReadArguments(const wchar_t* commandLine, std::wstring& trouble) {
  int count = 0;
  const OwnedWords words(CommandLineToArgvW(commandLine, &count));
  if (!words) {
    trouble = ErrorText(GetLastError());
    return {};
  }
  return Reader({words.Get(), static_cast<std::size_t>(count)}, trouble).Read();
}

}  // namespace scan_desk
