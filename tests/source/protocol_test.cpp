// The protocol's rules: which operation has a place in which state, what bad input gets, what an application's values
// become.
#include "tests/source/source_fixture.h"

namespace data_source {
namespace {

namespace cap = twain::cap;
namespace condition = twain::condition;
namespace data = twain::data;
namespace group = twain::group;
namespace message = twain::message;
namespace result = twain::result;
using testing::ElementsAre;
using testing::HasSubstr;

std::string WhitePage() {
  return BitmapFile(85, 110, 10, [](int, int) { return std::array{255, 255, 255}; });
}

class Protocol : public SourceCase {
 protected:
  // From a fresh source to a state of the protocol.
  void Reach(int state) {
    pages_.Write("a.bmp", WhitePage());
    twain::PendingTransfers pending{};
    Call(group::control, data::pendingTransfers, message::reset, &pending);
    Call(group::control, data::userInterface, message::disable);
    Call(group::control, data::identity, message::closeSource);
    if (state >= 4) Open();
    twain::SetupFile setup{{}, twain::file_format::bmp, 0};
    std::strncpy(setup.name, pages_.Path("out").c_str(), sizeof setup.name - 1);
    Ask(group::control, data::setupFile, message::set, setup);
    if (state >= 5) Enable(false);
    if (state >= 6) Pump();
    messages_.waiting.clear();
    twain::Handle bitmap = nullptr;
    if (state >= 7) Ask(group::image, data::imageNative, message::get, bitmap);
    ASSERT_EQ(source_.State(), state);
  }
};

TEST_F(Protocol, RefusesWhatIsOutOfSequenceAndChangesNothing) {
  const struct {
    std::uint32_t group;
    std::uint16_t data, message;
    const char* states;  // in which it has a place
  } rows[] = {{group::control, data::identity, message::openSource, "3"},
              {group::control, data::identity, message::closeSource, "4567"},
              {group::control, data::userInterface, message::enable, "4"},
              {group::control, data::userInterface, message::enableForSettings, "4"},
              {group::control, data::userInterface, message::disable, "5"},
              {group::control, data::event, message::processEvent, "567"},
              {group::control, data::capability, message::get, "4567"},
              {group::control, data::capability, message::set, "4"},
              {group::control, data::customData, message::set, "4"},
              {group::control, data::pendingTransfers, message::get, "4567"},
              {group::control, data::pendingTransfers, message::endTransfer, "67"},
              {group::control, data::pendingTransfers, message::reset, "67"},
              {group::control, data::setupMemory, message::get, "456"},
              {group::control, data::setupFile, message::set, "456"},
              {group::image, data::imageLayout, message::set, "4"},
              {group::image, data::imageInfo, message::get, "67"},
              {group::image, data::imageNative, message::get, "6"},
              {group::image, data::imageMemory, message::get, "67"},
              {group::image, data::imageFile, message::get, "6"}};
  for (const auto& row : rows) {
    for (int state = 3; state <= 7; ++state) {
      SCOPED_TRACE(testing::Message() << row.data << " " << row.message << " in state " << state);
      ASSERT_NO_FATAL_FAILURE(Reach(state));
      std::vector<std::uint8_t> record(1024);
      Condition();
      const std::uint16_t answer = Call(row.group, row.data, row.message, record.data());
      const bool hasPlace = std::string(row.states).find(static_cast<char>('0' + state)) != std::string::npos;
      EXPECT_EQ(answer == result::failure && Condition() == condition::sequenceError, !hasPlace);
      EXPECT_TRUE(hasPlace || source_.State() == state);
    }
  }
}

TEST_F(Protocol, AnswersNullPointersAndWhatItDoesNotKnow) {
  for (int state = 3; state <= 7; ++state) {
    ASSERT_NO_FATAL_FAILURE(Reach(state));
    for (const std::uint32_t of : {group::control, group::image}) {
      for (std::uint16_t about = 0; about < 0x110; ++about) {
        if (about == data::imageFile) continue;  // which has no record
        for (std::uint16_t what = 0; what < 9; ++what)
          EXPECT_EQ(Call(of, about, what), result::failure) << about << " " << what << " in " << state;
      }
    }
    EXPECT_EQ(source_.State(), state);
  }
  EXPECT_EQ(Call(group::control, 0x777, message::get), result::failure);
  EXPECT_EQ(Condition(), condition::badProtocol);
  EXPECT_EQ(Condition(), condition::success) << "a failure is told once";
}

TEST_F(Protocol, RefusesBadContainers) {
  ASSERT_EQ(Open(), result::success);
  const std::vector<std::uint8_t> dpi200 = Encode({twain::container::oneValue, twain::type::fixed, {200}});
  const std::vector<std::uint8_t> pixelTypes = Encode({twain::container::enumeration, twain::type::uint16, {0, 1}});
  std::vector<std::uint8_t> manyTypes = pixelTypes, farTypes = pixelTypes;
  manyTypes[5] = 0x80;  // two thousand millions of them
  farTypes[6] = 7;      // the current one isn't in the list
  const struct {
    const char* what;
    std::uint16_t cap, container;
    std::vector<std::uint8_t> bytes;
    std::uint16_t why;
  } rows[] = {
      {"an unknown capability", 0x1999, twain::container::oneValue, dpi200, condition::capUnsupported},
      {"one that can't be set", cap::physicalWidth, twain::container::oneValue, dpi200, condition::capBadOperation},
      {"an unknown container", cap::resolutionX, 99, dpi200, condition::badValue},
      {"another type", cap::pixelType, twain::container::oneValue, dpi200, condition::badValue},
      {"a short value", cap::resolutionX, twain::container::oneValue, {7, 0, 1}, condition::badValue},
      {"nothing", cap::resolutionX, twain::container::oneValue, {}, condition::badValue},
      {"an unknown type", cap::pixelType, twain::container::oneValue, {99, 0, 0, 0, 0, 0}, condition::badValue},
      {"a short range", cap::resolutionX, twain::container::range, dpi200, condition::badValue},
      {"a list longer than its bytes", cap::pixelType, twain::container::enumeration, manyTypes, condition::badValue},
      {"a list without its current", cap::pixelType, twain::container::enumeration, farTypes, condition::badValue},
      {"an array", cap::pixelType, twain::container::array, pixelTypes, condition::badValue}};
  for (const auto& row : rows) {
    twain::Capability record{row.cap, row.container, memory_.Lay(row.bytes)};
    EXPECT_EQ(Ask(group::control, data::capability, message::set, record), result::failure) << row.what;
    EXPECT_EQ(Condition(), row.why) << row.what;
  }
  twain::Capability none{cap::pixelType, twain::container::oneValue, nullptr};
  EXPECT_EQ(Ask(group::control, data::capability, message::set, none), result::failure);
  const std::pair<std::uint16_t, double> values[] = {
      {cap::resolutionX, 74}, {cap::resolutionY, 601}, {cap::pixelType, 3},       {cap::mechanism, 7},
      {cap::units, 4},        {cap::fileFormat, 3},    {cap::transferCount, 0},   {cap::brightness, 1001},
      {cap::bitDepth, 8},     {cap::compression, 6},   {cap::supportedSizes, 11}, {cap::threshold, -1}};
  for (const auto& [id, value] : values) EXPECT_EQ(Set(id, value), result::failure) << id << " " << value;
  memory_.isShort = true;
  EXPECT_FALSE(Get(cap::units));
  EXPECT_EQ(Condition(), condition::lowMemory);
}

TEST_F(Protocol, AnswersEachCapabilityItLists) {
  ASSERT_EQ(Open(), result::success);
  const std::optional<Values> listed = Get(cap::supportedCaps, message::get);
  ASSERT_TRUE(listed);
  EXPECT_EQ(listed->numbers.size(), Capabilities().size());
  for (const double id : listed->numbers) {
    const auto capability = static_cast<std::uint16_t>(id);
    const std::optional<Values> offered = Get(capability, message::get),
                                standard = Get(capability, message::getDefault);
    ASSERT_TRUE(offered && standard && Get(capability, message::querySupport)) << id;
    EXPECT_FALSE(offered->numbers.empty()) << id;
    // What is told to be the default can be set, and stands after a reset.
    if ((FindCapability(capability)->Support() & twain::support::set) == 0) continue;
    EXPECT_EQ(Set(capability, *standard), result::success) << id;
    EXPECT_TRUE(Get(capability, message::reset)) << id;
    EXPECT_EQ(Get(capability)->numbers, standard->numbers) << id;
  }
}

TEST_F(Protocol, LaysAnApplicationsValuesIntoTheRecordAndBack) {
  ASSERT_EQ(Open(), result::success);
  for (const auto& [id, value] :
       std::initializer_list<std::pair<std::uint16_t, double>>{{cap::pixelType, twain::pixel_type::gray},
                                                               {cap::resolutionX, 250},
                                                               {cap::bitDepth, 16},
                                                               {cap::brightness, 420},
                                                               {cap::contrast, -300},
                                                               {cap::supportedSizes, twain::supported_size::b5},
                                                               {cap::units, twain::unit::centimetres}})
    ASSERT_EQ(Set(id, value), result::success) << id;
  EXPECT_NEAR(Current(cap::resolutionY), 250 / 2.54, 0.01);
  EXPECT_NEAR(Current(cap::physicalWidth), 8.5 * 2.54, 0.01);
  twain::CustomData stored{};
  ASSERT_EQ(Ask(group::control, data::customData, message::get, stored), result::success);
  ASSERT_EQ(stored.length, 192U);
  set32::ScanSettings record{};
  std::memcpy(&record, memory_.Lock(stored.data), sizeof record);
  EXPECT_EQ(record.mode, set32::mode::gray);
  EXPECT_EQ(record.dpi, 250);
  EXPECT_EQ(record.resolutionId, set32::resolution::userDefined);
  EXPECT_EQ(record.highBitDepth, 1U);
  EXPECT_EQ(record.brightness, 42);
  EXPECT_EQ(record.contrast, -30);
  EXPECT_EQ(record.sizeId, set32::size_id::b5);
  EXPECT_EQ(record.units, set32::unit::centimetre);

  // At the panel these stand over what a person used last; the page keeps its own paper source.
  ASSERT_EQ(Set(cap::feederEnabled, 1), result::success);
  ASSERT_EQ(Enable(true), result::success);
  EXPECT_EQ(dialog_.record.dpi, 250);
  EXPECT_EQ(dialog_.record.brightness, 42);
  EXPECT_EQ(dialog_.record.sharpness, 0);
  EXPECT_EQ(dialog_.record.paperSource, set32::paper_source::flatbed);

  // And a later session takes the record as it was stored.
  Call(group::control, data::userInterface, message::disable);
  Call(group::control, data::identity, message::closeSource);
  ASSERT_EQ(Open(), result::success);
  EXPECT_EQ(Current(cap::resolutionX), 100);
  ASSERT_EQ(Ask(group::control, data::customData, message::set, stored), result::success);
  EXPECT_EQ(Current(cap::brightness), 420);
  record.dpi = 100000;
  twain::CustomData wrong{sizeof record, memory_.Allocate(sizeof record)};
  std::memcpy(memory_.Lock(wrong.data), &record, sizeof record);
  EXPECT_EQ(Ask(group::control, data::customData, message::set, wrong), result::failure);
  wrong.length = 1U << 30;
  EXPECT_EQ(Ask(group::control, data::customData, message::set, wrong), result::failure);
  EXPECT_EQ(Condition(), condition::badValue);
  EXPECT_EQ(Current(cap::brightness), 420);
}

TEST_F(Protocol, GivesOneImageForEachFrameOfEachPage) {
  for (const char* name : {"feeder/1.bmp", "feeder/2.BMP"}) pages_.Write(name, WhitePage());
  ASSERT_EQ(Open(), result::success);
  ASSERT_EQ(Set(cap::feederEnabled, 1), result::success);
  EXPECT_EQ(Current(cap::feederLoaded), 1);
  const Values frames{twain::container::enumeration, twain::type::frame, {0, 0, 1, 2, 1.5, 2, 4, 3.25}};
  ASSERT_EQ(Set(cap::frames, frames), result::success);
  EXPECT_EQ(Get(cap::frames, message::get)->numbers, frames.numbers);
  EXPECT_EQ(Set(cap::frames, {frames.container, frames.type, {0, 0, 9, 2}}), result::failure) << "beside the glass";
  ASSERT_EQ(Enable(false), result::success);
  Pump();
  EXPECT_THAT(messages_.told, ElementsAre(message::transferReady));
  int image = 0;
  do {
    const twain::ImageInfo info = Info();
    EXPECT_EQ(info.width, image % 2 == 0 ? 100 : 250);
    EXPECT_EQ(info.length, image % 2 == 0 ? 200 : 125);
    twain::ImageLayout layout{};
    Ask(group::image, data::imageLayout, message::get, layout);
    EXPECT_EQ(layout.page, static_cast<std::uint32_t>(image / 2 + 1));
    EXPECT_EQ(layout.frameNumber, static_cast<std::uint32_t>(image % 2 + 1));
    twain::Handle bitmap = nullptr;
    EXPECT_EQ(Ask(group::image, data::imageNative, message::get, bitmap), result::transferDone);
    ++image;
  } while (EndTransfer() > 0);
  EXPECT_EQ(image, 4);
  EXPECT_EQ(source_.State(), 5);
}

TEST_F(Protocol, TellsOfAnEmptyFeederAndKeepsItsState) {
  ASSERT_EQ(Open(), result::success);
  for (const double feeds : {0.0, 1.0}) {
    ASSERT_EQ(Set(cap::feederEnabled, feeds), result::success);
    EXPECT_EQ(Enable(false), result::failure);
    EXPECT_EQ(Condition(), condition::noMedia);
    EXPECT_EQ(source_.State(), 4);
  }
  ASSERT_EQ(Enable(true), result::success);
  EXPECT_THAT(source_.OnScan(NewSettings(), {}), HasSubstr("No page")) << "which the dialog shows";
  EXPECT_EQ(source_.State(), 5);
  EXPECT_FALSE(dialog_.isBusy);

  // A page that is none is found when its image is asked for, which then still waits.
  pages_.Write("a.bmp", "no bitmap at all");
  EXPECT_EQ(source_.OnScan(NewSettings(), {}), "");
  Pump();
  twain::Handle bitmap = nullptr;
  EXPECT_EQ(Ask(group::image, data::imageNative, message::get, bitmap), result::failure);
  EXPECT_EQ(source_.State(), 6);
  twain::StatusText text{};
  ASSERT_EQ(Ask(group::control, data::statusText, message::get, text), result::success);
  EXPECT_THAT(static_cast<const char*>(memory_.Lock(text.text)), HasSubstr("a.bmp"));
  EXPECT_EQ(EndTransfer(), 0);
}

TEST_F(Protocol, AsksToBeClosedAndTellsWhatNoManagerTook) {
  ASSERT_NO_FATAL_FAILURE(Reach(4));
  dialog_.missing = "C:\\set32.dll can't be loaded.";
  EXPECT_EQ(Enable(true), result::failure);
  EXPECT_EQ(Condition(), condition::bummer);
  EXPECT_EQ(source_.State(), 4);
  dialog_.missing.clear();

  ASSERT_EQ(Enable(true), result::success);
  source_.OnClose();
  EXPECT_THAT(messages_.told, testing::IsEmpty()) << "not before the call has returned";
  Pump();
  EXPECT_THAT(messages_.told, ElementsAre(message::closeRequest));
  EXPECT_EQ(source_.State(), 5) << "nothing is transferred";
  EXPECT_EQ(Call(group::control, data::userInterface, message::disable), result::success);
  EXPECT_FALSE(dialog_.stands);

  ASSERT_EQ(Enable(true, message::enableForSettings), result::success);
  set32::ScanSettings chosen = NewSettings();
  chosen.dpi = 400;
  EXPECT_EQ(source_.OnScan(chosen, {}), "");
  messages_.hasManager = false;
  Pump();
  int anything = 0;
  twain::Event event{&anything, 7};
  EXPECT_EQ(Ask(group::control, data::event, message::processEvent, event), result::sourceEvent);
  EXPECT_EQ(event.message, message::closeOk);
  EXPECT_EQ(Ask(group::control, data::event, message::processEvent, event), result::notSourceEvent);
  EXPECT_EQ(event.message, message::null);
  Call(group::control, data::userInterface, message::disable);
  EXPECT_EQ(Current(cap::resolutionX), 400);

  // Disabled before the news was delivered: it is none any more.
  ASSERT_EQ(Enable(false), result::success);
  EXPECT_EQ(Call(group::control, data::userInterface, message::disable), result::success);
  Pump();
  EXPECT_EQ(source_.State(), 4);
}

TEST_F(Protocol, TransfersTheSamePixelsOnEachRoad) {
  pages_.Write("a.bmp", BitmapFile(40, 30, 100, [](int x, int y) { return std::array{x * 6, y * 8, (x + y) * 3}; }));
  const std::string file = pages_.Path("out/none.bmp"), good = pages_.Path("out.bmp");
  ASSERT_EQ(Open(), result::success);
  twain::ImageLayout layout{{{0, 0}, {0, 0}, ToFixed(0.37), ToFixed(0.2)}, 1, 1, 1};
  ASSERT_EQ(Ask(group::image, data::imageLayout, message::set, layout), result::success);
  ASSERT_EQ(Enable(false), result::success);
  Pump();
  twain::SetupFile setup{};
  EXPECT_EQ(Ask(group::control, data::setupFile, message::set, setup), result::failure) << "no name";
  std::memset(setup.name, 'x', sizeof setup.name);
  setup.format = twain::file_format::bmp;
  EXPECT_EQ(Ask(group::control, data::setupFile, message::set, setup), result::failure) << "a name without an end";
  setup = {{}, twain::file_format::bmp, 0};
  std::strncpy(setup.name, file.c_str(), sizeof setup.name - 1);
  ASSERT_EQ(Ask(group::control, data::setupFile, message::set, setup), result::success);
  EXPECT_EQ(Ask(group::image, data::imageFile, message::get, setup), result::failure);
  EXPECT_EQ(Condition(), condition::fileWriteError);
  EXPECT_EQ(source_.State(), 6);
  std::strncpy(setup.name, good.c_str(), sizeof setup.name - 1);
  ASSERT_EQ(Ask(group::control, data::setupFile, message::set, setup), result::success);
  EXPECT_EQ(Call(group::image, data::imageFile, message::get), result::transferDone);
  const std::string written = pages_.Read("out.bmp");
  EXPECT_EQ(EndTransfer(), 0);
  Call(group::control, data::userInterface, message::disable);

  ASSERT_EQ(Enable(false), result::success);
  Pump();
  twain::Handle bitmap = nullptr;
  EXPECT_EQ(Ask(group::image, data::imageNative, message::get, bitmap), result::transferDone);
  const auto* bytes = static_cast<const char*>(memory_.Lock(bitmap));
  EXPECT_EQ(written.substr(14), std::string(bytes, memory_.Size(bitmap)));
  const std::size_t stride = 37 * 3 + 1, pixels = 54;
  ASSERT_EQ(written.size(), pixels + stride * 20);
  EXPECT_EQ(written.substr(pixels + 19 * stride + 15, 3), std::string({30, 0, 15})) << "of the uppermost row";
  EndTransfer();
  Call(group::control, data::userInterface, message::disable);

  ASSERT_EQ(Enable(false), result::success);
  Pump();
  twain::SetupMemory wanted{};
  ASSERT_EQ(Ask(group::control, data::setupMemory, message::get, wanted), result::success);
  EXPECT_EQ(wanted.least, stride);
  std::vector<std::uint8_t> strip(3 * stride + 5);
  twain::ImageMemory transfer{};
  transfer.memory = {twain::memory_flag::applicationOwns | twain::memory_flag::pointer, 3, strip.data()};
  EXPECT_EQ(Ask(group::image, data::imageMemory, message::get, transfer), result::failure) << "no row fits";
  std::uint32_t rows = 0;
  std::uint16_t answer = 0;
  do {
    transfer.memory.length = static_cast<std::uint32_t>(strip.size());
    answer = Ask(group::image, data::imageMemory, message::get, transfer);
    for (std::uint32_t row = 0; row < transfer.rows; ++row) {
      const std::string line = written.substr(pixels + (19 - rows - row) * stride, 111);
      for (std::size_t x = 0; x < 37; ++x) {
        for (std::size_t band = 0; band < 3; ++band)
          EXPECT_EQ(static_cast<char>(strip[row * stride + x * 3 + band]), line[x * 3 + 2 - band]);
      }
    }
    EXPECT_EQ(std::uint32_t{transfer.offsetY}, rows);  // a copy: the record is packed
    rows += transfer.rows;
  } while (answer == result::success);
  EXPECT_EQ(answer, result::transferDone);
  EXPECT_EQ(rows, 20U);
  EXPECT_EQ(Ask(group::image, data::imageMemory, message::get, transfer), result::failure) << "there is no more";
}

}  // namespace
}  // namespace data_source
