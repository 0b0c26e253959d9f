// The profile is a text that a person may edit while the panel stands.
#include "tests/support/page_scenario.h"

namespace set32 {
namespace {

class EditedProfile : public PageScenario {
 protected:
  void SetUp() override {
    OfferSources();
    Open();
  }
  void Edit(const std::function<void(std::string&)>& edit) {
    std::string text;
    for (const std::string& line : TheSession().TheFiles().Lines(ModuleFile::profile)) text += line + "\n";
    edit(text);
    TheSession().TheFiles().WriteBytes(ModuleFile::profile,
                                       {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
  }
  void RemoveRow(const std::string& name) {
    Edit([&](std::string& text) {
      const std::size_t at = text.find('\n' + name + '=');
      ASSERT_NE(at, std::string::npos) << name;
      text.erase(at, text.find('\n', at + 1) - at);
    });
  }
  std::string Rows() {
    const std::string seen = Seen("1009");
    return seen.substr(seen.find("index"));
  }
};

TEST_F(EditedProfile, IsFollowedBetweenTwoSteps) {
  for (const char* name : {"a", "b", "c"}) SaveAs(name);
  // The row in force is elsewhere now: it takes its change all the same.
  RemoveRow("a");
  const Profile before = Stored();
  Person().Pick(id::resolutionCombo, "300 dpi");
  EXPECT_EQ(Changed(before), "c");
  EXPECT_TRUE(Rows().starts_with("index=7 ")) << Rows();
  EXPECT_TRUE(Rows().ends_with("\"b\"/2,\"c\"/2")) << Rows();
  Person().Pick(id::resolutionCombo, "200 dpi");
  EXPECT_EQ(Changed(before), "c");
  // The file lost more than the row that is deleted.
  RemoveRow("b");
  RemoveRow("彩色文件 - 較快");
  Person().Click(id::deleteButton);
  EXPECT_TRUE(Rows().starts_with("index=4 ")) << Rows();
  EXPECT_EQ(Seen("dpi"), "100");
}

// The first ones in the file's order stand, and the file keeps them all.
TEST_F(EditedProfile, MayHoldMoreRowsThanTheList) {
  for (int i = 6; i < 31; ++i) SaveAs("row " + std::to_string(i));
  Edit([](std::string& text) {
    const std::size_t line = text.find("row 30=");
    const std::string value = text.substr(line + 6, text.find('\n', line) + 1 - line - 6);
    text.insert(line, "between" + value);
  });
  Person().Pick(id::sourceCombo, "反射");
  EXPECT_TRUE(Rows().ends_with("\"row 29\"/2,\"between\"/2")) << Rows();
  Person().ArrowTo(id::configList, 30);
  const Profile before = Stored();
  Person().Pick(id::resolutionCombo, "200 dpi");
  EXPECT_EQ(Changed(before), "between");
}

}  // namespace
}  // namespace set32
