// CAdvanceMainSheet: the tabbed frame of the sheet face, a child of the host's window that holds the two pages. The
// General page is the first, the Advanced page the second; a page's window comes into being when it is first
// activated. Host's thread only.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "adjust/response_page.h"
#include "boundary/module_state.h"
#include "panel/sheet/setting_box_page.h"
#include "platform/windows.h"
#include "resources/ids.h"
#include "set32/host_records.h"

namespace set32 {

class CAdvanceMainSheet : public DialogHandler {
 public:
  static constexpr int pageCount = 2;

  // The caption is never seen: the sheet is a child.
  CAdvanceMainSheet(ModuleState& state, std::string caption, int startPage);
  ~CAdvanceMainSheet() override;
  CAdvanceMainSheet(const CAdvanceMainSheet&) = delete;
  CAdvanceMainSheet& operator=(const CAdvanceMainSheet&) = delete;

  CSettingBoxPage& GeneralPage() { return *generalPage_; }

  // Makes the sheet's window and the start page's inside it, which runs that page's whole start. False when there is
  // no window to be had; one that ended during the start was had.
  bool Create(WindowHandle parent);
  // Without a word to the pages, which are over.
  void DropWindows();
  bool HasWindow() const { return sheet_ != nullptr && sheet_->IsAlive(); }
  void Show();
  // In the parent's client coordinates.
  void Move(const Rect& place);
  // Widens the sheet a little and lets the tab bar fill it; the pages take what the tabs leave.
  void FitSheet();
  // Turns to a page; nothing happens when it is in front already.
  void Activate(int page);
  int ActivePage() const { return active_; }

  void OnInit(Dialog& dialog) override;
  void OnEvent(const Event& event) override;
  void OnOk() override {}  // Enter and Escape have no effect on the sheet
  void OnCancel() override {}

 private:
  struct Page {
    int templateId;
    DialogHandler* handler;
    std::unique_ptr<Dialog> window = {};
    bool isComing = false;  // its window is being made
  };

  TabBar& Tabs() const { return sheet_->Get<TabBar>(id_sheet::tabs); }
  Dialog* EnsureWindow(int page);
  Rect PageArea() const;
  void FitPages();
  void LeaveFront();

  ModuleState& state_;
  std::string caption_;
  int active_;
  // Each window goes before its handler.
  std::unique_ptr<CResponsePage> advancedPage_;
  std::unique_ptr<CSettingBoxPage> generalPage_;
  std::unique_ptr<Dialog> sheet_;
  std::array<Page, pageCount> pages_;
};

}  // namespace set32
