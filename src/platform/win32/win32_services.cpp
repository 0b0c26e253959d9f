#include "platform/win32/win32_services.h"

#include <algorithm>
#include <array>

#include "platform/guarded.h"
#include "platform/win32/code_page.h"
#include "platform/win32/handle.h"
#include "platform/win32/module_instance.h"

namespace set32 {

using win32::ModuleText;

namespace {

constexpr DWORD longestPath = 0x8000;  // units that the system knows, with the terminator

// A path in the module's code page. Where that lacks a character of it (another alphabet in a user's name), the path
// that older programs take names the same file.
std::string NarrowPath(const std::wstring& path) {
  if (ModuleText().HoldsWide(path)) return ModuleText().Narrow(path);
  std::wstring shorter(longestPath, L'\0');
  const DWORD units = GetShortPathNameW(path.c_str(), shorter.data(), longestPath);
  if (units == 0 || units >= longestPath) return ModuleText().Narrow(path);
  shorter.resize(units);
  return ModuleText().Narrow(shorter);
}

}  // namespace

std::uint16_t Win32System::DefaultLanguage() {
  return GetSystemDefaultLangID();
}

std::uint64_t Win32System::Milliseconds() {
  return GetTickCount64();
}

int Win32System::SecondsOfHour() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return now.wMinute * 60 + now.wSecond;
}

void Win32System::Beep() {
  MessageBeep(MB_OK);
}

std::string Win32System::FromUtf8(std::string_view text) {
  return ModuleText().FromUtf8(text);
}

std::string Win32System::ToUtf8(std::string_view text) {
  return ModuleText().ToUtf8(text);
}

std::size_t Win32System::CharacterLength(std::string_view text) {
  return ModuleText().CharacterLength(text);
}

std::string Win32Paths::ModuleFile() {
  std::wstring path(longestPath, L'\0');
  path.resize(GetModuleFileNameW(win32::ModuleInstance(), path.data(), longestPath));
  return NarrowPath(path);
}

std::string Win32Paths::TemporaryFolder() {
  std::wstring path(longestPath, L'\0');
  // Of a path that finds no room the result is its length.
  const DWORD units = GetTempPathW(longestPath, path.data());
  if (units == 0 || units >= longestPath) return {};
  path.resize(units);
  return NarrowPath(path);
}

BoxAnswer Win32Boxes::Show(WindowHandle owner, std::string_view text, std::string_view caption, std::uint32_t style) {
  const auto window = reinterpret_cast<HWND>(owner);
  const int pressed = MessageBoxW(::IsWindow(window) ? window : nullptr, ModuleText().Wide(text).c_str(),
                                  ModuleText().Wide(caption).c_str(), style);
  switch (pressed) {
    case IDOK:
      return BoxAnswer::ok;
    case IDYES:
      return BoxAnswer::yes;
    case IDNO:
      return BoxAnswer::no;
    default:
      return (style & MB_TYPEMASK) == box_style::yesNo ? BoxAnswer::no : BoxAnswer::cancel;
  }
}

void Win32Boxes::ShowOnThread(WindowHandle owner, std::string_view text, std::string_view caption,
                              std::uint32_t style) {
  // Without memory for the texts there is no box, and the caller goes on. The thread needs nothing of this object but
  // its operation, which has no state.
  Guarded([&] {
    threads_.Start(ThreadPriority::normal, [owner, style, text = std::string(text), caption = std::string(caption)] {
      const auto window = reinterpret_cast<HWND>(owner);
      MessageBoxW(::IsWindow(window) ? window : nullptr, ModuleText().Wide(text).c_str(),
                  ModuleText().Wide(caption).c_str(), style);
    });
  });
}

namespace {

class Win32RegistryKey : public RegistryKey {
 public:
  explicit Win32RegistryKey(HKEY root) : key_(root) {}
  explicit Win32RegistryKey(win32::OwnedKey key) : owned_(std::move(key)), key_(owned_.Get()) {}

  std::uint32_t ReadString(std::string_view name, std::size_t maxBytes, std::string& value) override {
    value.clear();
    const std::wstring wide = ModuleText().Wide(name);
    DWORD type = 0, bytes = 0;
    LSTATUS status = RegQueryValueExW(key_, wide.c_str(), nullptr, &type, nullptr, &bytes);
    if (status != ERROR_SUCCESS) return static_cast<std::uint32_t>(status);
    if (type != REG_SZ && type != REG_EXPAND_SZ) return ERROR_INVALID_DATA;
    constexpr DWORD largest = 0x10000;
    if (bytes > largest) return ERROR_MORE_DATA;
    std::wstring text(bytes / sizeof(wchar_t) + 1, L'\0');
    bytes = static_cast<DWORD>(text.size()) * DWORD{sizeof(wchar_t)};
    status = RegQueryValueExW(key_, wide.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &bytes);
    if (status != ERROR_SUCCESS) return static_cast<std::uint32_t>(status);
    text.resize(bytes / sizeof(wchar_t));
    text.resize(std::min(text.find(L'\0'), text.size()));  // the terminator may be stored, or missing
    value = ModuleText().Narrow(text).substr(0, maxBytes);
    return registry_result::success;
  }

  std::uint32_t SubKeyName(std::uint32_t index, std::string& name) override {
    std::array<wchar_t, 256> text{};
    auto units = static_cast<DWORD>(text.size());
    const LSTATUS status = RegEnumKeyExW(key_, index, text.data(), &units, nullptr, nullptr, nullptr, nullptr);
    name = status == ERROR_SUCCESS ? ModuleText().Narrow({text.data(), units}) : std::string();
    return static_cast<std::uint32_t>(status);
  }

  std::unique_ptr<RegistryKey> Open(std::string_view path, RegistryAccess access, std::uint32_t& result) override {
    const REGSAM rights = access == RegistryAccess::read ? KEY_READ : KEY_READ | DELETE;
    HKEY key = nullptr;
    result = static_cast<std::uint32_t>(RegOpenKeyExW(key_, ModuleText().Wide(path).c_str(), 0, rights, &key));
    if (result != registry_result::success) return nullptr;
    return std::make_unique<Win32RegistryKey>(win32::OwnedKey(key));
  }

  std::uint32_t DeleteSubKey(std::string_view path) override {
    return static_cast<std::uint32_t>(RegDeleteKeyW(key_, ModuleText().Wide(path).c_str()));
  }

 private:
  win32::OwnedKey owned_;
  HKEY key_;
};

}  // namespace

std::unique_ptr<RegistryKey> Win32Registry::CurrentUser() {
  return std::make_unique<Win32RegistryKey>(HKEY_CURRENT_USER);
}

}  // namespace set32
