// Frames: tab bar 1095 and button 5005. The frames live in the host; the bar shows how many there are and which is
// current. Removal always takes the last tab, so the images stay in sequence.
#include "panel/rules/mode_rules.h"
#include "panel/sheet/setting_box_page.h"
#include "resources/ids.h"
#include "resources/pictures.h"

namespace set32 {

namespace {

constexpr int imageWidth = 15;
constexpr int minTabWidth = 18;
constexpr Size tabPadding = {2, 3};
constexpr Colour transparent = {255, 0, 255};

void AddFrameTab(TabBar& tabs) {
  const int count = tabs.Count();
  tabs.SetMinTabWidth(minTabWidth);
  tabs.Add({}, ImageOfNewTab(count));
  tabs.SetMinTabWidth(minTabWidth);
  tabs.SetPadding(tabPadding);
  tabs.SetCurrent(count);
}

}  // namespace

void CSettingBoxPage::SetUpFrameTabs() {
  TabBar& tabs = Get<TabBar>(id::frameTabs);
  tabs.SetImages(LoadPicture(picture::frameTabs), imageWidth, transparent);
  AddFrameTab(tabs);
}

void CSettingBoxPage::ActOnFrameCommand(const FrameCommand& command) {
  TabBar& tabs = Get<TabBar>(id::frameTabs);
  switch (command.action) {
    case frame_action::added:
      AddFrameTab(tabs);
      if (tabs.Count() > 0) Get<Button>(id::removeFrameButton).SetEnabled(true);
      break;
    case frame_action::select:
      if (command.index < static_cast<std::uint32_t>(tabs.Count())) tabs.SetCurrent(static_cast<int>(command.index));
      break;
    case frame_action::allGone:
      tabs.Clear();
      DisableRemoveButtonWithoutFrames();
      break;
    case frame_action::removed:
      tabs.Remove(tabs.Count() - 1);
      DisableRemoveButtonWithoutFrames();
      break;
    default:
      break;
  }
}

void CSettingBoxPage::OnRemoveFrame(const Event&) {
  TabBar& tabs = Get<TabBar>(id::frameTabs);
  if (tabs.Count() == 0) return;
  // With no current tab, as after the host took the current one, the tab that goes is the one that is meant.
  const int before = tabs.Current() >= 0 ? tabs.Current() : tabs.Count() - 1;
  tabs.Remove(tabs.Count() - 1);
  tabs.SetCurrent(CurrentAfterRemoval(before, tabs.Count()));
  Get<Button>(id::removeFrameButton).SetEnabled(tabs.Count() > 0);
  TellFrameRemoved(before);
  host_.FrameTabChanged(Get<TabBar>(id::frameTabs).Current());
}

// As many as stood at the start: a host that answers each report with a new frame must not keep the page here.
void CSettingBoxPage::RemoveAllFrames() {
  for (int left = Get<TabBar>(id::frameTabs).Count(); left > 0; --left) {
    TabBar& tabs = Get<TabBar>(id::frameTabs);
    const int last = tabs.Count() - 1;
    if (last < 0) break;
    tabs.Remove(last);
    DisableRemoveButtonWithoutFrames();
    TellFrameRemoved(last);
  }
}

// The pointer in the record lives for the message.
void CSettingBoxPage::TellFrameRemoved(int frame) {
  host_.FrameRemoved(*settings_, static_cast<std::uint32_t>(frame));
  settings_->frameCommand = 0;
}

void CSettingBoxPage::OnFrameTabChange(const Event&) {
  if (Window() != 0) host_.FrameTabChanged(Get<TabBar>(id::frameTabs).Current());
}

void CSettingBoxPage::DisableRemoveButtonWithoutFrames() {
  if (Get<TabBar>(id::frameTabs).Count() == 0) Get<Button>(id::removeFrameButton).SetEnabled(false);
}

void CSettingBoxPage::EnableRemoveButton() {
  const bool live = Get<TabBar>(id::frameTabs).Count() > 0 && settings_->autoCrop == 0;
  Get<Button>(id::removeFrameButton).SetEnabled(live);
}

}  // namespace set32
