#include "apps/scan-desk/window/installation.h"

#include <windows.h>

#include "apps/scan-desk/window/system_text.h"
#include "platform/win32/module_instance.h"

namespace scan_desk {

namespace {

constexpr wchar_t optionsName[] = L"options.ini", profileName[] = L"profile.ini", listName[] = L"scanners.dat";
constexpr wchar_t tempVariable[] = L"TMP";  // the first that the system looks at for its temporary folder

// Writes one key and looks whether it can be read there.
bool LayKey(const std::wstring& file, const wchar_t* section, const wchar_t* key, const std::wstring& value,
            std::wstring& trouble) {
  WritePrivateProfileStringW(section, key, value.c_str(), file.c_str());
  const DWORD error = GetLastError();
  WritePrivateProfileStringW(nullptr, nullptr, nullptr, file.c_str());  // out of the system's memory, onto the disk
  wchar_t read[MAX_PATH] = L"";
  GetPrivateProfileStringW(section, key, L"\n", read, MAX_PATH, file.c_str());
  if (read == value) return true;
  trouble = file + L" can't be written: " + ErrorText(error);
  return false;
}

bool LayKey(const std::wstring& file, const wchar_t* section, const wchar_t* key, int value, std::wstring& trouble) {
  return LayKey(file, section, key, std::to_wstring(value), trouble);
}

std::wstring TempFolder() {
  wchar_t path[MAX_PATH + 1] = L"";
  GetTempPathW(MAX_PATH, path);
  return path;
}

}  // namespace

std::wstring ProgramFolder() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(set32::win32::ModuleInstance(), path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.find_last_of(L'\\') + 1);
}

Installation::Installation(const std::wstring& library, const std::wstring& prefix)
    : moduleProfile_(library.substr(0, library.find_last_of(L"\\/") + 1) + L"QUIRNMFP.ini"),
      prefix_(prefix),
      temp_(TempFolder()) {
  if (!prefix_.empty()) {
    options_ = temp_ + prefix_ + optionsName;
    return;
  }
  const std::wstring own = temp_ + L"scan-desk";
  CreateDirectoryW(own.c_str(), nullptr);
  SetEnvironmentVariableW(tempVariable, own.c_str());
  wchar_t name[MAX_PATH] = L"";
  GetPrivateProfileStringW(L"INIFiles", L"QUIRNHTEMP_INI", L"QUIRNHTp.INI", name, MAX_PATH, moduleProfile_.c_str());
  options_ = own + L"\\" + name;
}

Installation::~Installation() {
  if (prefix_.empty()) SetEnvironmentVariableW(tempVariable, temp_.c_str());
}

// The options are those of a device whose paper source a person chooses.
bool Installation::Lay(const PanelChoices& choices, std::wstring& trouble) const {
  constexpr int usb = 1, network = 2;
  const int searched = choices.search == Search::usb ? usb : usb | network;
  if (!prefix_.empty() &&
      !(LayKey(moduleProfile_, L"INIFiles", L"QUIRNHTEMP_INI", prefix_ + optionsName, trouble) &&
        LayKey(moduleProfile_, L"INIFiles", L"QUIRNMFP_PROFILE", prefix_ + profileName, trouble) &&
        LayKey(moduleProfile_, L"INIFiles", L"QUIRNSCANNERLIST", prefix_ + listName, trouble)))
    return false;
  return LayKey(moduleProfile_, L"RunTime", L"DriverType", searched, trouble) &&
         LayKey(options_, L"OPTION", L"UIFace", choices.face == Face::inlinePage ? 0 : 1, trouble) &&
         LayKey(options_, L"OPTION", L"LLDriverInterface", 1, trouble) &&
         LayKey(options_, L"OPTION", L"EnablePaperSource", 1, trouble) &&
         LayKey(options_, L"OPTION", L"AppName", 1, trouble) &&
         LayKey(options_, L"OPTION", L"Enable36BitApps", choices.highBits ? 1 : 0, trouble);
}

}  // namespace scan_desk
