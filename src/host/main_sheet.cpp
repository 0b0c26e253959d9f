#include "host/main_sheet.h"

#include <utility>

#include "platform/guarded.h"
#include "resources/dialogs.h"
#include "resources/ids.h"

namespace set32 {

CAdvanceMainSheet::CAdvanceMainSheet(ModuleState& state, std::string caption, int startPage)
    : state_(state),
      caption_(std::move(caption)),
      active_(startPage),
      advancedPage_(std::make_unique<CResponsePage>(state)),
      generalPage_(std::make_unique<CSettingBoxPage>(state, *advancedPage_)),
      pages_{{{dialog::general, generalPage_.get()}, {dialog::advanced, advancedPage_.get()}}} {
  advancedPage_->SetPanel(*generalPage_);
}

CAdvanceMainSheet::~CAdvanceMainSheet() {
  DropWindows();
}

void CAdvanceMainSheet::DropWindows() {
  generalPage_->Detach();
  for (Page& page : pages_) page.window.reset();
  sheet_.reset();
}

bool CAdvanceMainSheet::Create(WindowHandle parent) {
  sheet_ = state_.platform.windows.Create(*FindDialog(dialog::sheet), parent, *this);
  if (sheet_ == nullptr) return false;
  sheet_->SetTitle(caption_);
  EnsureWindow(active_);
  return true;
}

// A tab a page, named by the page's own caption.
void CAdvanceMainSheet::OnInit(Dialog& dialog) {
  TabBar& tabs = dialog.Get<TabBar>(id_sheet::tabs);
  for (const Page& page : pages_) {
    tabs.Add(state_.platform.system.FromUtf8(FindDialog(page.templateId)->caption), -1);
  }
  tabs.SetCurrent(active_);
}

// None where the page is still coming: its start can be in the middle of a message, and somebody turns to it there.
Dialog* CAdvanceMainSheet::EnsureWindow(int page) {
  Page& wanted = pages_[static_cast<std::size_t>(page)];
  if (wanted.window == nullptr && !wanted.isComing && HasWindow()) {
    const Hold coming(wanted.isComing, true);
    wanted.window = state_.platform.windows.Create(*FindDialog(wanted.templateId), sheet_->Handle(), *wanted.handler);
  }
  return wanted.window.get();
}

void CAdvanceMainSheet::Show() {
  if (HasWindow()) sheet_->SetVisible(true);
}

void CAdvanceMainSheet::Move(const Rect& place) {
  if (HasWindow()) sheet_->Move(place);
}

void CAdvanceMainSheet::FitSheet() {
  constexpr int widening = 5;  // pixels
  if (!HasWindow()) return;
  Rect place = sheet_->Place();
  place.right += widening;
  sheet_->Move(place);
  Tabs().Move({0, 0, place.Width(), place.Height()});
  FitPages();
}

// What the tabs leave; all of the sheet where there is no tab bar to be had.
Rect CAdvanceMainSheet::PageArea() const {
  if (!Tabs().Exists()) {
    const Size client = sheet_->ClientSize();
    return {0, 0, client.width, client.height};
  }
  const Rect bar = Tabs().Place();
  const Rect area = Tabs().DisplayArea();
  return {area.left + bar.left, area.top + bar.top, area.right + bar.left, area.bottom + bar.top};
}

void CAdvanceMainSheet::FitPages() {
  const Rect area = PageArea();
  for (const Page& page : pages_) {
    if (page.window != nullptr && page.window->IsAlive()) page.window->Move(area);
  }
}

void CAdvanceMainSheet::Activate(int page) {
  if (!HasWindow() || page < 0 || page >= pageCount || page == active_) return;
  LeaveFront();
  if (!HasWindow() || page == active_) return;
  const bool isNew = pages_[static_cast<std::size_t>(page)].window == nullptr;
  Dialog* wanted = EnsureWindow(page);
  if (wanted == nullptr) return;
  if (isNew) FitPages();
  if (Dialog* front = pages_[static_cast<std::size_t>(active_)].window.get()) front->SetVisible(false);
  active_ = page;
  Tabs().SetCurrent(page);
  wanted->SetVisible(true);
}

// An edit is left before its page is hidden, so that what this changes is there when the page looks at what to store.
void CAdvanceMainSheet::LeaveFront() {
  Dialog* front = pages_[static_cast<std::size_t>(active_)].window.get();
  if (front != nullptr && front->Focused() != nullptr) front->TakeFocus();
}

void CAdvanceMainSheet::OnEvent(const Event& event) {
  if (event.kind == EventKind::tabChanged && event.controlId == id_sheet::tabs) Activate(Tabs().Current());
}

}  // namespace set32
