// The scanner list and its file: which records stand, where, and what any bytes become.
#include <gmock/gmock.h>

#include <set>

#include "platform/profile_engine.h"
#include "scanner/address.h"
#include "scanner/list_file.h"
#include "tests/support/memory_files.h"

namespace set32 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char path[] = "temp/list.dat";
constexpr std::uint32_t typedIn = SCANNER_FLAG_ADDED;
constexpr std::uint32_t answering = SCANNER_FLAG_ADDED | SCANNER_FLAG_ANSWERED;

ScannerRecord Network(std::string_view dotted, std::uint32_t flags = 0) {
  ScannerRecord record;
  const AddressHalves halves = SplitAddress(ParseAddress(dotted).value());
  record.id = halves.high << 16 | halves.low;
  record.highHalf = halves.high;
  record.lowHalf = halves.low;
  record.port = networkScannerPort;
  record.flags = flags;
  record.SetName(dotted);
  return record;
}

std::string Bytes(const ScannerRecord& record) {
  const ScannerRecordBytes bytes = EncodeRecord(record);
  return {bytes.begin(), bytes.end()};
}

std::string FileOf(const std::vector<ScannerRecord>& records, char count, char selected) {
  std::string file = {'D', 'L', count, selected};
  for (const ScannerRecord& record : records) file += Bytes(record);
  return file;
}

std::vector<ScannerRecord> Nodes(const CScannerList& list) {
  std::vector<ScannerRecord> nodes;
  for (const ScannerNode* node = list.Head(); node != nullptr; node = node->next.get()) nodes.push_back(node->record);
  return nodes;
}

class ListFile : public testing::Test {
 protected:
  bool Read() {
    shown_.clear();
    return ReadListFile(files_, path, list_, [this](std::string_view name) { shown_.emplace_back(name); });
  }
  bool ReadFrom(std::string file) {
    files_.content[path] = std::move(file);
    return Read();
  }

  MemoryFiles files_;
  ProfileEngine profiles_{files_};
  CScannerList list_;
  std::vector<std::string> shown_;
};

TEST_F(ListFile, RecordHasItsBytesAtTheirPlaces) {
  const AddressHalves halves = SplitAddress(ParseAddress("192.168.1.20").value());
  list_.AddScannerEntry(scanner_type::network, halves.high, halves.low, networkScannerPort, "Attic", answering);
  list_.AddScannerEntry(scanner_type::usb, 0x0C5A, 0x0E72, 254, usbScannerName, 0);
  list_.selectedIndex = 0x1FE;
  ASSERT_TRUE(WriteListFile(profiles_, path, list_));
  using namespace std::string_literals;
  const std::string expected =
      "DL\x02\xFE"s + "\0\0\0\0\xC0\xA8\x01\x14\x01\x14\0\0\xC0\xA8\0\0\x2E\xD1\0\0\x06\0\0\0"s + "192.168.1.20" +
      std::string(56, '\0') + "\x01\0\0\0\x72\x0E\x5A\x0C\x5A\x0C\0\0\x72\x0E\0\0\xFE\0\0\0\0\0\0\0"s + "USB" +
      std::string(65, '\0');
  EXPECT_EQ(files_.content[path], expected);
  const std::vector<ScannerRecord> before = Nodes(list_);
  list_.ClearScannerList();
  ASSERT_TRUE(Read());
  EXPECT_EQ(Nodes(list_), before);
  EXPECT_THAT(shown_, ElementsAre("192.168.1.20", "USB"));
}

TEST_F(ListFile, EntriesWithEqualTypeHalvesAndPortAreOne) {
  EXPECT_NE(list_.AddScannerEntry(0x100, 1, 2, 3, "", 0), nullptr);  // the low byte is the type
  EXPECT_EQ(list_.AddScannerEntry(0, 1, 2, 3, "", 6), nullptr);
  EXPECT_NE(list_.AddScannerEntry(1, 1, 2, 3, std::string(100, 'x'), 0), nullptr);
  EXPECT_NE(list_.AddScannerEntry(0, 1, 2, 4, "", 0), nullptr);
  EXPECT_EQ(list_.Count(), 3);
  EXPECT_EQ(list_.FindScannerEntry(0x300, 1, 2, 3), list_.Head());
  EXPECT_EQ(list_.Head()->next->record.Name(), std::string(67, 'x'));

  // Records compare every type but 0 as 1.
  ScannerRecord odd = list_.Head()->record;
  odd.type = 7;
  EXPECT_EQ(list_.AddScannerRecord(odd), nullptr);
  odd.port = 9;
  EXPECT_NE(list_.AddScannerRecord(odd), nullptr);
  EXPECT_EQ(list_.FindScannerEntry(1, 1, 2, 9), nullptr);
  EXPECT_EQ(list_.FindScannerEntry(7, 1, 2, 9)->record.type, 7U);
}

TEST_F(ListFile, ClearingRemembersOnlyTypedInNetworkScanners) {
  ScannerRecord usb = Network("10.0.0.4", typedIn);
  usb.type = scanner_type::usb;
  for (const ScannerRecord& record :
       {Network("10.0.0.1"), Network("10.0.0.2", typedIn), Network("10.0.0.3", answering), usb}) {
    list_.AddScannerRecord(record);
  }
  list_.RememberAddedScanner(Network("10.0.0.3", typedIn));
  list_.selectedIndex = 3;
  list_.ClearScannerList();
  EXPECT_EQ(list_.Head(), nullptr);
  EXPECT_EQ(list_.Count(), 0);
  EXPECT_EQ(list_.selectedIndex, 0);
  EXPECT_THAT(list_.Added().All(), ElementsAre(Network("10.0.0.3", answering), Network("10.0.0.2", typedIn)));
  EXPECT_NE(list_.AddScannerRecord(Network("10.0.0.1")), nullptr);
  EXPECT_EQ(list_.Count(), 1);
}

TEST_F(ListFile, AddedRecordsTakeTheirNodesPlaceOrFollow) {
  list_.AddScannerRecord(Network("10.0.0.1"));
  list_.AddScannerRecord(Network("10.0.0.2"));
  list_.RememberAddedScanner(Network("10.0.0.9", typedIn));
  list_.RememberAddedScanner(Network("10.0.0.1", answering));
  ASSERT_TRUE(WriteListFile(profiles_, path, list_));
  EXPECT_EQ(files_.content[path],
            FileOf({Network("10.0.0.1", answering), Network("10.0.0.2"), Network("10.0.0.9", typedIn)}, 3, 0));
}

TEST_F(ListFile, SilentAddedScannersAreKeptAndNotShown) {
  list_.RememberAddedScanner(Network("10.9.9.9", typedIn));  // the file's added list takes the place of this one
  ASSERT_TRUE(ReadFrom(FileOf({Network("10.0.0.12"), Network("10.0.0.1", typedIn), Network("10.0.0.2", answering),
                               Network("10.0.0.12", answering)},
                              0, 2)));
  EXPECT_THAT(shown_, ElementsAre("10.0.0.12", "10.0.0.2"));
  EXPECT_EQ(list_.Count(), 3);
  EXPECT_EQ(list_.selectedIndex, 2);
  EXPECT_THAT(list_.Added().All(), ElementsAre(Network("10.0.0.1", typedIn), Network("10.0.0.2", answering),
                                               Network("10.0.0.12", answering)));
}

TEST_F(ListFile, HeaderDecidesWhetherAnythingChanges) {
  list_.RememberAddedScanner(Network("10.0.0.9", typedIn));
  EXPECT_FALSE(Read());
  for (const char* file : {"", "DL", "DL\x01", "LD\x01\x01", "dl\x01\x01"}) {
    SCOPED_TRACE(file);
    EXPECT_FALSE(ReadFrom(file));
    EXPECT_EQ(list_.Added().All().size(), 1U);
  }
  EXPECT_TRUE(ReadFrom({'D', 'L', 5, 0}));
  EXPECT_THAT(list_.Added().All(), IsEmpty());
  EXPECT_EQ(list_.Count(), 0);
}

TEST_F(ListFile, SelectedIndexStandsUpToTheCount) {
  struct Case {
    int stored, read;
  };
  const std::vector<ScannerRecord> two = {Network("10.0.0.1"), Network("10.0.0.2")};
  for (const Case& c : {Case{1, 1}, Case{2, 2}, Case{3, 0}, Case{0x7F, 0}, Case{0x80, 0}, Case{0xFF, 0}}) {
    SCOPED_TRACE(c.stored);
    list_.ClearScannerList();
    ASSERT_TRUE(ReadFrom(FileOf(two, 2, static_cast<char>(c.stored))));
    EXPECT_EQ(list_.selectedIndex, c.read);
  }
}

TEST_F(ListFile, NamesWithoutAnEndAndPartialRecordsAreCut) {
  std::string file = FileOf({Network("10.0.0.1")}, 1, 0);
  std::fill(file.begin() + 4 + 24, file.end(), 'n');
  ASSERT_TRUE(ReadFrom(file + Bytes(Network("10.0.0.2")).substr(0, 91)));
  EXPECT_EQ(list_.Count(), 1);
  EXPECT_THAT(shown_, ElementsAre(std::string(67, 'n')));
  // What stood behind a terminator isn't written back.
  list_.ClearScannerList();
  file.replace(4 + 24 + 3, 1, 1, '\0');
  ASSERT_TRUE(ReadFrom(file));
  ASSERT_TRUE(WriteListFile(profiles_, path, list_));
  EXPECT_EQ(files_.content[path].substr(4 + 24), "nnn" + std::string(65, '\0'));
}

TEST_F(ListFile, HoldsAsManyScannersAsItsCountCanTell) {
  std::string file = {'D', 'L', 0, 0};
  for (std::uint32_t i = 0; i < 70'000; ++i) {
    ScannerRecord record = Network("10.0.0.1", answering);
    record.port = i;
    record.SetName(std::to_string(i));
    file += Bytes(record);
  }
  ASSERT_TRUE(ReadFrom(file));
  EXPECT_EQ(list_.Count(), maxScanners);
  EXPECT_EQ(list_.Added().All().size(), maxScanners);
  EXPECT_EQ(shown_.size(), maxScanners);
  ASSERT_TRUE(WriteListFile(profiles_, path, list_));
  EXPECT_EQ(files_.content[path], file.substr(0, 2) + '\xFF' + '\0' + file.substr(4, maxScanners * 92));
}

TEST_F(ListFile, FullDiskLeavesTheOldFile) {
  list_.AddScannerRecord(Network("10.0.0.1"));
  ASSERT_TRUE(WriteListFile(profiles_, path, list_));
  const std::string old = files_.content[path];
  list_.AddScannerRecord(Network("10.0.0.2"));
  for (const std::size_t left : {0U, 3U, 4U, 96U, 187U}) {
    files_.diskLeft = left;
    EXPECT_FALSE(WriteListFile(profiles_, path, list_));
    EXPECT_EQ(files_.content[path], old);
    EXPECT_EQ(files_.content.size(), 1U);  // nothing half-written stays beside it
  }
  files_.diskLeft = 188;
  EXPECT_TRUE(WriteListFile(profiles_, path, list_));
}

}  // namespace
}  // namespace set32
