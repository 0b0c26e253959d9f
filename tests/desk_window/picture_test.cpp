// Pictures from files, through the system's decoders: made by its encoders, and bitmaps byte by byte.
#include <gmock/gmock.h>
#include <windows.h>

#include <objidl.h>

#include <gdiplus.h>

#include <cstring>
#include <string>
#include <string_view>

#include "apps/scan-desk/window/picture.h"
#include "tests/support/scratch_folder.h"

namespace scan_desk {
namespace {

using set32::CDib;
using testing::HasSubstr;
using namespace std::string_view_literals;

class Pictures : public testing::Test {
 public:
  ~Pictures() override { Gdiplus::GdiplusShutdown(encoders_); }

 protected:
  Pictures() {
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&encoders_, &input, nullptr);
  }

  std::wstring Path(std::string_view name) const {
    const std::string path = folder_.Path(name);
    return {path.begin(), path.end()};
  }

  set32::ScratchFolder folder_;

 private:
  ULONG_PTR encoders_ = 0;
};

// The shown rows from the top, a letter for the middle of each cell of so many pixels: red, green, blue, white or
// black (#), as near as an encoder that loses something comes, or another (?).
std::string Drawn(const Picture& picture, int cell) {
  std::string drawn;
  const CDib& dib = picture.Dib();
  for (int y = picture.Area().height - 1 - cell / 2; y >= 0; y -= cell) {
    for (int x = cell / 2; x < picture.Area().width; x += cell) {
      const std::uint8_t* at =
          dib.displayPixels + static_cast<std::size_t>(y) * dib.stride + 3 * static_cast<std::size_t>(x);
      unsigned colour = 0;
      for (int band = 0; band < 3; ++band) colour |= at[band] > 0xD0 ? 1U << band : at[band] < 0x30 ? 0 : 8;
      drawn += colour > 7 ? '?' : "#bg?r??w"[colour];
    }
    drawn += y - cell >= 0 ? "/" : "";
  }
  return drawn;
}

TEST_F(Pictures, OfEveryEncoderKeepColoursAndResolution) {
  constexpr int cell = 16, across = 3, down = 2, stride = across * cell * 3;
  constexpr std::string_view letters = "rgbw#r";
  std::string pixels;
  for (int y = 0; y < down * cell; ++y) {
    for (int x = 0; x < across * cell; ++x) {
      const char letter = letters[static_cast<std::size_t>(y / cell * across + x / cell)];
      for (const char band : {'b', 'g', 'r'}) pixels += letter == band || letter == 'w' ? '\xFF' : '\0';
    }
  }
  const struct {
    const char* name;
    DWORD encoder;
  } kinds[] = {{"a.bmp", 0x557CF400}, {"a.jpg", 0x557CF401}, {"a.tif", 0x557CF405}, {"a.png", 0x557CF406}};
  for (const auto& [name, encoder] : kinds) {
    SCOPED_TRACE(name);
    const CLSID kind = {encoder, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
    Gdiplus::Bitmap made(across * cell, down * cell, stride, PixelFormat24bppRGB,
                         reinterpret_cast<BYTE*>(pixels.data()));
    made.SetResolution(150, 150);
    ASSERT_EQ(made.Save(Path(name).c_str(), &kind, nullptr), Gdiplus::Ok);
    Picture picture;
    std::wstring trouble;
    ASSERT_TRUE(picture.Open(Path(name), trouble)) << std::string(trouble.begin(), trouble.end());
    EXPECT_EQ(Drawn(picture, cell), "rgb/w#r");
    EXPECT_NEAR(picture.DotsPerInch(), 150, 0.1);
  }
}

struct Kind {
  int width, height;
  std::uint16_t bits;
  std::uint32_t compression;
  std::string_view table;  // colours or masks
  std::string_view pixels;
};

std::string FileOf(const Kind& kind) {
  BITMAPINFOHEADER info{};
  info.biSize = sizeof info;
  info.biWidth = kind.width;
  info.biHeight = kind.height;
  info.biPlanes = 1;
  info.biBitCount = kind.bits;
  info.biCompression = kind.compression;
  info.biSizeImage = static_cast<DWORD>(kind.pixels.size());
  info.biClrUsed = kind.bits <= 8 ? static_cast<DWORD>(kind.table.size() / 4) : 0;
  BITMAPFILEHEADER file{};
  file.bfType = 0x4D42;
  file.bfOffBits = DWORD{sizeof file + sizeof info} + static_cast<DWORD>(kind.table.size());
  file.bfSize = file.bfOffBits + info.biSizeImage;
  std::string bytes(reinterpret_cast<const char*>(&file), sizeof file);
  return bytes.append(reinterpret_cast<const char*>(&info), sizeof info).append(kind.table).append(kind.pixels);
}

constexpr auto colours = "\0\0\xFF\0\0\xFF\0\0\xFF\0\0\0\xFF\xFF\xFF\0"sv;  // red, green, blue, white

TEST_F(Pictures, OfBitmapsOfEveryDepth) {
  const struct {
    const char* what;
    Kind kind;
    const char* drawn;
  } cases[] = {{"1 bit", {10, 1, 1, BI_RGB, colours.substr(0, 8), "\x55\x40\0\0"sv}, "rgrgrgrgrg"},
               {"4 bits", {3, 2, 4, BI_RGB, colours, "\x01\x20\0\0\x33\x00\0\0"sv}, "wwr/rgb"},
               {"8 bits, top-down", {2, -2, 8, BI_RGB, colours, "\0\1\0\0\2\3\0\0"sv}, "rg/bw"},
               {"16 bits", {2, 1, 16, BI_RGB, "", "\x00\x7C\xE0\x03"sv}, "rg"},
               {"16 bits of 5, 6 and 5",
                {3, 1, 16, BI_BITFIELDS, "\0\xF8\0\0\xE0\x07\0\0\x1F\0\0\0"sv, "\xE0\x07\x1F\x00\xFF\xFF\0\0"sv},
                "gbw"},
               {"24 bits", {1, 2, 24, BI_RGB, "", "\xFF\0\0\0\0\0\xFF\0"sv}, "r/b"},
               {"32 bits", {2, 1, 32, BI_RGB, "", "\xFF\0\0\x7F\xFF\xFF\xFF\0"sv}, "bw"},
               {"runs of 8 bits", {4, 2, 8, BI_RLE8, colours, "\2\1\2\3\0\0\4\2\0\1"sv}, "bbbb/ggww"},
               {"runs of 4 bits", {5, 2, 4, BI_RLE4, colours, "\5\x12\0\0\5\x30\0\1"sv}, "wrwrw/gbgbg"}};
  for (const auto& [what, kind, drawn] : cases) {
    SCOPED_TRACE(what);
    folder_.Write("a.bmp", FileOf(kind));
    Picture picture;
    std::wstring trouble;
    EXPECT_TRUE(picture.Open(Path("a.bmp"), trouble)) << std::string(trouble.begin(), trouble.end());
    EXPECT_EQ(Drawn(picture, 1), drawn);
    EXPECT_GE(picture.DotsPerInch(), 96) << "where the file tells none";
  }
}

TEST_F(Pictures, ThatCannotBeReadLeaveTheOneBefore) {
  const std::string good = FileOf({1, 2, 24, BI_RGB, "", "\xFF\0\0\0\0\0\xFF\0"sv});
  folder_.Write("good.bmp", good);
  folder_.Write("empty.bmp", "");
  folder_.Write("text.png", "no picture at all, but longer than a header of one, so that its first letters tell");
  folder_.Write("huge.bmp", FileOf({60000, 60000, 24, BI_RGB, "", "\0\0\0\0"sv}));
  folder_.Write("large.bmp", FileOf({9000, 9000, 24, BI_RGB, "", "\0\0\0\0"sv}));
  folder_.Write("short.bmp", FileOf({100, 100, 24, BI_RGB, "", "\0\0\0\0"sv}));
  folder_.Write("2 bits.bmp", FileOf({4, 4, 2, BI_RGB, "", "\0\0\0\0"sv}));
  Picture picture;
  std::wstring trouble;
  ASSERT_TRUE(picture.Open(Path("good.bmp"), trouble));
  for (const char* broken :
       {"missing.bmp", "empty.bmp", "text.png", "huge.bmp", "large.bmp", "short.bmp", "2 bits.bmp", "."}) {
    trouble.clear();
    EXPECT_FALSE(picture.Open(Path(broken), trouble)) << broken;
    EXPECT_THAT(trouble, HasSubstr(L".\n" + Path(broken))) << "a sentence, and which file";
    EXPECT_EQ(Drawn(picture, 1), "r/b") << broken;
  }
}

}  // namespace
}  // namespace scan_desk
