// A person chooses the scanner: what the combo offers, what the host hears, what the next start remembers.
#include "tests/scanner/scanner_desk.h"

namespace set32 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr Colour red{255, 0, 0};

// An answer that a probe takes and neither search does.
const std::vector<std::uint8_t> silentToSearches(5);

class ScannerChoice : public ScannerDesk {};

TEST_F(ScannerChoice, RefreshSearchesUsbThenTheNetworkAndReportsOnce) {
  StartPage();
  EXPECT_THAT(Heard(), ElementsAre("1 " + addEntry));
  EXPECT_THAT(Entries(), ElementsAre(addEntry));
  profiles_.WriteString("SCNIP", "one", "10.0.0.1", "temp/profile.ini");
  profiles_.WriteString("Keep", "two", "2", "temp/profile.ini");
  usb_.Place(3, {0x0C5A, 0x0E72});
  PlaceScanner("10.0.0.2");
  PlaceScanner("10.0.0.1");
  searches_.clear();
  const std::uint64_t before = clock_.Now();
  Refresh();
  EXPECT_THAT(Heard(), ElementsAre("0 USB 3"));
  EXPECT_THAT(Entries(), ElementsAre("USB", "10.0.0.2", "10.0.0.1", addEntry));
  EXPECT_EQ(Selected(), "USB");
  EXPECT_EQ(clock_.Now() - before, 3000U);  // 2960 to the third change of the second, 40 of silence
  // Two requests went out at the page's start. Each search stands painted before it asks anybody.
  EXPECT_THAT(searches_,
              ElementsAre(std::string(TextOf(text::searchingLocal)) + " after 2", StartsWith("正在本端網路中搜尋")));
  EXPECT_THAT(desk_->TheWindows().Standing(), ElementsAre(page_.get()));
  EXPECT_EQ(Stored("SCNIP", "one", "temp/profile.ini"), "(none)");
  EXPECT_EQ(Stored("Keep", "two", "temp/profile.ini"), "2");
}

TEST_F(ScannerChoice, DriverTypeSaysWhatIsSearchedAndOffered) {
  struct Case {
    int driverType;
    Lines atStart, heardAtStart, afterRefresh, heardAfterRefresh;
    std::string selected;
  };
  const Case cases[] = {
      {0, {"USB", "10.0.0.7"}, {}, {}, {"0 "}, "none"},
      {1, {"USB"}, {"0 USB 5"}, {"USB"}, {"0 USB 5"}, "USB"},
      {2, {"USB", "10.0.0.7", addEntry}, {}, {"10.0.0.1", addEntry}, {"0 10.0.0.1"}, "10.0.0.1"},
      {3, {"USB", "10.0.0.1", addEntry}, {"0 USB 5"}, {"USB", "10.0.0.1", addEntry}, {"0 USB 5"}, "USB"},
      {4, {"USB", "10.0.0.7"}, {}, {}, {"0 "}, "none"},
  };
  CScannerList left;
  left.AddScannerEntry(scanner_type::usb, 0x0C5A, 0x0E72, 9, "USB", 0);
  left.AddScannerEntry(scanner_type::network, 0x0700, 0x000A, 53550, {}, 0);
  usb_.Place(5, {0x0C5A, 0x0E72});
  PlaceScanner("10.0.0.1");
  for (const Case& c : cases) {
    SCOPED_TRACE(c.driverType);
    files_.content.clear();
    ASSERT_TRUE(WriteListFile(profiles_, "temp/list.dat", left));
    driverType_ = static_cast<std::uint8_t>(c.driverType);
    StartPage();
    EXPECT_EQ(Entries(), c.atStart);
    EXPECT_EQ(Heard(), c.heardAtStart);
    Refresh();
    EXPECT_EQ(Entries(), c.afterRefresh);
    EXPECT_EQ(Heard(), c.heardAfterRefresh);
    EXPECT_EQ(Selected(), c.selected);
    ClosePage();
    EXPECT_EQ(DefaultDevice() == "(none)", (c.driverType & driver_type::network) == 0) << DefaultDevice();
  }
}

// The file would be one of wherever the process stands.
TEST_F(ScannerChoice, ModuleWithoutAFolderHasNoSettings) {
  for (int i = 0; i < 10; ++i) {
    for (const char* file : {"QUIRNMFP.ini", "module/QUIRNMFP.ini"}) {
      profiles_.WriteString("DeviceID", ("DeviceID" + std::to_string(i)).c_str(), "VID_FFFF&PID_FFFF", file);
    }
  }
  usb_.Place(3, {0x0C5A, 0x0E72});
  driverType_ = driver_type::usb;
  StartPage();
  EXPECT_THAT(Entries(), IsEmpty());  // the settings beside the module name others
  state_->moduleDir.clear();
  Refresh();
  EXPECT_THAT(Entries(), ElementsAre("USB"));
}

TEST_F(ScannerChoice, PickedEntryIsReportedAndBecomesTheDefault) {
  usb_.Place(3, {0x0C5A, 0x0E72});
  PlaceScanner("10.0.0.1");
  StartPage();
  Heard();
  Pick("10.0.0.1");
  Pick("USB");
  Pick("10.0.0.1");
  EXPECT_THAT(Heard(), ElementsAre("0 10.0.0.1", "0 USB 3", "0 10.0.0.1"));
  ClosePage();
  EXPECT_EQ(DefaultDevice(), "10.0.0.1");

  StartPage();
  EXPECT_THAT(Heard(), ElementsAre("0 10.0.0.1"));
  // The list's own entry is found in the default one and isn't shown again.
  EXPECT_THAT(Entries(), ElementsAre("10.0.0.1", "USB", addEntry));
  Pick("USB");
  ClosePage();
  EXPECT_EQ(DefaultDevice(), "USB");

  StartPage();
  EXPECT_THAT(Entries(), ElementsAre("USB", "10.0.0.1", addEntry));
  Heard();
  WhenAddDialogOpensCancel();
  Silence("10.0.0.1");
  usb_.Remove(3);
  Refresh();
  EXPECT_EQ(Selected(), addEntry);
  ClosePage();
  EXPECT_EQ(DefaultDevice(), "USB") << "the entry that adds a scanner is none";
}

TEST_F(ScannerChoice, DefaultDeviceThatIsSilentIsNotOffered) {
  driverType_ = driver_type::network;
  for (const char* stored : {"10.0.0.1", "NoDefault", "a.b.c.d", "10.0.0.1.2", "10.0.0.300"}) {
    SCOPED_TRACE(stored);
    files_.content.erase("temp/list.dat");
    profiles_.WriteString("Device", "Default", stored, "temp/options.ini");
    const std::uint64_t before = clock_.Now();
    StartPage();
    EXPECT_THAT(Entries(), IsEmpty());
    EXPECT_THAT(Heard(), IsEmpty());
    EXPECT_EQ(clock_.Now() - before, std::string_view(stored) == "10.0.0.1" ? 3000U : 0U);
    ClosePage();
    EXPECT_EQ(DefaultDevice(), stored) << "with nothing selected the choice stays";
  }
}

TEST_F(ScannerChoice, TypedAddressIsKeptHiddenWhileSilentAndShownAgain) {
  PlaceScanner("10.0.0.12");
  StartPage();
  Heard();
  network_.AddAnswer({ParseAddress("172.16.0.5").value(), silentToSearches});
  WhenAddDialogOpensEnter(172, 16, 0, 5);
  Pick(addEntry);
  EXPECT_THAT(Heard(), ElementsAre("0 172.16.0.5"));
  EXPECT_THAT(Entries(), ElementsAre("10.0.0.12", "172.16.0.5", addEntry));
  EXPECT_EQ(Selected(), "172.16.0.5");
  EXPECT_EQ(choice_->List().Head()->next->record.flags, SCANNER_FLAG_ADDED | SCANNER_FLAG_ANSWERED);

  Refresh();  // it sends something, but nothing that the check takes for an answer
  EXPECT_THAT(Entries(), ElementsAre("10.0.0.12", addEntry));
  ClosePage();
  Silence("172.16.0.5");
  StartPage();
  EXPECT_THAT(Entries(), ElementsAre("10.0.0.12", addEntry));
  network_.AddAnswer({ParseAddress("172.16.0.5").value(), {'N', 'E', 'T', 'S', 0, 0, 0, 0, 0, 0, 0, 0}});
  Refresh();
  EXPECT_THAT(Entries(), ElementsAre("10.0.0.12", "172.16.0.5", addEntry));
  Refresh();
  Heard();

  // What the list holds already is reported and not shown twice; the selection moves to the last scanner.
  WhenAddDialogOpensEnter(10, 0, 0, 12);
  Pick(addEntry);
  EXPECT_THAT(Heard(), ElementsAre("0 10.0.0.12"));
  EXPECT_THAT(Entries(), ElementsAre("10.0.0.12", "172.16.0.5", addEntry));
  EXPECT_EQ(Selected(), "172.16.0.5");
  // The beginning of an entry that is shown isn't shown beside it, though the list takes it up.
  PlaceScanner("10.0.0.1");
  WhenAddDialogOpensEnter(10, 0, 0, 1);
  Pick(addEntry);
  EXPECT_THAT(Heard(), ElementsAre("0 10.0.0.1"));
  EXPECT_THAT(Entries(), ElementsAre("10.0.0.12", "172.16.0.5", addEntry));
  EXPECT_EQ(choice_->List().Count(), 3);
}

TEST_F(ScannerChoice, CancelledAdditionReportsTheAddEntryAndShowsTheLastScanner) {
  StartPage();
  Heard();
  WhenAddDialogOpensCancel();
  Pick(addEntry);
  EXPECT_THAT(Heard(), ElementsAre("1 " + addEntry));
  EXPECT_EQ(Selected(), addEntry);  // the only entry
  PlaceScanner("10.0.0.1");
  PlaceScanner("10.0.0.2");
  Refresh();
  Heard();
  WhenAddDialogOpensCancel();
  Pick(addEntry);
  EXPECT_THAT(Heard(), ElementsAre("1 " + addEntry));
  EXPECT_EQ(Selected(), "10.0.0.2");
}

TEST_F(ScannerChoice, HostAsksForAnAddress) {
  profiles_.WriteString("Device", "Default", "10.0.0.9", "temp/options.ini");
  PlaceScanner("10.0.0.9");
  PlaceScanner("10.0.0.1");
  StartPage();
  EXPECT_THAT(Entries(), ElementsAre("10.0.0.9", "10.0.0.1", addEntry));
  Heard();
  const auto ask = [this] { desk_->TheWindows().Send(page_->Handle(), to_panel::askAddress, 0, 0); };
  network_.AddAnswer({ParseAddress("10.0.0.4").value(), silentToSearches});
  for (int i = 0; i < 2; ++i) {  // the second time the list holds it
    WhenAddDialogOpensEnter(10, 0, 0, 4);
    ask();
    EXPECT_THAT(Heard(), ElementsAre("0 10.0.0.4"));
    EXPECT_THAT(Entries(), ElementsAre("10.0.0.9", "10.0.0.1", "10.0.0.4", addEntry));
    EXPECT_EQ(Selected(), "10.0.0.9");
  }
  WhenAddDialogOpensCancel();
  ask();
  EXPECT_THAT(Heard(), ElementsAre("0 10.0.0.4"));
  EXPECT_THAT(Entries(), ElementsAre("10.0.0.1", "10.0.0.4", addEntry));
  EXPECT_EQ(Selected(), "10.0.0.1");
  EXPECT_EQ(choice_->DefaultAddress(), "");
}

TEST_F(ScannerChoice, AddDialogAnswersBadAddressesInRed) {
  using Fields = std::array<std::optional<int>, 4>;
  StartPage();
  WhenAddDialogOpens([this](Dialog& dialog) {
    const Label& message = dialog.Get<Label>(id119::message);
    EXPECT_EQ(message.Text(), "");
    EXPECT_EQ(message.OwnColour(), std::nullopt);
    EXPECT_TRUE(dialog.Get<Address>(id119::address).HasFocus());
    struct Case {
      Fields fields;
      int complaint;
    };
    const std::size_t before = network_.Requests().size();
    for (const Case& c : {Case{{10, 0, 0, {}}, text::badAddress}, Case{{0, 1, 2, 3}, text::badAddress},
                          Case{{192, 168, 1, 255}, text::badAddress}, Case{{192, 168, 255, 1}, text::noDeviceThere},
                          Case{Fields{}, text::badAddress}, Case{{224, 0, 0, 1}, text::noDeviceThere}}) {
      EnterAddress(dialog, c.fields);
      EXPECT_EQ(message.Text(), TextOf(c.complaint));
      EXPECT_EQ(message.OwnColour(), red);
      EXPECT_TRUE(dialog.Get<Button>(id::ok).IsEnabled());
      EXPECT_TRUE(dialog.Get<Button>(id::cancel).IsEnabled());
    }
    EXPECT_EQ(network_.Requests().size(), before + 2);
    network_.Fail(SimulatedNetwork::Step::start);
    EnterAddress(dialog, {10, 0, 0, 1});
    EXPECT_EQ(message.Text(), "");
    EXPECT_TRUE(dialog.Get<Button>(id::ok).IsEnabled());
    network_.FailNothing();
    PlaceScanner("10.0.0.1");
    EnterAddress(dialog, {10, 0, 0, 1});
  });
  Heard();
  Pick(addEntry);
  EXPECT_THAT(Heard(), ElementsAre("0 10.0.0.1"));
}

TEST_F(ScannerChoice, RefreshSelectsWhatStandsAtTheOldTopOfTheList) {
  for (int i = 10; i < 60; ++i) PlaceScanner(("10.0.0." + std::to_string(i)).c_str());
  StartPage();
  Heard();
  Pick("10.0.0.59");
  desk_->Hands().ScrollList(ScannerCombo(), 7);
  ASSERT_EQ(ScannerCombo().TopIndex(), 7);
  Silence("10.0.0.10");
  Heard();
  Refresh();
  EXPECT_THAT(Heard(), ElementsAre("0 10.0.0.18"));
  EXPECT_EQ(Selected(), "10.0.0.18");
}

TEST_F(ScannerChoice, SelectionThatHiddenScannersPushPastTheEndKeepsTheName) {
  CScannerList stored;
  for (std::uint32_t i = 1; i < 4; ++i) {
    stored.AddScannerEntry(scanner_type::network, i << 8, 10, 53550, {}, SCANNER_FLAG_ADDED);
  }
  stored.selectedIndex = 3;
  driverType_ = driver_type::network;
  StartPage();
  PlaceScanner("10.1.1.1");
  Refresh();
  Heard();
  ASSERT_TRUE(WriteListFile(profiles_, "temp/list.dat", stored));
  choice_->ReloadScannerList();
  EXPECT_EQ(Selected(), "none");
  choice_->ReportScanner();
  EXPECT_THAT(Heard(), ElementsAre("0 10.1.1.1"));
}

TEST_F(ScannerChoice, PanelRefreshTellsTheNameOfBeforeAndTheAddEntryOfNow) {
  usb_.Place(0, {0x0C5A, 0x0E72});
  StartPage();
  Heard();
  ScannerCombo().SelectIndex(1);
  choice_->ReportAtPanelRefresh();
  choice_->ReportAtPanelRefresh();
  EXPECT_THAT(Heard(), ElementsAre("1 USB 0", "1 " + addEntry));
}

TEST_F(ScannerChoice, FailedNetworkStillSavesLoadsAndReports) {
  StartPage();
  PlaceScanner("10.0.0.1");
  Refresh();
  Heard();
  network_.Fail(SimulatedNetwork::Step::start);
  const std::uint64_t before = clock_.Now();
  Refresh();
  EXPECT_EQ(clock_.Now(), before);
  EXPECT_THAT(Entries(), ElementsAre(addEntry));
  EXPECT_THAT(Heard(), ElementsAre("1 " + addEntry));
}

TEST_F(ScannerChoice, NothingIsTouchedWhenThePageDiesMeanwhile) {
  StartPage();
  PlaceScanner("10.0.0.1");
  Heard();
  WhenAddDialogOpens([this](Dialog&) { page_->Destroy(); });  // the host's window stays
  Pick(addEntry);
  EXPECT_THAT(Heard(), IsEmpty());
  EXPECT_FALSE(page_->IsAlive());
  ClosePage();

  StartPage();
  Heard();
  whenHeard_ = [this] { ClosePage(); };
  Refresh();
  EXPECT_THAT(Heard(), ElementsAre("0 10.0.0.1"));
  EXPECT_EQ(DefaultDevice(), "10.0.0.1");
  EXPECT_EQ(choice_->List().Count(), 0);
}

}  // namespace
}  // namespace set32
