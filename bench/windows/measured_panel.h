// The panel as a person has it: set32.dll in a folder of its own, opened in a host's window, each act to the last
// pixel.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "bench/windows/bare_panel.h"
#include "bench/windows/painting.h"
#include "platform/profile_engine.h"
#include "platform/win32/win32_files.h"
#include "profile/config_items.h"
#include "profile/config_store.h"
#include "set32/new_settings.h"
#include "set32/ui_fix_setting.h"
#include "tests/support/scratch_folder.h"

namespace set32 {

inline void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "panel-waits: %s\n", what);
  std::exit(1);
}

class MeasuredPanel {
 public:
  MeasuredPanel(int driverType, Face face) : face_(face) {
    folder_.Write("QUIRNMFP.ini", "[RunTime]\r\nDriverType=" + std::to_string(driverType) + "\r\n");
    folder_.Write("QUIRNHTp.INI", std::string("[Option]\r\nUIFace=") + (face == Face::sheet ? "1" : "0") + "\r\n");
    wchar_t program[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::wstring beside(program);
    beside.resize(beside.find_last_of(L'\\') + 1);
    const std::string copy = folder_.Path("set32.dll");
    const std::wstring path(copy.begin(), copy.end());
    Require(CopyFileW((beside + L"set32.dll").c_str(), path.c_str(), FALSE), "no set32.dll beside the program");
    GetEnvironmentVariableW(L"TMP", temp_, MAX_PATH);
    SetEnvironmentVariableW(L"TMP", path.substr(0, path.find_last_of(L"\\/")).c_str());
    library_ = LoadLibraryW(path.c_str());
    const FARPROC found = library_ == nullptr ? nullptr : GetProcAddress(library_, "uiFixSetting");
    Require(found != nullptr, "set32.dll can't be loaded");
    std::memcpy(&fixSetting_, &found, sizeof fixSetting_);
  }
  ~MeasuredPanel() {
    if (face_ == Face::inlinePage) SendMessageW(page_, WM_CLOSE, 0, 0);
    top_.reset();
    FreeLibrary(library_);
    SetEnvironmentVariableW(L"TMP", temp_);
  }
  MeasuredPanel(const MeasuredPanel&) = delete;
  MeasuredPanel& operator=(const MeasuredPanel&) = delete;

  void Open() {
    constexpr PanelRect place{0, 0, 300, 470};
    const DeviceLimits limits{7, 0x7FFE, 4800, 75};
    const auto window = reinterpret_cast<WindowHandle>(top_->Get());
    page_ = reinterpret_cast<HWND>(
        fixSetting_(window, window, &limits, &settings_, nullptr, 1, 0, 128, 36, &place, nullptr));
    Require(page_ != nullptr, "the panel can't be opened");
    PaintAll(top_->Get());
  }

  // A page of the sheet, by a click on its tab.
  void TurnTo(int page) {
    ClickTab(GetDlgItem(GetParent(page_), id_sheet::tabs), page);
    PaintAll(top_->Get());
  }
  void TurnAdvancedTo(int tab) {
    ClickTab(GetDlgItem(AdvancedPage(), id148::viewTabs), tab);
    PaintAll(top_->Get());
  }

  void OpenDialog() {
    SendMessageW(GetDlgItem(page_, id::advancedButton), BM_CLICK, 0, 0);
    Pump();
    dialog_ = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeDialog, reinterpret_cast<LPARAM>(&dialog_));
    Require(dialog_ != nullptr, "the advanced dialog doesn't open");
    PaintAll(dialog_);
  }
  void CloseDialog() {
    SendMessageW(dialog_, WM_CLOSE, 0, 0);
    PaintAll(top_->Get());
  }

  // As many rows as the list takes, the last one in force.
  void FillRows(int rows) {
    Win32Files files;
    ProfileEngine engine(files);
    const std::string path = folder_.Path("QUIRNPrf.ini");
    ScanConfigItem item{};
    item.settings = settings_;
    item.editable = item.deletable = 1;
    const HWND list = GetDlgItem(page_, id::configList);
    for (int row = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0)); row < rows; ++row)
      Require(StoreConfigItem(engine, path, "row " + std::to_string(row), item) == Stored::written,
              "no room for rows");
    PickResolution(2);
    Require(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0) == rows, "the rows aren't shown");
  }
  void PickResolution(int entry) {
    const HWND combo = GetDlgItem(page_, id::resolutionCombo);
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
    SendMessageW(page_, WM_COMMAND, MAKEWPARAM(id::resolutionCombo, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo));
    PaintAll(top_->Get());
  }
  std::string Profile() const { return folder_.Read("QUIRNPrf.ini"); }

 private:
  static BOOL CALLBACK TakeDialog(HWND window, LPARAM found) {
    if (GetDlgItem(window, id103::brightnessEdit) == nullptr) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
  }

  static void ClickTab(HWND tabs, int index) {
    RECT place{};
    SendMessageW(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&place));
    const LPARAM at = MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    SendMessageW(tabs, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(tabs, WM_LBUTTONUP, 0, at);
    Require(SendMessageW(tabs, TCM_GETCURSEL, 0, 0) == index, "a tab can't be chosen");
  }
  HWND AdvancedPage() const {
    for (HWND page = GetWindow(GetParent(page_), GW_CHILD); page != nullptr; page = GetWindow(page, GW_HWNDNEXT)) {
      if (GetDlgItem(page, id148::viewTabs) != nullptr) return page;
    }
    return nullptr;
  }

  Face face_;
  wchar_t temp_[MAX_PATH] = L"";
  ScratchFolder folder_;
  HMODULE library_ = nullptr;
  UiFixSettingFunction fixSetting_ = nullptr;
  std::unique_ptr<TopWindow> top_ = std::make_unique<TopWindow>();
  ScanSettings settings_ = NewSettings();
  HWND page_ = nullptr;
  HWND dialog_ = nullptr;
};

}  // namespace set32
