#include "apps/scan-desk/window/arguments.h"

#include <windows.h>

#include <shellapi.h>

#include <span>

#include "platform/win32/handle.h"

namespace scan_desk {

namespace {

inline void FreeWords(wchar_t** words) {
  LocalFree(words);
}

using OwnedWords = set32::win32::Owned<wchar_t**, FreeWords>;

}  // namespace

const wchar_t usage[] =
    L"scan-desk [--page N] [--network usb|real] [--snapshot FILE.png] [--once] [PREVIEW]\n\n"
    L"--network real lets the panel search this machine's network, where every machine hears it; else it searches on "
    L"USB alone. "
    L"--snapshot writes a picture of the window as soon as the panel stands, turned to page N of its sheet, 0 or 1; "
    L"--once ends then.";

std::optional<Arguments> ReadArguments(const wchar_t* commandLine) {
  int count = 0;
  const OwnedWords words(CommandLineToArgvW(commandLine, &count));
  if (!words) return {};
  Arguments arguments;
  const std::span<wchar_t*> values(words.Get(), static_cast<std::size_t>(count));
  for (std::size_t i = 1; i < values.size(); ++i) {
    const std::wstring value = values[i];
    const bool isFollowed = i + 1 < values.size();
    if (value == L"--snapshot" && isFollowed) {
      arguments.snapshot = values[++i];
    } else if (value == L"--page" && isFollowed) {
      const std::wstring page = values[++i];
      if (page != L"0" && page != L"1") return {};
      arguments.page = page == L"1" ? 1 : 0;
    } else if (value == L"--network" && isFollowed) {
      const std::wstring network = values[++i];
      if (network != L"usb" && network != L"real") return {};
      arguments.search = network == L"real" ? Search::usbAndNetwork : Search::usb;
    } else if (value == L"--once") {
      arguments.once = true;
    } else if (value.starts_with(L"--") || !arguments.picture.empty()) {
      return {};
    } else {
      arguments.picture = value;
    }
  }
  return arguments;
}

}  // namespace scan_desk
