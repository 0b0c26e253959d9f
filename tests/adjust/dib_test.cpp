// Bitmap files: what is read and written byte for byte, and what files get that no honest program wrote.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "platform/dib_handles.h"
#include "set32/dib_file.h"

namespace set32 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Bytes = std::vector<std::uint8_t>;

class Trouble final : public DibTrouble {
 public:
  void Say(const char* text) override { said.emplace_back(text); }
  std::vector<std::string> said;
};

// A file in memory that fails at the operation whose turn comes.
class TestFile final : public DibFile {
 public:
  explicit TestFile(Bytes content = {}, int failAt = -1) : bytes(std::move(content)), failAt_(failAt) {}
  std::size_t Read(std::span<std::uint8_t> into) override {
    CountDown();
    const std::size_t count = std::min(into.size(), bytes.size() - at_);
    std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(at_), count, into.begin());
    at_ += count;
    return count;
  }
  void Write(std::span<const std::uint8_t> more) override {
    CountDown();
    bytes.insert(bytes.end(), more.begin(), more.end());
  }
  std::uint64_t Remaining() override { return bytes.size() - at_; }

  Bytes bytes;

 private:
  void CountDown() {
    if (failAt_-- == 0) throw Failure{};
  }
  std::size_t at_ = 0;
  int failAt_;
};

// A file as a program would write it: the headers as given, then 0, 1, 2 and so on for the rest.
struct BmpFile {
  BitmapInfoHeader info{40, 2, 2, 1, 24, 0, 0, 3937, 3937, 0, 0};
  std::uint32_t offset = 54;
  std::size_t behind = 16;  // bytes behind the 40-byte header
  std::uint16_t letters = 0x4D42;

  Bytes Content() const {
    Bytes bytes(54 + behind);
    std::memcpy(&bytes[0], &letters, 2);
    std::memcpy(&bytes[10], &offset, 4);
    std::memcpy(&bytes[14], &info, 40);
    for (std::size_t i = 0; i < behind; ++i) bytes[54 + i] = static_cast<std::uint8_t>(i);
    return bytes;
  }
};

class Dib : public testing::Test {
 protected:
  bool Load(const Bytes& bytes) {
    trouble.said.clear();
    return LoadBmp(dib, bytes, trouble);
  }
  Bytes Written() {
    TestFile to;
    EXPECT_TRUE(dib.Write(to, trouble));
    return to.bytes;
  }

  CDib dib;
  Trouble trouble;
};

TEST_F(Dib, ReadsPlainPixelsAndBeginsWithNeutralValues) {
  dib.brightness = 3;
  dib.gammaRed = 2.0;
  ASSERT_TRUE(Load(BmpFile{}.Content()));
  EXPECT_THAT(trouble.said, IsEmpty());
  EXPECT_EQ(dib.GetDimensions().width, 2);
  EXPECT_EQ(dib.GetStride(), 8U);
  EXPECT_EQ(dib.GetImageSize(), 16U);
  EXPECT_EQ(dib.header->imageSize, 16U) << "put right in memory";
  EXPECT_EQ(dib.sourcePixels[0], 0);
  EXPECT_EQ(dib.displayPixels[15], 15) << "shown as it is until a refresh";
  EXPECT_EQ(dib.brightness, 0);
  EXPECT_EQ(dib.gammaRed, 1.0);
  EXPECT_EQ(dib.colourCount, 0U);
  EXPECT_EQ(dib.palette, nullptr);
  EXPECT_EQ(reinterpret_cast<std::uint8_t*>(dib.colourTable), reinterpret_cast<std::uint8_t*>(dib.header) + 40);
  EXPECT_EQ(dib.ownsDisplay, 1);
  dib.bitmapHandle = &dib;  // no system takes it for a bitmap
  dib.Empty();
  EXPECT_EQ(dib.bitmapHandle, nullptr) << "or it would be released twice";
  EXPECT_EQ(dib.GetDimensions().width, 0);
  EXPECT_EQ(dib.sourcePixels, nullptr);
  EXPECT_EQ(dib.pixelOwner, 0U);
}

TEST_F(Dib, WritesTheSourceAndNotWhatIsShown) {
  const Bytes read = BmpFile{}.Content();
  ASSERT_TRUE(Load(read));
  dib.displayPixels[3] = 200;
  Bytes expected = read;
  expected[2] = 70;   // size of the file
  expected[34] = 16;  // size of the picture
  EXPECT_EQ(Written(), expected);
}

TEST_F(Dib, RefusesFilesThatDescribeNoPicture) {
  const std::pair<const char*, void (*)(BmpFile&)> cases[] = {
      {"letters", [](BmpFile& f) { f.letters = 0x4142; }},
      {"pixels inside the header", [](BmpFile& f) { f.offset = 53; }},
      {"no offset", [](BmpFile& f) { f.offset = 0; }},
      {"small header", [](BmpFile& f) { f.info.headerSize = 12; }},
      {"no width", [](BmpFile& f) { f.info.width = 0; }},
      {"negative width", [](BmpFile& f) { f.info.width = -2; }},
      {"no height", [](BmpFile& f) { f.info.height = 0; }},
      {"least height", [](BmpFile& f) { f.info.height = std::numeric_limits<std::int32_t>::min(); }},
      {"no depth", [](BmpFile& f) { f.info.bitCount = 0; }},
      {"depth 65535", [](BmpFile& f) { f.info.bitCount = 0xFFFF; }},
      {"gigabytes of rows", [](BmpFile& f) { f.info.width = f.info.height = 30000; }},
      {"2^31 rows", [](BmpFile& f) { f.info.height = 0x7FFFFFFF; }},
      {"2^31 columns", [](BmpFile& f) { f.info.width = 0x7FFFFFFF; }},
      {"compressed gigabytes", [](BmpFile& f) { f.info.compression = 1, f.info.imageSize = 0xFFFFFFFF; }},
      {"bit fields without masks", [](BmpFile& f) { f.info.compression = 3, f.info.bitCount = 16; }},
  };
  for (const auto& [what, damage] : cases) {
    BmpFile file;
    damage(file);
    EXPECT_FALSE(Load(file.Content())) << what;
    EXPECT_THAT(trouble.said, ElementsAre("Invalid bitmap file")) << what;
  }
}

TEST_F(Dib, SaysWhichWayAFileFailed) {
  const Bytes good = BmpFile{}.Content();
  EXPECT_FALSE(Load({good.begin(), good.begin() + 13}));
  for (int failing = 0; failing < 3; ++failing) {
    TestFile file(good, failing);
    EXPECT_FALSE(dib.Read(file, trouble)) << failing;
  }
  EXPECT_THAT(trouble.said, ElementsAre("read error 1", "Read error 1", "Read error 1", "Read error 1"));

  trouble.said.clear();
  ASSERT_TRUE(Load(good));
  for (int failing = 0; failing < 3; ++failing) {
    TestFile file({}, failing);
    EXPECT_FALSE(dib.Write(file, trouble)) << failing;
  }
  dib.Empty();
  TestFile file;
  EXPECT_FALSE(dib.Write(file, trouble)) << "nothing to write";
  EXPECT_THAT(trouble.said, ElementsAre("write error", "write error", "write error", "write error"));
}

TEST_F(Dib, HoldsAPictureThatWasCutShort) {
  Bytes cut = BmpFile{}.Content();
  cut.resize(54 + 9);
  ASSERT_TRUE(Load(cut));
  EXPECT_EQ(dib.sourcePixels[8], 8);
  EXPECT_EQ(dib.sourcePixels[9], 255);
  EXPECT_EQ(dib.sourcePixels[15], 255);
  cut.resize(28);
  EXPECT_FALSE(Load(cut)) << "the header ends before its depth";
}

TEST_F(Dib, TurnsRowsThatAreStoredTopDown) {
  BmpFile file;
  file.info.height = -2;
  ASSERT_TRUE(Load(file.Content()));
  EXPECT_EQ(dib.GetDimensions().height, 2);
  EXPECT_EQ(dib.sourcePixels[0], 8);
  EXPECT_EQ(dib.sourcePixels[8], 0);
}

struct SizeCase {
  std::int32_t width;
  std::uint16_t bits;
  std::uint32_t claimed, stride;
};

TEST_F(Dib, MeasuresRowsWhateverTheHeaderClaims) {
  const SizeCase cases[] = {{101, 24, 0, 304}, {101, 24, 608, 304}, {101, 24, 1, 304}, {101, 24, 610, 304},
                            {1, 1, 0, 4},      {33, 1, 0, 8},       {3, 4, 0, 4},      {5, 8, 0, 8},
                            {3, 16, 0, 8},     {3, 32, 0, 12}};
  for (const SizeCase& c : cases) {
    BmpFile file;
    file.info.width = c.width;
    file.info.bitCount = c.bits;
    file.info.imageSize = c.claimed;
    file.offset = 54 + 4 * 256;
    file.behind = 4 * 256 + 608;
    ASSERT_TRUE(Load(file.Content())) << c.width << " x " << c.bits;
    EXPECT_EQ(dib.GetStride(), c.stride) << c.width << " x " << c.bits;
    EXPECT_EQ(dib.GetImageSize(), 2 * c.stride) << c.width << " x " << c.bits << " claimed " << c.claimed;
  }
}

struct TableCase {
  std::uint16_t bits;
  std::uint32_t used;
  std::size_t inFile;  // entries
  std::uint32_t expected;
};

TEST_F(Dib, TakesAsManyColoursAsTheFileHolds) {
  const TableCase cases[] = {{8, 0, 256, 256}, {4, 0, 16, 16},        {1, 0, 2, 2},  {24, 0, 0, 0}, {8, 5, 5, 5},
                             {8, 0, 10, 10},   {8, 0xFFFFFFFF, 3, 3}, {24, 7, 7, 7}, {8, 0, 0, 0}};
  for (const TableCase& c : cases) {
    BmpFile file;
    file.info.bitCount = c.bits;
    file.info.coloursUsed = c.used;
    file.offset = static_cast<std::uint32_t>(54 + 4 * c.inFile);
    file.behind = 4 * c.inFile + 64;
    ASSERT_TRUE(Load(file.Content()));
    EXPECT_EQ(dib.colourCount, c.expected) << c.bits << " bits, used " << c.used;
    std::array<PaletteEntry, 300> entries{};
    EXPECT_EQ(LogicalPaletteEntries(dib.palette, entries), c.expected);
    if (c.expected > 1) {
      EXPECT_EQ(entries[1], (PaletteEntry{6, 5, 4, 0})) << "blue, green, red in the file";
    }
    const Bytes written = Written();
    EXPECT_EQ(written[10] + 256 * written[11], 54 + 4 * static_cast<int>(c.expected));
    EXPECT_EQ(written.size(), 54 + 4 * c.expected + dib.imageSize);
  }
}

TEST_F(Dib, TakesLargerHeadersForOnesOf40Bytes) {
  BmpFile file;
  file.info.headerSize = 108;
  file.info.bitCount = 8;
  file.info.coloursUsed = 2;
  file.offset = 14 + 108 + 8;
  file.behind = 68 + 8 + 8;
  ASSERT_TRUE(Load(file.Content()));
  EXPECT_EQ(dib.header->headerSize, 40U);
  EXPECT_EQ(dib.colourTable[1].blue, 72);
  EXPECT_EQ(dib.sourcePixels[0], 76);
  file.info.headerSize = 0xFFFFFFFF;
  file.info.coloursUsed = 0;
  EXPECT_TRUE(Load(file.Content())) << "a header longer than the file has an empty table";
}

TEST_F(Dib, KeepsTheMasksOfBitFieldsThroughAWrite) {
  BmpFile file;
  file.info.bitCount = 16;
  file.info.compression = 3;
  file.offset = 66;
  file.behind = 12 + 8;
  const Bytes read = file.Content();
  ASSERT_TRUE(Load(read));
  const Bytes written = Written();
  EXPECT_EQ(Bytes(written.begin() + 54, written.end()), Bytes(read.begin() + 54, read.end()));
}

// The sanitizers see what is freed twice or not at all.
TEST_F(Dib, FreesWhatTheOwnerFieldsSay) {
  BitmapInfoHeader header{40, 1, 1, 1, 24, 0, 0, 0, 0, 0, 0};
  Bytes pixels(4);
  {
    CDib lent;
    lent.header = &header;
    lent.sourcePixels = lent.displayPixels = lent.savedPixels = pixels.data();
  }
  {
    CDib split;
    split.header = &header;
    split.ComputeMetrics();
    EXPECT_TRUE(split.AllocatePixels(false));
    EXPECT_EQ(split.sourcePixels[3], 255);
    EXPECT_EQ(split.displayPixels, nullptr);
    split.displayPixels = pixels.data();
    std::uint8_t* const before = split.sourcePixels;
    EXPECT_TRUE(split.AllocatePixels(false));
    EXPECT_EQ(split.sourcePixels, before);
  }
  for (int i = 0; i < 2; ++i) ASSERT_TRUE(Load(BmpFile{}.Content()));
  EXPECT_FALSE(Load(Bytes(70)));
}

// Sums that would begin again at 0 where addresses have 32 bits.
TEST_F(Dib, AllocatesNothingForPicturesPastTwoGigabytes) {
  struct Sizes {
    std::uint32_t image, stride;
  };
  for (const Sizes& sizes : {Sizes{0xFFFFFFFF, 8}, {0x7FFFFFFF, 8}, {1440000000, 1440000000}, {8, 0xFFFFFFFC}}) {
    dib.imageSize = sizes.image;
    dib.stride = sizes.stride;
    EXPECT_FALSE(dib.AllocatePixels(true)) << sizes.image << ", " << sizes.stride;
    EXPECT_EQ(dib.displayPixels, nullptr);
    dib.Empty();
  }
}

}  // namespace
}  // namespace set32
