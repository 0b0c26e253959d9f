#include <gmock/gmock.h>

#include "tests/support/stage.h"

namespace set32 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

enum Id { edit = 10, other = 11, digits = 12, button = 13 };

constexpr ControlTemplate controls[] = {
    {edit, ControlKind::edit, "", 0, 0, 40, 12, 0},
    {other, ControlKind::edit, "", 0, 20, 40, 12, 0},
    {digits, ControlKind::edit, "", 0, 40, 40, 12, control_flag::digitsOnly},
    {button, ControlKind::button, "go", 0, 60, 40, 12, 0},
};
constexpr DialogTemplate page{1, "", {100, 100}, "Sans", 8, DialogStyle::child, controls};

class EditContract : public testing::Test {
 protected:
  Stage stage_{page};
  Input& hands_ = stage_.Hands();
  Edit& edit_ = stage_.Get<Edit>(edit);
};

TEST_F(EditContract, ProgramsTextAndReplacementAreToldSelectionIsNot) {
  edit_.SetText("abc");
  EXPECT_THAT(stage_.Heard(), ElementsAre("10 update", "10 changed"));
  edit_.SetText("abc");
  EXPECT_THAT(stage_.Heard(), ElementsAre("10 update", "10 changed"));
  edit_.Select({1, 2});
  EXPECT_THAT(stage_.Heard(), IsEmpty());
  edit_.ReplaceSelection("xy");
  EXPECT_THAT(stage_.Heard(), ElementsAre("10 update", "10 changed"));
  EXPECT_EQ(edit_.Text(), "axyc");
  EXPECT_EQ(edit_.Selection(), (TextRange{3, 3}));
}

}  // namespace
}  // namespace set32
