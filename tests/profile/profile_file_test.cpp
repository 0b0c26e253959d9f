// Structured values in a profile file: numbers, hexadecimal records, texts of any length, lists of keys.
#include "profile/profile_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

#include "platform/profile_engine.h"
#include "tests/support/profile_peer.h"
#include "tests/support/scratch_folder.h"

namespace set32 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::string_literals;

class ProfileFile : public testing::Test {
 protected:
  ProfileFile() { profile_.SetFileName(folder_.Path("p.ini").c_str()); }

  void Content(const std::string& text) { folder_.Write("p.ini", text); }
  void Value(const std::string& value) { Content("[s]\nk=" + value + "\n"); }

  ScratchFolder folder_;
  ProfileEngine engine_{SystemFiles()};
  CProfileFile profile_{engine_};
};

TEST_F(ProfileFile, ReadsAMissingFileAsAnEmptyOne) {
  std::array<std::uint8_t, 4> bytes{};
  std::vector<std::string> names{"old"};
  EXPECT_EQ(profile_.ReadValue("s", "k", "default"), "default");
  EXPECT_EQ(profile_.GetInteger("s", "k", 7, 10), 7U);
  EXPECT_EQ(profile_.GetDouble("s", "k", 2.5), 2.5);
  EXPECT_EQ(profile_.GetBinary("s", "k", bytes, 0), 0U);
  EXPECT_EQ(profile_.GetSectionText("s", {}), 2U);
  profile_.GetKeyNames("s", &names);
  EXPECT_THAT(names, IsEmpty());
}

TEST_F(ProfileFile, ReadsValuesOfAnyLengthWhole) {
  for (const std::size_t length : {0U, 1U, 510U, 511U, 512U, 1000U, 1023U, 100000U}) {
    const std::string value(length, 'v');
    Value(value);
    EXPECT_EQ(profile_.ReadValue("s", "k", "default"), value) << length;
  }
  EXPECT_EQ(profile_.ReadValue(nullptr, "k", "default"), "default");
  EXPECT_EQ(profile_.ReadValue("s", nullptr, nullptr), "");
}

TEST_F(ProfileFile, CopiesAStringAndFillsTheRest) {
  Value("abcd");
  std::array<char, 6> out{};
  out.fill('?');
  EXPECT_EQ(profile_.GetString("s", "k", out, nullptr), 4U);
  EXPECT_THAT(out, ElementsAre('a', 'b', 'c', 'd', '\0', '\0'));
  out.fill('?');
  EXPECT_EQ(profile_.GetString("s", "k", std::span(out).first(3), nullptr), 3U);
  EXPECT_THAT(out, ElementsAre('a', 'b', 'c', '?', '?', '?'));
  EXPECT_EQ(profile_.GetString("s", "k", {}, nullptr), 4U);
  EXPECT_EQ(profile_.GetString("s", "x", {}, "default"), 7U);
}

TEST_F(ProfileFile, ReadsIntegersInFourRadixes) {
  const struct {
    int radix;
    std::uint32_t value;
    std::vector<const char*> texts;
  } cases[] = {
      {10, 99, {""}},
      {10, 0, {"abc", "--5", "0x10"}},
      {10, 12, {" 12z"}},
      {10, 5, {"+5"}},
      {10, 0xFFFFFFFF, {"-1", "4294967295", "4294967296", "-4294967296"}},
      {10, 0x80000000, {"-2147483648"}},
      {16, 255, {"ff", "0xFF"}},
      {16, 0, {"0x"}},
      {16, 0xFFFFFFF0, {"-0x10"}},
      {8, 63, {"778"}},
      {7, 12, {"12"}},
      {2, 5, {"1012"}},
  };
  for (const auto& [radix, value, texts] : cases) {
    for (const char* text : texts) {
      Value(text);
      EXPECT_EQ(profile_.GetInteger("s", "k", 99, radix), value) << text << " radix " << radix;
    }
  }
  Value(std::string(64, '0') + "5");  // the digit past the field doesn't count
  EXPECT_EQ(profile_.GetInteger("s", "k", 99, 10), 0U);
}

TEST_F(ProfileFile, WritesIntegersInFourRadixes) {
  const struct {
    std::uint32_t value;
    int radix;
    const char* text;
  } cases[] = {{5, 2, "101"},
               {0, 2, "0"},
               {0xFFFFFFFF, 2, "11111111111111111111111111111111"},
               {8, 8, "10"},
               {0xABCDEF, 16, "ABCDEF"},
               {0xFFFFFFFF, 10, "-1"},
               {0x80000000, 7, "-2147483648"}};
  for (const auto& c : cases) {
    EXPECT_TRUE(profile_.WriteInteger("s", "k", c.value, c.radix));
    EXPECT_EQ(profile_.ReadValue("s", "k", ""), c.text);
    EXPECT_EQ(profile_.GetInteger("s", "k", 99, c.radix), c.value);
  }
}

TEST_F(ProfileFile, ReadsDoubles) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const struct {
    double value;
    std::vector<const char*> texts;
  } cases[] = {
      {4.5, {""}},
      {1.5, {"1.5"}},
      {200.0, {" +2e2x"}},
      {-0.5, {"-.5"}},
      {3.0, {"0x1.8p1"}},
      {1.0, {"1,5", "1e"}},
      {0.0, {"abc", "-", "--1", "0x", "1e-999", "100000e-400"}},
      {infinity, {"inf", "1e999", "0.00001e400", "0x1p9999"}},
      {-infinity, {"-1e999", "-infinity"}},
  };
  for (const auto& [value, texts] : cases) {
    for (const char* text : texts) {
      Value(text);
      EXPECT_EQ(profile_.GetDouble("s", "k", 4.5), value) << text;
    }
  }
  Value("nan");
  EXPECT_TRUE(std::isnan(profile_.GetDouble("s", "k", 4.5)));
}

TEST_F(ProfileFile, ReadsHexadecimalRecords) {
  using Bytes = std::array<std::uint8_t, 3>;
  const struct {
    const char* text;
    std::size_t offset, count;
    Bytes bytes;
  } cases[] = {
      {"00AB", 0, 2, {0x00, 0xAB, 9}}, {"00ab", 0, 2, {0x00, 0xAB, 9}}, {"00AB1", 0, 2, {0x00, 0xAB, 9}},
      {"00AB", 1, 1, {0xAB, 9, 9}},    {"00AB", 2, 0, {9, 9, 9}},       {"00ZB", 0, 0, {9, 9, 9}},
      {"Z0AB", 1, 0, {9, 9, 9}},       {"00ABZ", 0, 0, {9, 9, 9}},      {"00AB\xFF", 0, 0, {9, 9, 9}},
      {"0102030405", 0, 3, {1, 2, 3}}, {"", 0, 0, {9, 9, 9}},
  };
  for (const auto& c : cases) {
    Value(c.text);
    Bytes bytes{9, 9, 9};
    EXPECT_EQ(profile_.GetBinary("s", "k", bytes, c.offset), c.count) << c.text;
    EXPECT_EQ(bytes, c.bytes) << c.text;
  }
  Value(std::string(400, 'A'));
  EXPECT_EQ(profile_.GetBinary("s", "k", {}, 0), 200U);
  EXPECT_EQ(profile_.GetBinary("s", "k", {}, 8), 192U);
}

TEST_F(ProfileFile, WritesHexadecimalRecordsInUpperCase) {
  const std::array<std::uint8_t, 3> bytes{0x00, 0xAB, 0x0F};
  EXPECT_TRUE(profile_.WriteBinary("s", "k", bytes));
  EXPECT_EQ(folder_.Read("p.ini"), "[s]\r\nk=00AB0F\r\n");
  EXPECT_FALSE(profile_.WriteBinary("s", "k", {}));
}

TEST_F(ProfileFile, TellsAnEmptyValueFromNoKeyAndAFileFromNone) {
  Content("[s]\nk=1\nother=2\n");
  EXPECT_TRUE(profile_.WriteString("s", "k", nullptr));
  EXPECT_EQ(folder_.Read("p.ini"), "[s]\nk=\nother=2\n");
  EXPECT_FALSE(profile_.WriteString("s", nullptr, "v"));
  EXPECT_FALSE(profile_.DeleteKey("s", nullptr));
  EXPECT_TRUE(profile_.DeleteKey("s", "k"));
  EXPECT_EQ(folder_.Read("p.ini"), "[s]\nother=2\n");
  profile_.SetFileName(nullptr);
  EXPECT_EQ(profile_.GetInteger("s", "other", 9, 10), 9U);
  EXPECT_FALSE(profile_.WriteString("s", "other", "3"));
  profile_.SetFileName(folder_.Path("p.ini").c_str());
  EXPECT_EQ(profile_.GetInteger("s", "other", 9, 10), 2U);
  EXPECT_TRUE(profile_.DeleteSection("s"));
  EXPECT_EQ(folder_.Read("p.ini"), "");
}

TEST_F(ProfileFile, ListsTheKeysOfASection) {
  Content("[s]\n first = 1\nbare\n=nothing\nsecond=" + std::string(2000, '2') + "\nthird=\n[t]\nx=1\n");
  std::vector<std::string> names;
  profile_.GetKeyNames("S", &names);
  EXPECT_THAT(names, ElementsAre("first", "second", "third"));

  EXPECT_EQ(profile_.GetKeyList("s", {}), 19U);
  std::string list(20, '?');
  EXPECT_EQ(profile_.GetKeyList("s", list), 19U);
  EXPECT_EQ(list, "first\0second\0third\0\0"s);
  // A list that is too short ends inside its bytes all the same.
  for (std::size_t size = 1; size < list.size(); ++size) {
    std::string cut(size, '?');
    const std::size_t count = profile_.GetKeyList("s", cut);
    ASSERT_LT(count, size);
    EXPECT_EQ(cut[count], '\0');
  }
  const std::size_t needed = profile_.GetSectionText("s", {});
  std::string lines(needed, '?');
  EXPECT_EQ(profile_.GetSectionText("s", lines), needed - 2);
  EXPECT_EQ(profile_.GetSectionText(nullptr, {}), 0U);
}

TEST(PackedList, IsWalkedUntilACallbackStops) {
  const auto collect = [](const char* text, void* context) {
    auto& seen = *static_cast<std::string*>(context);
    seen += text;
    return seen == "ab" ? 0 : 1;
  };
  std::string seen;
  EXPECT_EQ(ForEachString("a\0c\0", collect, &seen), 1);
  EXPECT_EQ(seen, "ac");
  seen.clear();
  EXPECT_EQ(ForEachString("a\0b\0c\0", collect, &seen), 0);
  EXPECT_EQ(seen, "ab");
  EXPECT_EQ(ForEachString("", collect, nullptr), 1);
  EXPECT_EQ(ForEachString(nullptr, collect, &seen), 0);
  EXPECT_EQ(ForEachString("a\0", nullptr, &seen), 0);
}

TEST(TrimBlanksTest, TakesBlanksFromBothEnds) {
  for (auto [text, trimmed] : {std::pair{" \t a b\r\n"s, "a b"}, {"ab"s, "ab"}, {" \r\n"s, ""}, {""s, ""}}) {
    EXPECT_EQ(TrimBlanks(text.data()), text != trimmed);
    EXPECT_STREQ(text.c_str(), trimmed);
  }
}

}  // namespace
}  // namespace set32
