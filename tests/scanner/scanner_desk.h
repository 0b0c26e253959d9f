// A page with the scanner's controls and nothing else, a host that listens, and a world that a test declares. The
// files outlive the page, so that a test can start it anew.
#pragma once

#include <gmock/gmock.h>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "boundary/host_link.h"
#include "messages.h"
#include "pointer_word.h"
#include "resources/dialogs.h"
#include "resources/ids.h"
#include "resources/strings.h"
#include "scanner/address.h"
#include "scanner/list_file.h"
#include "scanner/scanner_choice.h"
#include "tests/support/desk.h"
#include "tests/support/memory_files.h"
#include "tests/support/memory_world.h"

namespace set32 {

inline const std::string addEntry(TextOf(text::addScanner));

class ScannerDesk : public testing::Test, public HostWindowHandler, public DialogHandler {
 protected:
  using Lines = std::vector<std::string>;

  // Null ones are simulated.
  explicit ScannerDesk(Sockets* sockets = nullptr, System* system = nullptr)
      : platform_{desk_->TheWindows(),
                  boxes_,
                  files_,
                  paths_,
                  profiles_,
                  system != nullptr ? *system : system_,
                  sockets != nullptr ? *sockets : network_,
                  usb_,
                  noRegistry_,
                  desk_->TheClipboard(),
                  threads_} {
    Windows& windows = desk_->TheWindows();
    windows.SetOpenedHook([this](Dialog& opened) { OnOpened(opened); });
  }

  // A host's window with the page in it, a new state of the module, the old files.
  void StartPage() {
    state_ = std::make_unique<ModuleState>(platform_);
    state_->moduleDir = "module/";
    state_->runtimeIniPath = "temp/options.ini";
    state_->profilePath = "temp/profile.ini";
    state_->scannerListPath = "temp/list.dat";
    state_->driverType = driverType_;
    link_ = std::make_unique<HostLink>(desk_->TheWindows());
    choice_ = std::make_unique<CScannerChoice>(*state_, *link_);
    hostWindow_ = desk_->Hands().MakeHostWindow({600, 500}, *this);
    link_->Bind(hostWindow_);
    page_ = desk_->TheWindows().Create(*FindDialog(dialog::general), hostWindow_, *this);
    ASSERT_NE(page_, nullptr);
  }
  void ClosePage() { desk_->Hands().DestroyHostWindow(hostWindow_); }
  void TearDown() override {
    ClosePage();
    EXPECT_EQ(network_.Running(), 0);
  }

  // The page: what the scanner's controls raise goes to the choice.
  void OnInit(Dialog& page) override {
    choice_->Attach(page);
    choice_->Start();
  }
  void OnEvent(const Event& event) override {
    if (event.kind == EventKind::clicked && event.controlId == id::refreshButton) choice_->RefreshScanners();
    if (event.kind == EventKind::selectionChosen && event.controlId == id::scannerCombo)
      choice_->OnScannerSelChange();
  }
  MessageResult OnMessage(std::uint32_t message, WParam, LParam) override {
    if (message == to_panel::askAddress) choice_->OnAskScannerAddress();
    return 0;
  }
  void OnDestroying() override { choice_->StoreAtClose(); }
  void OnDestroyed() override { choice_->ClearScannerList(); }

  // The host.
  MessageResult OnHostMessage(std::uint32_t message, WParam wParam, LParam lParam) override {
    EXPECT_EQ(message, to_host::deviceSelected);
    heard_.push_back(std::to_string(wParam) + ' ' + FromParameter<char>(lParam));
    if (whenHeard_) whenHeard_();
    return 0;
  }
  void OnRepaintAsked() override {}
  Lines Heard() { return std::exchange(heard_, {}); }

  // Dialogs.
  void OnOpened(Dialog& opened) {
    if (opened.TemplateId() == dialog::searching) {
      searches_.push_back(opened.Get<Label>(id120::text).Text() + " after " +
                          std::to_string(network_.Requests().size()));
    }
    if (opened.TemplateId() == dialog::addScanner) {
      ASSERT_NE(inAddDialog_, nullptr) << "dialog 119 wasn't expected";
      std::exchange(inAddDialog_, nullptr)(opened);
    }
  }
  void WhenAddDialogOpens(std::function<void(Dialog&)> act) { inAddDialog_ = std::move(act); }
  void EnterAddress(Dialog& dialog, const std::array<std::optional<int>, 4>& fields) {
    desk_->Hands().FillAddress(dialog.Get<Address>(id119::address), fields);
    desk_->Hands().Click(dialog.Get<Button>(id::ok));
  }
  void WhenAddDialogOpensEnter(int a, int b, int c, int d) {
    WhenAddDialogOpens([=, this](Dialog& opened) { EnterAddress(opened, {a, b, c, d}); });
  }
  void WhenAddDialogOpensCancel() {
    WhenAddDialogOpens([this](Dialog& opened) { desk_->Hands().Click(opened.Get<Button>(id::cancel)); });
  }

  // What the person does and sees.
  Combo& ScannerCombo() { return page_->Get<Combo>(id::scannerCombo); }
  void Refresh() { desk_->Hands().Click(page_->Get<Button>(id::refreshButton)); }
  void Pick(std::string_view entry) {
    const int index = ScannerCombo().FindExact(-1, entry);
    ASSERT_GE(index, 0) << entry;
    desk_->Hands().PickEntry(ScannerCombo(), index);
  }
  Lines Entries() {
    Lines entries;
    for (int i = 0; i < ScannerCombo().Count(); ++i) entries.push_back(ScannerCombo().EntryText(i));
    return entries;
  }
  std::string Selected() {
    return ScannerCombo().Selected() < 0 ? "none" : ScannerCombo().EntryText(ScannerCombo().Selected());
  }

  // The world.
  void PlaceScanner(const char* address) {
    network_.AddAnswer({ParseAddress(address).value(), {'N', 'E', 'T', 'S', 0x20, 0, 0, 0, 0, 0, 0, 0}});
  }
  void Silence(const char* address) { network_.Silence(ParseAddress(address).value()); }
  std::string Stored(const char* section, const char* key, const char* file) {
    std::array<char, 300> value{};
    profiles_.GetString(section, key, "(none)", value, file);
    return value.data();
  }
  std::string DefaultDevice() { return Stored("Device", "Default", "temp/options.ini"); }

  SimulatedClock clock_;
  HeadlessSystem system_{clock_, 0x0404};
  SimulatedNetwork network_{clock_};
  SimulatedUsb usb_;
  MemoryFiles files_;
  ProfileEngine profiles_{files_};
  FolderRegistry noRegistry_{"/no/such/folder"};
  HeadlessBoxes boxes_;
  MemoryWorld::FixedPaths paths_;
  MemoryWorld::NoThreads threads_;
  std::unique_ptr<DeskUnderTest> desk_ = MakeDesk();
  Platform platform_;

  std::uint8_t driverType_ = driver_type::usb | driver_type::network;
  std::unique_ptr<ModuleState> state_;
  std::unique_ptr<HostLink> link_;
  std::unique_ptr<CScannerChoice> choice_;
  WindowHandle hostWindow_ = 0;
  std::unique_ptr<Dialog> page_;

  Lines heard_;
  std::function<void()> whenHeard_;
  Lines searches_;
  std::function<void(Dialog&)> inAddDialog_;
};

}  // namespace set32
