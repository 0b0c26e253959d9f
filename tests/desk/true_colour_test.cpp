// Bitmap files of every kind as the picture that the panel works on.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>

#include "adjust/dib/dib_file.h"
#include "apps/scan-desk/pixels/true_colour.h"

namespace scan_desk {
namespace {

using set32::BitmapInfoHeader;
using set32::CDib;
using namespace std::string_view_literals;

struct Silent : set32::DibTrouble {
  void Say(const char*) override {}
};

struct Kind {
  int width, height;
  std::uint16_t bits;
  std::uint32_t compression;
  std::string_view table;  // colours or masks
  std::string_view pixels;
};

std::string FileOf(const Kind& kind) {
  BitmapInfoHeader header{};
  header.headerSize = sizeof header;
  header.width = kind.width;
  header.height = kind.height;
  header.planes = 1;
  header.bitCount = kind.bits;
  header.compression = kind.compression;
  header.imageSize =
      kind.compression == 1 || kind.compression == 2 ? static_cast<std::uint32_t>(kind.pixels.size()) : 0;
  header.coloursUsed = kind.bits <= 8 ? static_cast<std::uint32_t>(kind.table.size() / 4) : 0;
  header.pixelsPerMetreX = 3937;
  std::string file = "BM" + std::string(12, '\0');
  const auto offset = static_cast<std::uint32_t>(file.size() + sizeof header + kind.table.size());
  std::memcpy(&file[10], &offset, sizeof offset);
  file.append(reinterpret_cast<const char*>(&header), sizeof header);
  return file.append(kind.table).append(kind.pixels);
}

TrueColour Turn(const std::string& file, CDib& into) {
  CDib held;
  Silent silent;
  EXPECT_TRUE(set32::LoadBmp(held, {reinterpret_cast<const std::uint8_t*>(file.data()), file.size()}, silent));
  return MakeTrueColour(held, into);
}

// The rows as they stand in memory, a letter a pixel: red, green, blue, white, black (#) or another (?).
std::string Drawn(const CDib& dib) {
  std::string drawn;
  for (int y = 0; y < dib.header->height; ++y) {
    for (int x = 0; x < dib.header->width; ++x) {
      const auto column = static_cast<std::size_t>(x);
      const std::uint8_t* at = dib.displayPixels + static_cast<std::size_t>(y) * dib.stride + 3 * column;
      const int colour = at[0] << 16 | at[1] << 8 | at[2];
      drawn += colour == 0xFF0000   ? 'b'
               : colour == 0x00FF00 ? 'g'
               : colour == 0x0000FF ? 'r'
               : colour == 0xFFFFFF ? 'w'
               : colour == 0        ? '#'
                                    : '?';
    }
    drawn += y + 1 < dib.header->height ? "/" : "";
  }
  return drawn;
}

constexpr auto colours = "\0\0\xFF\0\0\xFF\0\0\xFF\0\0\0\xFF\xFF\xFF\0"sv;  // red, green, blue, white

TEST(TrueColourTest, TurnsEveryKindIntoTheSamePixels) {
  const struct {
    const char* what;
    Kind kind;
    const char* drawn;
  } cases[] = {
      {"1 bit", {10, 1, 1, 0, colours.substr(0, 8), "\x55\x40\0\0"sv}, "rgrgrgrgrg"},
      {"4 bits", {3, 2, 4, 0, colours, "\x01\x20\0\0\x33\x90\0\0"sv}, "rgb/ww#"},
      {"8 bits, top-down", {2, -2, 8, 0, colours, "\0\1\0\0\2\3\0\0"sv}, "bw/rg"},
      {"16 bits", {2, 1, 16, 0, "", "\x00\x7C\xE0\x03"sv}, "rg"},
      {"16 bits of 5, 6 and 5",
       {3, 1, 16, 3, "\0\xF8\0\0\xE0\x07\0\0\x1F\0\0\0"sv, "\xE0\x07\x1F\x00\xFF\xFF\0\0"sv},
       "gbw"},
      {"24 bits", {1, 2, 24, 0, "", "\xFF\0\0\0\0\0\xFF\0"sv}, "b/r"},
      {"32 bits", {2, 1, 32, 0, "", "\xFF\0\0\x7F\xFF\xFF\xFF\0"sv}, "bw"},
      {"32 bits the other way round", {1, 1, 32, 3, "\xFF\0\0\0\0\xFF\0\0\0\0\xFF\0"sv, "\xFF\0\0\0"sv}, "r"},
      {"masks that hold nothing", {1, 1, 32, 3, "\0\0\0\0\0\0\0\0\0\0\0\0"sv, "\xFF\xFF\xFF\xFF"sv}, "#"},
      {"runs, copies, a step and the end of a row",
       {4, 3, 8, 1, colours, "\2\1\2\3\0\0\0\3\1\2\3\0\0\2\1\1\1\2\0\1\4\3"sv},
       "ggww/gbwr/rrrr"},
      {"runs of halves", {5, 2, 4, 2, colours, "\5\x12\0\0\0\5\x32\x10\x30\0\0\1"sv}, "gbgbg/wbgrw"},
      {"runs past every edge", {2, 1, 8, 1, colours, "\x09\1\0\2\xFF\xFF\5\2\5\2"sv}, "gg"},
      {"runs that break off", {2, 2, 8, 1, colours, "\1\3\0\7\1"sv}, "wg/rr"},
      {"a colour table cut short", {3, 1, 8, 0, colours.substr(0, 4), "\0\1\xFF\0"sv}, "r##"}};
  for (const auto& [what, kind, drawn] : cases) {
    SCOPED_TRACE(what);
    CDib picture;
    ASSERT_EQ(Turn(FileOf(kind), picture), TrueColour::made);
    EXPECT_EQ(Drawn(picture), drawn);
    EXPECT_EQ(picture.header->pixelsPerMetreX, 3937);
  }
}

TEST(TrueColourTest, RefusesWhatHoldsNoPixelsOrTooMany) {
  const struct {
    const char* what;
    Kind kind;
    TrueColour answer;
  } cases[] = {{"a picture of another format inside", {4, 4, 24, 4, "", "\0\0\0\0"sv}, TrueColour::unknownKind},
               {"runs of 24 bits", {4, 4, 24, 1, "", "\1\1"sv}, TrueColour::unknownKind},
               {"2 bits", {4, 4, 2, 0, "", "\0\0\0\0"sv}, TrueColour::unknownKind},
               {"two bytes for a billion pixels", {30000, 30000, 8, 1, colours, "\0\1"sv}, TrueColour::unknownKind},
               {"runs top-down", {4, -4, 8, 1, colours, "\0\1"sv}, TrueColour::unknownKind}};
  for (const auto& [what, kind, answer] : cases) {
    SCOPED_TRACE(what);
    CDib picture;
    EXPECT_EQ(Turn(FileOf(kind), picture), answer);
    EXPECT_EQ(picture.header, nullptr);
  }
}

TEST(TrueColourTest, HandsAPictureOverToAnObjectThatStays) {
  CDib made, kept;
  ASSERT_EQ(Turn(FileOf({1, 2, 24, 0, "", "\xFF\0\0\0\0\0\xFF\0"sv}), made), TrueColour::made);
  ASSERT_EQ(Turn(FileOf({2, 1, 16, 0, "", "\x00\x7C\xE0\x03"sv}), kept), TrueColour::made);
  kept.brightness = 7;
  HandOver(made, kept);
  EXPECT_EQ(Drawn(kept), "b/r");
  EXPECT_EQ(kept.brightness, 7);
  EXPECT_EQ(made.header, nullptr);
  EXPECT_EQ(made.sourcePixels, nullptr);
}

}  // namespace
}  // namespace scan_desk
