// The least that the system takes for what the panel shows: windows from the same templates, without anything behind
// them.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "bench/windows/painting.h"
#include "platform/win32/dialog_bytes.h"
#include "resources/dialogs.h"
#include "resources/ids.h"

namespace set32 {

enum class Face { sheet, inlinePage };

class BarePanel {
 public:
  void Open(Face face) {
    if (face == Face::inlinePage) {
      general_ = Make(dialog::general, top_.Get());
      ShowWindow(general_, SW_SHOW);
    } else {
      sheet_ = Make(dialog::sheet, top_.Get());
      ShowWindow(sheet_, SW_SHOW);
      SetWindowPos(sheet_, nullptr, 0, 0, 300, 470, SWP_NOZORDER | SWP_NOACTIVATE);
      const HWND tabs = GetDlgItem(sheet_, id_sheet::tabs);
      SetWindowPos(tabs, HWND_BOTTOM, 0, 0, 300, 470, SWP_NOACTIVATE);
      for (int i = 0; i < 2; ++i) {
        wchar_t name[] = L"page";
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = name;
        SendMessageW(tabs, TCM_INSERTITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
      }
      general_ = Make(dialog::general, sheet_);
      advanced_ = Make(dialog::advanced, sheet_);
      for (const HWND page : {general_, advanced_})
        SetWindowPos(page, HWND_TOP, 4, 24, 290, 440, SWP_NOACTIVATE | SWP_HIDEWINDOW);
      ShowWindow(general_, SW_SHOW);
    }
    PaintAll(top_.Get());
  }

  void TurnTo(int page) {
    ShowWindow(page == 0 ? advanced_ : general_, SW_HIDE);
    SendMessageW(GetDlgItem(sheet_, id_sheet::tabs), TCM_SETCURSEL, static_cast<WPARAM>(page), 0);
    ShowWindow(page == 0 ? general_ : advanced_, SW_SHOW);
    PaintAll(top_.Get());
  }

  void ShowAdvancedAnew() {
    ShowWindow(advanced_, SW_HIDE);
    ShowWindow(advanced_, SW_SHOW);
    PaintAll(top_.Get());
  }

  void OpenDialog() {
    dialog_ = Make(dialog::gamma, top_.Get());
    ShowWindow(dialog_, SW_SHOW);
    PaintAll(dialog_);
  }
  void CloseDialog() {
    DestroyWindow(dialog_);
    PaintAll(top_.Get());
  }

  // The list filled anew, and the file behind it written to the disk.
  void Refill(int rows, const std::string& text) {
    const HWND list = GetDlgItem(general_, id::configList);
    SendMessageW(list, LVM_DELETEALLITEMS, 0, 0);
    for (int row = 0; row < rows; ++row) {
      wchar_t name[] = L"a configuration";
      LVITEMW item{};
      item.mask = LVIF_TEXT;
      item.iItem = row;
      item.pszText = name;
      SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    wchar_t fresh[MAX_PATH] = L"";
    wchar_t folder[MAX_PATH] = L"";
    GetTempPathW(MAX_PATH, folder);
    GetTempFileNameW(folder, L"pw", 0, fresh);
    const HANDLE file = CreateFileW(fresh, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    FlushFileBuffers(file);
    CloseHandle(file);
    MoveFileExW(fresh, (std::wstring(folder) + L"panel-waits.ini").c_str(), MOVEFILE_REPLACE_EXISTING);
    PaintAll(top_.Get());
  }

 private:
  static INT_PTR CALLBACK Nothing(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

  static HWND Make(int id, HWND parent) {
    const std::vector<std::uint32_t> bytes = win32::DialogBytes(*FindDialog(id));
    return CreateDialogIndirectParamW(GetModuleHandleW(nullptr), reinterpret_cast<LPCDLGTEMPLATEW>(bytes.data()),
                                      parent, Nothing, 0);
  }

  TopWindow top_;
  HWND sheet_ = nullptr;
  HWND general_ = nullptr;
  HWND advanced_ = nullptr;
  HWND dialog_ = nullptr;
};

}  // namespace set32
