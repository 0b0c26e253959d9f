#include "platform/win32/system_clipboard.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>

#include "platform/win32/code_page.h"
#include "platform/win32/handle.h"

namespace set32 {

namespace {

// Another program may have it open for a moment. Nobody can write without a window that becomes the owner.
class OpenClipboardFor {
 public:
  explicit OpenClipboardFor(HWND owner = nullptr) {
    constexpr int tries = 10;
    constexpr DWORD pause = 5;
    for (int i = 0; i < tries && !open_; ++i) {
      if (i > 0) Sleep(pause);
      open_ = OpenClipboard(owner) != FALSE;
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

struct FreeGlobal {
  void operator()(HGLOBAL memory) const { GlobalFree(memory); }
};
using OwnedGlobal = std::unique_ptr<void, FreeGlobal>;

// Null when there is no memory.
OwnedGlobal InGlobalMemory(const std::wstring& text) {
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  OwnedGlobal memory(GlobalAlloc(GMEM_MOVEABLE, bytes));
  void* units = memory ? GlobalLock(memory.get()) : nullptr;
  if (units == nullptr) return nullptr;
  std::memcpy(units, text.c_str(), bytes);
  GlobalUnlock(memory.get());
  return memory;
}

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

// What the clipboard holds goes only when the new text is ready.
void SystemClipboard::Write(std::string_view text) {
  OwnedGlobal memory = InGlobalMemory(win32::ModuleText().Wide(text));
  const win32::OwnedWindow owner(
      CreateWindowExW(0, L"Static", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr));
  const OpenClipboardFor clipboard(owner.Get());
  if (!memory || !clipboard.IsOpen() || !EmptyClipboard()) return;
  // The clipboard owns what it took.
  if (SetClipboardData(CF_UNICODETEXT, memory.get()) != nullptr) static_cast<void>(memory.release());
}

}  // namespace set32
