#include "resources/dialogs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>

#include "resources/ids.h"

namespace set32 {
namespace {

const ControlTemplate& ControlOf(int dialogId, int id) {
  const auto& controls = FindDialog(dialogId)->controls;
  return *std::ranges::find(controls, id, &ControlTemplate::id);
}

// With the first and last stops of the tab key, by which a row that slipped would show.
constexpr struct {
  int id;
  std::size_t count;
  int first, last;
} allDialogs[] = {
    {dialog::general, 33, id::sourceLabel, id::configList},
    {dialog::gamma, 34, id103::defaultsRadio, id103::gammaRedPicture},
    {dialog::saveConfig, 4, id104::nameLabel, id::cancel},
    {dialog::message, 4, id::ok, id115::icon},
    {dialog::addScanner, 5, id::ok, id119::message},
    {dialog::searching, 1, id120::text, id120::text},
    {dialog::advanced, 29, id148::viewTabs, id148::yValue},
    {dialog::sheet, 1, id_sheet::tabs, id_sheet::tabs},
};

// Each dialog takes Enter on one button at the most, and on the one that means yes.
TEST(Dialogs, EveryControlHasAnIdOfItsOwnAndLiesInsideAndEnterBelongsToOk) {
  for (const auto& [id, count, first, last] : allDialogs) {
    const DialogTemplate* found = FindDialog(id);
    ASSERT_NE(found, nullptr) << id;
    EXPECT_EQ(found->id, id);
    ASSERT_EQ(found->controls.size(), count) << id;
    EXPECT_EQ(found->controls.front().id, first) << id;
    EXPECT_EQ(found->controls.back().id, last) << id;
    std::set<int> ids;
    for (const ControlTemplate& control : found->controls) {
      EXPECT_TRUE(ids.insert(control.id).second) << id << ": " << control.id << " twice";
      EXPECT_GE(std::min(control.x, control.y), 0) << id << ": " << control.id;
      EXPECT_LE(control.x + control.width, found->size.width) << id << ": " << control.id;
      // The height of a combo is that of its open list, and may hang over.
      const bool drops = control.kind == ControlKind::combo || control.kind == ControlKind::iconCombo;
      EXPECT_LE(control.y + (drops ? 0 : control.height), found->size.height) << id << ": " << control.id;
      EXPECT_TRUE(control.kind != ControlKind::defaultButton || control.id == id::ok) << id;
    }
  }
  EXPECT_EQ(FindDialog(101), nullptr);
  for (int id : {dialog::saveConfig, dialog::message, dialog::addScanner}) {
    EXPECT_EQ(ControlOf(id, id::ok).kind, ControlKind::defaultButton) << id;
  }
}

// A radio button whose group has no start would join the controls before it.
TEST(Dialogs, AMnemonicBelongsToOneOfTheControlsThatAreShown) {
  for (const auto& [id, count, first, last] : allDialogs) {
    std::string letters;
    for (const ControlTemplate& control : FindDialog(id)->controls) {
      const std::string_view caption = control.caption;
      const std::size_t mark = caption.find('&');
      if (mark == std::string_view::npos || (control.flags & control_flag::hidden) != 0) continue;
      EXPECT_EQ(letters.find(caption[mark + 1]), std::string::npos) << id << ' ' << caption;
      letters += caption[mark + 1];
    }
  }
}

TEST(Dialogs, RadioGroupsHaveTheirStarts) {
  for (const auto& [id, count, first, last] : allDialogs) {
    std::set<int> starts;
    for (const ControlTemplate& control : FindDialog(id)->controls) {
      if ((control.flags & control_flag::groupStart) == 0) continue;
      EXPECT_EQ(control.kind, ControlKind::radio);
      starts.insert(control.id);
    }
    const std::set<int> expected = id == dialog::general    ? std::set{id::colourRadio}
                                   : id == dialog::gamma    ? std::set{id103::defaultsRadio, id103::gammaAllRadio}
                                   : id == dialog::advanced ? std::set{id148::magazineRadio}
                                                            : std::set<int>{};
    EXPECT_EQ(starts, expected) << id;
  }
}

TEST(Dialogs, StartStates) {
  using namespace control_flag;
  const struct {
    int dialogId, id;
    unsigned flags;
  } cases[] = {
      {dialog::general, id::advancedButton, hidden},
      {dialog::general, id::autoCropCheck, hidden},
      {dialog::general, id::bwButton, hidden},
      {dialog::general, id::removeFrameButton, 0},
      {dialog::gamma, id103::closeShort, hidden},
      {dialog::gamma, id103::gammaAllEdit, hidden},
      {dialog::gamma, id103::gammaRedEdit, 0},
      {dialog::gamma, id103::qualityEdit, digitsOnly | alignRight},
      {dialog::gamma, id103::singleFileCheck, hidden | disabled},
      {dialog::message, id::cancel, hidden | disabled},
      {dialog::advanced, id148::firstEdit, readOnly},
      {dialog::advanced, id148::secondEdit, readOnly},
      {dialog::advanced, id148::highBitCheck, hidden},
      {dialog::advanced, id148::autoButton, hidden | disabled},
      {dialog::advanced, id148::picturePrintRadio, disabled},
      {dialog::sheet, id_sheet::tabs, fill},
  };
  for (const auto& c : cases) EXPECT_EQ(ControlOf(c.dialogId, c.id).flags, c.flags) << c.dialogId << ": " << c.id;
}

}  // namespace
}  // namespace set32
