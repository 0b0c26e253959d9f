#include "apps/scan-desk/window/panel_library.h"

#include <cstring>

#include "apps/scan-desk/window/system_text.h"

namespace scan_desk {

namespace {

// A function by its name, as the type that its header tells; null when the library has none.
template <typename Function>
Function Find(HMODULE library, const char* name) {
  Function function = nullptr;
  const FARPROC found = GetProcAddress(library, name);
  static_assert(sizeof function == sizeof found);
  std::memcpy(&function, &found, sizeof function);
  return function;
}

}  // namespace

bool PanelLibrary::Load(const std::wstring& file, std::wstring& trouble) {
  if (IsLoaded()) return true;
  wasHeld_ = GetModuleHandleW(file.c_str()) != nullptr;
  set32::win32::OwnedModule library(LoadLibraryW(file.c_str()));
  if (!library) {
    trouble = file + L" can't be loaded: " + ErrorText(GetLastError());
    return false;
  }
  fixSetting_ = Find<set32::UiFixSettingFunction>(library.Get(), "uiFixSetting");
  if (fixSetting_ == nullptr) {
    trouble = file + L" holds no panel.";
    return false;
  }
  library_ = std::move(library);
  return true;
}

void PanelLibrary::Unload() {
  fixSetting_ = nullptr;
  library_.Reset();
}

}  // namespace scan_desk
