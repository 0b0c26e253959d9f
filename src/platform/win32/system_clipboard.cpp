#include "platform/win32/system_clipboard.h"

#include <algorithm>
#include <cstring>

#include "platform/win32/code_page.h"
#include "platform/win32/windows_api.h"

namespace set32 {

namespace {

// Another program may have it open for a moment.
class OpenClipboardFor {
 public:
  OpenClipboardFor() {
    constexpr int tries = 10;
    constexpr DWORD pause = 5;
    for (int i = 0; i < tries && !open_; ++i) {
      if (i > 0) Sleep(pause);
      open_ = OpenClipboard(nullptr) != FALSE;
    }
  }
  ~OpenClipboardFor() {
    if (open_) CloseClipboard();
  }
  OpenClipboardFor(const OpenClipboardFor&) = delete;
  OpenClipboardFor& operator=(const OpenClipboardFor&) = delete;
  bool IsOpen() const { return open_; }

 private:
  bool open_ = false;
};

}  // namespace

ClipboardRead SystemClipboard::Read(std::string& text) {
  text.clear();
  const OpenClipboardFor clipboard;
  if (!clipboard.IsOpen()) return ClipboardRead::cantOpen;
  const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
  if (memory == nullptr) return ClipboardRead::noText;
  const auto* units = static_cast<const wchar_t*>(GlobalLock(memory));
  if (units == nullptr) return ClipboardRead::noText;
  // The block may lack the terminator that it should have.
  const std::size_t room = GlobalSize(memory) / sizeof(wchar_t);
  text = win32::ModuleText().Narrow({units, static_cast<std::size_t>(std::find(units, units + room, L'\0') - units)});
  GlobalUnlock(memory);
  return ClipboardRead::text;
}

void SystemClipboard::Write(std::string_view text) {
  const std::wstring wide = win32::ModuleText().Wide(text);
  const std::size_t bytes = (wide.size() + 1) * sizeof(wchar_t);
  const OpenClipboardFor clipboard;
  if (!clipboard.IsOpen() || !EmptyClipboard()) return;
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
  if (memory == nullptr) return;
  if (void* units = GlobalLock(memory)) {
    std::memcpy(units, wide.c_str(), bytes);
    GlobalUnlock(memory);
  }
  // The clipboard owns what it took.
  if (SetClipboardData(CF_UNICODETEXT, memory) == nullptr) GlobalFree(memory);
}

}  // namespace set32
