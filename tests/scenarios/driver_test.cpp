// What the driver of scripts does that a script doesn't show.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

#include "apps/driver/assembly.h"
#include "apps/driver/character_grid.h"
#include "apps/driver/page_drawing.h"
#include "apps/driver/possible.h"
#include "apps/driver/session_folder.h"
#include "tests/support/scenario.h"
#include "tests/support/script_run.h"

namespace set32 {
namespace {

TEST(CharacterGrid, GivesWideCharactersTwoCells) {
  EXPECT_EQ(CellWidth("公分ab"), 6);
  CharacterGrid grid(8, 3);
  grid.Frame(0, 0, 7, 2, "公");
  grid.Put(1, 1, "公分公分", 6);
  grid.Put(2, 1, "x", 1);   // cuts a wide character in half
  grid.Put(6, 1, "分", 1);  // doesn't fit
  grid.Put(-1, 1, "ab", 2);
  EXPECT_THAT(grid.Lines(), testing::ElementsAre("┌─ 公 ─┐", "b x分公│", "└──────┘"));
}

// `show page` has each control's text and mark somewhere, so none is hidden by another.
class PageDrawing : public Scenario {
 protected:
  static std::ptrdiff_t Count(const std::string& text, std::string_view mark) {
    std::ptrdiff_t count = 0;
    for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos; at += mark.size()) ++count;
    return count;
  }

  void ExpectWhole(int dialogId) {
    const Dialog& dialog = TheSession().TheScene().Require(dialogId);
    std::string drawing;
    for (const std::string& line : DrawInCharacters(dialog, nullptr)) drawing += line + '\n';
    std::ptrdiff_t pictures = 0, tracks = 0, spins = 0;
    for (const auto& control : dialog.Controls()) {
      if (!control->IsVisible()) continue;
      const std::string kind = KindName(control->Kind());
      const bool isPicture = kind == "picture" || control->Kind() == ControlKind::pictureButton;
      pictures += isPicture ? 1 : 0;
      tracks += kind == "slider" || kind == "scroll" ? 1 : 0;
      spins += kind == "spin" ? 1 : 0;
      const bool saysText = kind == "label" || kind == "group" || kind == "check" || kind == "radio" ||
                            kind == "edit" || kind == "combo" || kind == "button";
      if (!saysText || isPicture) continue;
      EXPECT_THAT(drawing, testing::HasSubstr(WithoutAccelerator(control->Text())));
    }
    EXPECT_EQ(Count(drawing, "▣"), pictures) << drawing;
    EXPECT_EQ(Count(drawing, "■"), tracks) << drawing;
    EXPECT_EQ(Count(drawing, "↕"), spins) << drawing;
  }
};

TEST_F(PageDrawing, HidesNoControlOfTheSheet) {
  Open();
  ExpectWhole(dialog::general);
  ExpectWhole(dialog::advanced);
}

TEST_F(PageDrawing, HidesNoControlOfTheInlineFace) {
  WriteKey(ModuleFile::options, "Option", "UIFace", "0");
  Host().Arguments().jpegModes = 1;
  Host().Arguments().outputBits = 48;
  Open();
  ExpectWhole(dialog::general);
  Person().Click(id::advancedButton);
  ExpectWhole(dialog::gamma);
  Person().Click({dialog::gamma, id103::customRadio});
  Person().Click({dialog::gamma, id103::gammaBandsRadio});
  ExpectWhole(dialog::gamma);
}

// A search ends by the clock, while a real network makes nobody advance the simulated one.
TEST(Driver, LetsRealTimePassBesideARealNetwork) {
  const SessionFolder folder;
  const auto outside = Assemble({.folder = folder.Path(), .realNetwork = true});
  const std::uint64_t before = outside->Clock().Now();
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_GT(outside->Clock().Now(), before);
}

// A script can say this as often as it is long; the stack can't.
TEST(Driver, RefusesStatementsTooDeepInsideOneAnother) {
  std::string script;
  for (int i = 0; i < 20000; ++i) script += "when host 0x404\nopen\nend\n";
  const ScriptRun run = RunScript(script + "open\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.complaints,
              testing::ElementsAre(testing::EndsWith(": statements stand too deep inside one another")));
}

}  // namespace
}  // namespace set32
