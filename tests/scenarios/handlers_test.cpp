// Every control of the page on a factory row, the custom row and a row of the person's own: what the host hears, in
// order, and what becomes of the rows.
#include "tests/support/page_scenario.h"

namespace set32 {
namespace {

enum class Saves { no, yes };

using Act = std::function<void(User&, ScanSettings&)>;

Act Pick(int control, const char* entry) {
  return [=](User& person, ScanSettings&) { person.Pick(control, entry); };
}
Act Click(int control) {
  return [=](User& person, ScanSettings&) { person.Click(control); };
}
Act TypeAndLeave(int control, const char* text) {
  return [=](User& person, ScanSettings&) { person.Type(control, text), person.Leave(); };
}
template <typename Field>
Act Set(Field ScanSettings::*field, Field value) {
  return [=](User&, ScanSettings& record) { record.*field = value; };
}

struct HandlerCase {
  const char* name;
  Act act;
  std::string before;  // heard before the row is saved, with @ for the dpi of the row
  Saves saves;
  std::string after;
  std::uint32_t mode = mode::colour;  // after the act
  const char* box = "";               // in its text
  Act prepare = {};                   // what is heard of this isn't compared
};

const std::vector<HandlerCase> handlerCases = {
    {"another entry", Pick(id::resolutionCombo, "300 dpi"), "", Saves::yes, "401/0:300"},
    {"the same dpi", [](User& person, ScanSettings&) { person.Focus(id::resolutionEdit), person.Leave(); }, "",
     Saves::no, "401/0:@"},
    {"dpi of no entry", TypeAndLeave(id::resolutionEdit, "250"), "", Saves::yes, "401/0:250"},
    {"dpi too small", TypeAndLeave(id::resolutionEdit, "20"), "", Saves::no, "401/0:@", mode::colour, "75 與 4800"},
    {"dpi with high bit depth", TypeAndLeave(id::resolutionEdit, "700"), "", Saves::no, "401/0:@", mode::colour,
     "75 與 600", Set(&ScanSettings::highBitDepth, 1U)},
    {"page size", Pick(id::sizeCombo, "Letter(8.5\"x11\")"), "", Saves::yes, "402 paint"},
    {"size of the person's own", Pick(id::sizeCombo, "使用者定義"), "402", Saves::yes, "paint"},
    {"the same size", Pick(id::sizeCombo, "A4(8.25\"x11.69\")"), "402", Saves::no, ""},
    {"unit", Pick(id::unitCombo, "公分"), "405/1:@", Saves::no, ""},
    {"width", TypeAndLeave(id::widthEdit, "5.5"), "407 402 409/1", Saves::yes, "402 402"},
    {"height", [](User& person, ScanSettings&) { person.Type(id::heightEdit, "5"), person.PressKey(Key::enter); },
     "407 402 409/1", Saves::yes, "402 402"},
    {"width too small", TypeAndLeave(id::widthEdit, "0.1"), "407 402", Saves::no, "402 402", mode::colour,
     "0.30 與 8.50"},
    {"width past the preview's edge", TypeAndLeave(id::widthEdit, "4.6"), "407 402 409/1", Saves::no, "402 402",
     mode::colour, "", Set(&ScanSettings::frameLeft, 400)},
    {"width up to the preview's edge", TypeAndLeave(id::widthEdit, "4.49"), "407 402 409/1", Saves::yes, "402 402",
     mode::colour, "", Set(&ScanSettings::frameLeft, 400)},
    {"gray", Pick(id::modeCombo, "灰階"), "", Saves::yes, "paint 404:2 403", mode::gray},
    {"black and white", Pick(id::modeCombo, "黑白"), "403", Saves::yes, "paint 404:4 403", mode::blackWhite},
    {"the same mode", Pick(id::modeCombo, "全彩"), "", Saves::no, "paint 404:1 403"},
    {"a hidden button", [](User& person, ScanSettings&) { person.Poke(id::grayRadio); }, "", Saves::yes,
     "paint 404:2 403", mode::gray},
    {"auto crop on", Click(id::autoCropCheck), "409", Saves::yes, ""},
    {"auto crop off", Click(id::autoCropCheck), "409 402 402", Saves::yes, "", mode::colour, "",
     Set(&ScanSettings::autoCrop, 1U)},
    {"remove frame", Click(id::removeFrameButton), "403[3 0] 40B/-1", Saves::no, ""},
};

void PrintTo(const HandlerCase& one, std::ostream* out) {
  *out << one.name;
}

class Handlers : public PageScenario, public testing::WithParamInterface<HandlerCase> {
 protected:
  // Opens on a fresh profile and goes to one of the rows.
  void StandOn(const std::string& row) {
    Open();
    if (row == "mine") SaveAs(row);
    if (row == factoryRow) Person().ArrowTo(id::configList, 4);
    Forget();
  }

  static constexpr const char* factoryRow = "彩色文件 - 較佳品質";
};

TEST_P(Handlers, TellTheHostInOrderAndSaveWhereTheRowTakesIt) {
  const HandlerCase& one = GetParam();
  for (const std::string row : {factoryRow, customRow, "mine"}) {
    SCOPED_TRACE(row);
    StartAfresh();
    StandOn(row);
    const bool isFactory = row == factoryRow;
    const std::string dpi = isFactory ? "200" : "100";
    if (one.prepare) one.prepare(Person(), Record());
    const Profile before = Stored();

    one.act(Person(), Record());

    std::string lines;
    for (const std::string& line : Lines()) lines += line + '\n';
    const std::string nested = isFactory && one.saves == Saves::yes ? Refresh(one.mode) : "";
    std::string expected = Joined({one.before, nested, one.after});
    for (std::size_t at; (at = expected.find('@')) != std::string::npos;) expected.replace(at, 1, dpi);
    EXPECT_EQ(Told(), expected);
    const std::string target = isFactory ? customRow : row;
    EXPECT_EQ(Changed(before), one.saves == Saves::yes ? target : "");
    const std::string selected = isFactory && one.saves == Saves::no ? "index=4 "
                                 : row == "mine"                     ? "index=6 "
                                                                     : "index=5 ";
    EXPECT_TRUE(Shows(id::configList, selected));
    EXPECT_THAT(lines, testing::HasSubstr(one.box));
    EXPECT_EQ(lines.find("box") != std::string::npos, *one.box != '\0');
    EXPECT_FALSE(Host().SawForeignRecord());
  }
}

INSTANTIATE_TEST_SUITE_P(Page, Handlers, testing::ValuesIn(handlerCases));

// What the fields hold and the person sees after some of these acts.
struct OutcomeCase {
  const char* name;
  Act act;
  std::vector<std::pair<std::string, std::string>> seen;  // what `show` is asked, and what it says
};

class Outcomes : public PageScenario {};

TEST_F(Outcomes, OfActs) {
  const std::vector<OutcomeCase> cases = {
      {"an entry takes its dpi along",
       Pick(id::resolutionCombo, "600 dpi"),
       {{"dpi", "600"}, {"resolutionId", "256"}, {"1212", "edit visible enabled text=\"600\" low=75 high=19200"}}},
      {"the user-defined entry keeps dpi",
       Pick(id::resolutionCombo, "使用者定義"),
       {{"dpi", "100"}, {"resolutionId", "4096"}}},
      {"a typed dpi finds its entry",
       TypeAndLeave(id::resolutionEdit, "150"),
       {{"dpi", "150"}, {"resolutionId", "8"}}},
      {"a typed dpi of no entry is user-defined",
       TypeAndLeave(id::resolutionEdit, "151"),
       {{"dpi", "151"}, {"resolutionId", "4096"}}},
      {"an entered size is remembered, exchanged while rotated",
       [](User& p, ScanSettings& s) { s.rotated = 1, p.Focus(id::widthEdit), p.Leave(); },
       {{"customWidth", "8.5"}, {"customHeight", "8.5"}, {"sizeId", "4"}}},
      {"pixels follow the dpi",
       [](User& p, ScanSettings&) { p.Pick(id::unitCombo, "像素"), p.Pick(id::resolutionCombo, "300 dpi"); },
       {{"1252", "edit visible enabled text=\"2550\" low=90 high=2550"}, {"units", "0"}}},
      {"and a typed one",
       [](User& p, ScanSettings&) { p.Pick(id::unitCombo, "像素"), p.Type(id::resolutionEdit, "201"), p.Leave(); },
       {{"1252", "edit visible enabled text=\"1708\" low=60.3 high=1708.5"}}},
      {"a choice of mode restricts the list anew",
       [](User& p, ScanSettings& s) { s.descreen = 1, s.dpi = 1200, p.Pick(id::modeCombo, "灰階"); },
       {{"dpi", "600"}, {"1212", "edit visible enabled text=\"600\" low=75 high=600"}}},
      {"the hidden buttons follow the row",
       [](User& p, ScanSettings&) { p.ArrowTo(id::configList, 2); },
       {{"1205", "radio hidden enabled text=\"\" checked=0"}, {"1206", "radio hidden enabled text=\"\" checked=1"}}},
      {"a page size ends auto crop and begins at the corner",
       [](User& p, ScanSettings& s) {
         p.Click(id::autoCropCheck);
         s.frameLeft = s.frameTop = 9;
         p.Pick(id::sizeCombo, "5x7");
       },
       {{"autoCrop", "0"},
        {"1006", "check visible enabled text=\"自動裁切\" checked=0"},
        {"frameLeft", "0"},
        {"frameTop", "0"}}},
      {"centimetres are typed and shown",
       [](User& p, ScanSettings&) { p.Pick(id::unitCombo, "公分"), p.Type(id::widthEdit, "2.54"), p.Leave(); },
       {{"sizeId", "7"}, {"1252", "edit visible enabled text=\"2.54\" low=0.762 high=21.59"}, {"units", "0"}}},
      {"a refused width leaves all as it was",
       TypeAndLeave(id::widthEdit, "0.2"),
       {{"width", "8.5"}, {"sizeId", "4"}, {"1252", "edit visible enabled text=\"8.50\" low=0.3 high=8.5"}}},
      {"a typed size ends auto crop",
       [](User& p, ScanSettings&) { p.Click(id::autoCropCheck), p.Type(id::heightEdit, "4"), p.Leave(); },
       {{"autoCrop", "0"}, {"height", "4"}, {"1006", "check visible enabled text=\"自動裁切\" checked=0"}}},
      {"auto crop keeps frames from being removed",
       Click(id::autoCropCheck),
       {{"autoCrop", "1"}, {"5005", "button visible disabled text=\"移除\""}}},
      {"auto crop off gives Letter",
       [](User& p, ScanSettings& s) {
         s.frameLeft = s.frameTop = 9;
         p.Click(id::autoCropCheck), p.Click(id::autoCropCheck);
       },
       {{"sizeId", "3"},
        {"height", "11"},
        {"frameLeft", "0"},
        {"frameTop", "0"},
        {"5005", "button visible enabled text=\"移除\""}}},
      {"the user-defined size leaves auto crop",
       [](User& p, ScanSettings&) { p.Click(id::autoCropCheck), p.Pick(id::sizeCombo, "使用者定義"); },
       {{"autoCrop", "1"}, {"sizeId", "7"}}},
      {"black and white resets what it can't use",
       [](User& p, ScanSettings& s) {
         s.brightness = 20, s.contrast = s.hue = s.saturation = s.sharpness = 5, s.descreen = 1, s.gammaRed = 2.5;
         p.Pick(id::modeCombo, "黑白");
       },
       {{"brightness", "20"},
        {"contrast", "0"},
        {"hue", "0"},
        {"sharpness", "0"},
        {"descreen", "0"},
        {"gammaRed", "1"}}},
      {"gray has no colours to turn",
       [](User& p, ScanSettings& s) { s.hue = s.saturation = s.sharpness = 5, p.Pick(id::modeCombo, "灰階"); },
       {{"saturation", "0"}, {"hue", "0"}, {"sharpness", "5"}}},
  };
  for (const OutcomeCase& one : cases) {
    SCOPED_TRACE(one.name);
    StartAfresh();
    Open();
    one.act(Person(), Record());
    for (const auto& [asked, seen] : one.seen) EXPECT_EQ(Seen(asked), seen) << asked;
  }
}

TEST_F(Outcomes, OfTheHiddenButtonsAreModes) {
  Open();
  for (const auto& [button, mode] : {std::pair{id::grayButton, mode::gray},
                                     {id::colourRadio, mode::colour},
                                     {id::bwButton, mode::blackWhite},
                                     {id::grayRadio, mode::gray},
                                     {id::bwRadio, mode::blackWhite},
                                     {id::colourButton, mode::colour}}) {
    Person().Poke(button);
    EXPECT_EQ(Record().mode, mode) << button;
  }
}

TEST_F(Outcomes, OfOpenedListsAreTheirWidths) {
  OfferSources();
  Open();
  for (const int list : {id::sizeCombo, id::resolutionCombo, id::scannerCombo, id::sourceCombo}) {
    auto& combo = dynamic_cast<Combo&>(TheSession().TheDesk().Require(User::Target(list)).control);
    const int closed = combo.DroppedWidth();
    combo.Add(std::string(60, 'W'));
    Person().DropList(list);
    EXPECT_GT(combo.DroppedWidth(), closed) << list;
  }
}

// What a saved change sends in the middle of a refresh may make the host write its word; the refresh puts it back.
TEST_F(Outcomes, OfARefreshLeaveTheHostsWord) {
  Open();
  Person().ArrowTo(id::configList, 2);
  Forget();
  Record().hostWord = 7;
  Record().sizeId = size_id::legal;  // not on the flatbed
  int refreshes = 0;
  OnEveryLine([&](const std::string& line) {
    if (line.starts_with("host 0x404") && ++refreshes == 1) Record().hostWord = 8;
  });
  ASSERT_TRUE(TheSession().Open());
  EXPECT_EQ(Told(), Joined({Refresh(mode::gray), "paint", Refresh(mode::gray)}));
  EXPECT_EQ(Record().hostWord, 7U);
  EXPECT_EQ(Record().sizeId, size_id::none);
}

TEST_F(Outcomes, OfARowReachThePreview) {
  Open();
  CDib& preview = *Host().Preview().Dib();
  Record().brightness = -40;
  Record().gammaAll = 2;
  SaveAs("dark");
  Person().ArrowTo(id::configList, 2);
  EXPECT_EQ(preview.brightness, 0);
  Person().ArrowTo(id::configList, 6);
  EXPECT_EQ(preview.brightness, -40);
  EXPECT_EQ(preview.gammaBlue, 2.0);
}

TEST_F(Outcomes, OfALowPageAreRowsBesideAScrollBar) {
  Open();
  const auto& list = dynamic_cast<List&>(TheSession().TheDesk().Require(User::Target(id::configList)).control);
  const Size page = TheSession().TheDesk().Require(User::Target(id::configList)).dialog.ClientSize();
  Person().Resize({page.width, page.height - 100});
  const int scrollBar = TheSession().Outside().ThePlatform().windows.ScrollBarWidth();
  EXPECT_EQ(list.ColumnWidth(), list.InnerWidth() - scrollBar);
}

}  // namespace
}  // namespace set32
