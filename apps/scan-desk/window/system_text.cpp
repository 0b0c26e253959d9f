#include "apps/scan-desk/window/system_text.h"

#include <iterator>

namespace scan_desk {

std::wstring ErrorText(DWORD error) {
  wchar_t text[512];
  const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                                      text, static_cast<DWORD>(std::size(text)), nullptr);
  std::wstring sentence(text, length);
  while (!sentence.empty() && (sentence.back() == L'\n' || sentence.back() == L'\r')) sentence.pop_back();
  return sentence.empty() ? L"Error " + std::to_wstring(error) + L"." : sentence;
}

std::wstring WideText(const char* bytes) {
  if (bytes == nullptr) return {};
  for (const UINT page : {UINT{CP_UTF8}, UINT{CP_ACP}}) {
    const int size = MultiByteToWideChar(page, page == CP_UTF8 ? MB_ERR_INVALID_CHARS : 0, bytes, -1, nullptr, 0);
    if (size <= 0) continue;
    std::wstring text(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(page, 0, bytes, -1, text.data(), size);
    text.pop_back();  // the zero
    return text;
  }
  return {};
}

}  // namespace scan_desk
