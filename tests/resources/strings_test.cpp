#include "resources/strings.h"

#include <gtest/gtest.h>

#include "apps/stage/forwarding.h"
#include "apps/stage/model/headless_system.h"
#include "resources/ids.h"

namespace set32 {
namespace {

// Texts whose line ends, quotes, placeholders or blanks are easily lost, and the ends of the table.
TEST(Strings, AreRightToTheLetter) {
  const struct {
    int id;
    std::string_view text;
  } cases[] = {
      {text::integerRange, "數值超出範圍，請輸入介於 %d 與 %d 之間的數值"},
      {text::decimalRange, "數值超出範圍，請輸入介於 %d.%02d 與 %d.%02d 之間的數值"},
      {text::warning36Bits,
       "This option only works with applications that accept 36-bit output ,\nsuch as Adobe PhotoShop 5.0."},
      {text::warning16Bits,
       "This option only works with applications that accept 16-bit output ,\nsuch as Adobe PhotoShop 5.0. "},
      {text::sizeB5, "B5(JIS 7.17\"x10.12\")"},
      {text::firstFactoryConfig + 5, "自訂..."},
      {text::firstFactoryConfig + 9, "自訂 ..."},
      {10223, "E print    "},
      {text::tooManyConfigs,
       "此系統只能有 32 種掃描配置。\n\n請刪除一個現有的自訂掃描配置，為新的掃描配置挪出空間。"},
      {text::replaceConfig, "已經含有一個名為 \"%s\" 的掃描配置！\n您要取代這個現有的配置嗎？"},
      {text::sourcePositive, "Transparency Positive "},
      {text::deleteQuestionStart, "您確定要刪除 "},
      {text::colourBalance, "自動色彩平衡(&A)"},
      {text::noDeviceThere, "尚未連接目標網路裝置！"},
  };
  for (const auto& c : cases) EXPECT_EQ(TextOf(c.id), c.text) << c.id;
}

TEST(Strings, TheLookUpFindsEachRowAndNoOther) {
  for (int id : {-1, 1349, 1352, 4018, 10114, 10348}) EXPECT_EQ(TextOf(id), "") << id;
  int rows = 0;
  for (int id = 0; id <= 65535; ++id) rows += TextOf(id).empty() ? 0 : 1;
  EXPECT_EQ(rows, 153);
}

// A system whose code page shows in the text.
class MarkingSystem : public ForwardingSystem {
 public:
  using ForwardingSystem::ForwardingSystem;
  std::string FromUtf8(std::string_view text) override { return std::string(text).append("?"); }
};

TEST(Strings, LoadStringGivesTheModulesCodePage) {
  SimulatedClock clock;
  HeadlessSystem headless(clock, 0x404);
  MarkingSystem system(headless);
  EXPECT_EQ(LoadString(system, text::gray), "灰階?");
  EXPECT_EQ(LoadString(headless, 65535), "");
}

}  // namespace
}  // namespace set32
