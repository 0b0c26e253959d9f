// The whole road on real windows: an application, the system's source manager, the source, its panel, and images.
// tools/windows/check-scan.sh lays the source where the manager finds it, and runs this.
#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>
#include <psapi.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>

#include "tests/dll/live_handles.h"
#include "tests/scan_road/scan_road.h"

namespace scan_road {
namespace {

namespace cap = twain::cap;
namespace data = twain::data;
namespace group = twain::group;
namespace id = set32::id;
namespace message = twain::message;
namespace result = twain::result;
namespace type = twain::type;
using testing::HasSubstr;

constexpr DWORD patience = 20000;

TEST_F(ScanRoad, SettingsMadeAtThePanelArriveInTheImages) {
  Acquisition application;
  ASSERT_NO_FATAL_FAILURE(Open(application));
  ASSERT_TRUE(application.Set(cap::pixelType, type::uint16, twain::pixel_type::rgb));
  ASSERT_TRUE(application.Set(cap::resolutionX, type::fixed, 100));
  ASSERT_TRUE(application.Enable(true)) << application.Trouble();
  const Person person(application);
  ASSERT_TRUE(person.Page());
  EXPECT_EQ(GetWindow(person.Dialog(), GW_OWNER), parent_);

  person.Press(person.Control(id::resolutionCombo), VK_DOWN, 2);  // from 100 by 150 to 200 dpi
  person.Press(person.Control(id::modeCombo), VK_DOWN);           // from colour to gray
  const HWND slider = person.Slider(1);
  ASSERT_TRUE(slider);
  person.Press(slider, VK_RIGHT, 8);
  const int brightness = person.Number(slider, set32::id148::firstEdit);
  EXPECT_GT(brightness, 0);
  person.Drag(200, 100, 450, 300);
  person.Drag(500, 400, 800, 900);
  EXPECT_EQ(SendMessageW(person.Control(id::frameTabs), TCM_GETITEMCOUNT, 0, 0), 2);
  person.Click(data_source::button::preview);
  person.Click(data_source::button::scan);
  ASSERT_EQ(application.Wait(patience), message::transferReady);

  set32::ScanSettings settings = data_source::NewSettings();
  settings.mode = set32::mode::gray;
  settings.dpi = 200;
  settings.brightness = brightness;
  std::vector<Area> areas;
  const std::vector<Bitmap> images = Take(application, [&] { areas.push_back(LayoutOf(application)); });
  ASSERT_EQ(images.size(), 2U);
  for (std::size_t i = 0; i < images.size(); ++i) {
    const set32::BitmapInfoHeader header = HeaderOf(images[i]);
    EXPECT_EQ(header.bitCount, 8);
    EXPECT_NEAR(header.pixelsPerMetreX * 0.0254, 200, 0.1);
    EXPECT_NEAR(header.width, areas[i].width * 200, 1);
    EXPECT_NEAR(header.height, areas[i].height * 200, 1);
    EXPECT_GT(header.width, 200);
    EXPECT_TRUE(images[i] == Expected(settings, areas[i])) << "pixels of frame " << i;
    EXPECT_FALSE(images[i] == Expected(data_source::NewSettings(), areas[i]));
  }
  EXPECT_LT(areas[0].left + areas[0].width, areas[1].left + 0.5);

  // What a person chose is what the application finds.
  const auto told = application.Get(cap::brightness);
  ASSERT_TRUE(told);
  EXPECT_EQ(told->numbers.front(), brightness * 10);
  EXPECT_EQ(application.Get(cap::pixelType)->numbers.front(), twain::pixel_type::gray);
  EXPECT_TRUE(application.Disable());
  EXPECT_FALSE(IsWindow(person.Dialog()));
}

TEST_F(ScanRoad, FramesWithoutThePanelAndWithoutAWindow) {
  DestroyWindow(parent_);
  parent_ = nullptr;
  Acquisition application;
  ASSERT_NO_FATAL_FAILURE(Open(application));
  ASSERT_TRUE(
      application.Set(cap::frames, {twain::container::enumeration, type::frame, {0, 0, 4, 5, 4, 5, 8.5, 11}}));
  ASSERT_TRUE(application.Set(cap::resolutionX, type::fixed, 75));
  for (int i = 0; i < 2; ++i) {
    ASSERT_TRUE(application.Enable(false)) << application.Trouble();
    ASSERT_EQ(application.Wait(patience), message::transferReady);
    const std::vector<Bitmap> images = Take(application);
    ASSERT_EQ(images.size(), 2U);
    set32::ScanSettings settings = data_source::NewSettings();
    settings.dpi = 75;
    EXPECT_TRUE(images[0] == Expected(settings, {0, 0, 4, 5}));
    EXPECT_TRUE(images[1] == Expected(settings, {4, 5, 4.5, 6}));
    EXPECT_TRUE(application.Disable());
  }
}

TEST_F(ScanRoad, AnApplicationsValuesStandAtThePanelEachTime) {
  Acquisition application;
  ASSERT_NO_FATAL_FAILURE(Open(application));
  const double dpis[] = {150, 300};
  for (const double dpi : dpis) {
    ASSERT_TRUE(application.Set(cap::resolutionX, type::fixed, dpi));
    twain::ImageLayout layout{{{1, 0}, {2, 0}, {3, 0}, {5, 0}}, 1, 1, 1};
    ASSERT_EQ(application.Call(group::image, data::imageLayout, message::set, &layout), result::success);
    ASSERT_TRUE(application.Enable(true, true)) << application.Trouble();
    EXPECT_FALSE(IsWindowEnabled(parent_)) << "the source is modal";
    const Person person(application);
    wchar_t text[16] = L"";
    GetWindowTextW(person.Control(id::resolutionEdit), text, 16);
    EXPECT_EQ(std::wstring(text), std::to_wstring(static_cast<int>(dpi)));
    PostMessageW(person.Dialog(), WM_KEYDOWN, VK_RETURN, 1);  // the button that Enter presses
    ASSERT_EQ(application.Wait(patience), message::transferReady);
    const std::vector<Bitmap> images = Take(application);
    ASSERT_EQ(images.size(), 1U);
    EXPECT_EQ(HeaderOf(images[0]).width, 2 * dpi);
    EXPECT_EQ(HeaderOf(images[0]).height, 3 * dpi);
    EXPECT_TRUE(application.Disable());
    EXPECT_TRUE(IsWindowEnabled(parent_));
  }
}

TEST_F(ScanRoad, AScanThatIsCancelledTransfersNothing) {
  Acquisition application;
  ASSERT_NO_FATAL_FAILURE(Open(application));
  for (const bool byButton : {true, false}) {
    ASSERT_TRUE(application.Enable(true)) << application.Trouble();
    const Person person(application);
    if (byButton) {
      person.Click(data_source::button::close);
    } else {
      PostMessageW(person.Dialog(), WM_CLOSE, 0, 0);
    }
    EXPECT_EQ(application.Wait(patience), message::closeRequest);
    EXPECT_FALSE(application.Transfer());
    EXPECT_EQ(application.EndTransfer(), -1);
    EXPECT_TRUE(application.Disable());
  }
  ASSERT_TRUE(application.Enable(true, false, message::enableForSettings));
  Person(application).Click(data_source::button::scan);
  EXPECT_EQ(application.Wait(patience), message::closeOk);
}

TEST_F(ScanRoad, ASourceThatIsClosedInTheMiddleOpensAgain) {
  for (const bool hasPanel : {true, false, true}) {
    Acquisition application;
    ASSERT_NO_FATAL_FAILURE(Open(application));
    ASSERT_TRUE(application.Set(cap::frames, {twain::container::enumeration, type::frame, {0, 0, 1, 1, 1, 1, 2, 2}}));
    ASSERT_TRUE(application.Enable(hasPanel)) << application.Trouble();
    const Person person(application);
    if (hasPanel) person.Click(data_source::button::scan);
    ASSERT_EQ(application.Wait(patience), message::transferReady);
    ASSERT_TRUE(application.Transfer());
    application.CloseSource();
    EXPECT_FALSE(IsWindow(person.Dialog()) && hasPanel);
  }
}

TEST_F(ScanRoad, TellsWhatIsMissing) {
  Acquisition application;
  ASSERT_NO_FATAL_FAILURE(Open(application));
  ASSERT_TRUE(application.Set(cap::feederEnabled, type::boolean, 1));
  EXPECT_FALSE(application.Enable(false));
  EXPECT_THAT(application.Trouble(), HasSubstr("The feeder is empty."));
  for (const char* name : {"1.bmp", "2.bmp", "3.bmp"}) WritePage(PagesFolder() / "feeder" / name);
  ASSERT_TRUE(application.Enable(false));
  ASSERT_EQ(application.Wait(patience), message::transferReady);
  EXPECT_EQ(Take(application).size(), 3U);
  EXPECT_TRUE(application.Disable());

  const fs::path library = L"C:\\windows\\twain_32\\set32.dll", away = L"C:\\windows\\twain_32\\away.dll";
  fs::rename(library, away);
  EXPECT_FALSE(application.Enable(true));
  EXPECT_THAT(application.Trouble(), HasSubstr("set32.dll"));
  fs::rename(away, library);
  ASSERT_TRUE(application.Enable(true)) << application.Trouble();
}

// High depths go strip by strip, and only then the panel offers them.
TEST_F(ScanRoad, HighDepthGoesThroughMemory) {
  Acquisition application;
  ASSERT_NO_FATAL_FAILURE(Open(application));
  ASSERT_TRUE(application.Set(cap::mechanism, type::uint16, twain::mechanism::memory));
  ASSERT_TRUE(application.Set(cap::bitDepth, type::uint16, 48));
  ASSERT_TRUE(application.Set(cap::supportedSizes, type::uint16, twain::supported_size::businessCard));
  ASSERT_TRUE(application.Enable(true)) << application.Trouble();
  Person(application).Click(data_source::button::scan);
  ASSERT_EQ(application.Wait(patience), message::transferReady);
  twain::ImageInfo info{};
  ASSERT_EQ(application.Call(group::image, data::imageInfo, message::get, &info), result::success);
  EXPECT_EQ(info.bitsPerPixel, 48);
  std::vector<std::uint8_t> strip(1U << 20);
  twain::ImageMemory transfer{};
  transfer.memory = {twain::memory_flag::applicationOwns | twain::memory_flag::pointer,
                     static_cast<std::uint32_t>(strip.size()), strip.data()};
  std::uint16_t answer = result::success;
  std::uint32_t rows = 0;
  while (answer == result::success) {
    answer = application.Call(group::image, data::imageMemory, message::get, &transfer);
    rows += transfer.rows;
  }
  EXPECT_EQ(answer, result::transferDone);
  EXPECT_EQ(rows, static_cast<std::uint32_t>(info.length));
  EXPECT_EQ(application.EndTransfer(), 0);
}

// The loss that compression leaves behind, in images and in files. Wine's encoder knows one quality alone.
TEST_F(ScanRoad, JpegLosesALittle) {
  Acquisition application;
  ASSERT_NO_FATAL_FAILURE(Open(application));
  const Area area{1, 1, 2, 2};
  const Bitmap whole = Expected(data_source::NewSettings(), area);
  std::vector<double> losses;
  std::vector<std::uintmax_t> sizes;
  for (const int quality : {1, 9}) {
    set32::ScanSettings settings = data_source::NewSettings();
    data_source::PutArea(settings, area);
    settings.mode = set32::mode::jpegColour;
    settings.jpegQuality = quality;
    const HGLOBAL stored = GlobalAlloc(GMEM_FIXED, sizeof settings);
    std::memcpy(stored, &settings, sizeof settings);
    twain::CustomData record{sizeof settings, stored};
    ASSERT_EQ(application.Call(group::control, data::customData, message::set, &record), result::success);
    GlobalFree(stored);
    ASSERT_TRUE(application.Enable(false)) << application.Trouble();
    ASSERT_EQ(application.Wait(patience), message::transferReady);
    const Bitmap image = Take(application).front();
    ASSERT_EQ(image.size(), whole.size());
    double loss = 0;
    for (std::size_t i = 0; i < image.size(); ++i) loss += std::abs(image[i] - whole[i]);
    losses.push_back(loss / static_cast<double>(image.size()));
    EXPECT_TRUE(application.Disable());

    const fs::path file = PagesFolder() / "feeder" / ("quality-" + std::to_string(quality) + ".jpg");
    twain::SetupFile setup{};
    std::strncpy(setup.name, file.string().c_str(), sizeof setup.name - 1);
    setup.format = twain::file_format::jfif;
    ASSERT_EQ(application.Call(group::control, data::setupFile, message::set, &setup), result::success);
    ASSERT_TRUE(application.Enable(false));
    ASSERT_EQ(application.Wait(patience), message::transferReady);
    EXPECT_EQ(application.Call(group::image, data::imageFile, message::get, nullptr), result::transferDone);
    EXPECT_EQ(application.EndTransfer(), 0);
    EXPECT_TRUE(application.Disable());
    sizes.push_back(fs::file_size(file));
    EXPECT_EQ(std::ifstream(file, std::ios::binary).get(), 0xFF);
  }
  EXPECT_GE(losses[0], losses[1]);
  EXPECT_GT(losses[1], 0);
  EXPECT_LT(losses[1], 8);
  EXPECT_LE(sizes[0], sizes[1]);
}

// The same program as a child, which opens the panel and ends.
TEST_F(ScanRoad, AnApplicationMayEndWithoutClosing) {
  wchar_t program[MAX_PATH] = L"";
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  for (const wchar_t* how : {L"--leave-open", L"--leave-transferring"}) {
    std::wstring command = std::wstring(L"\"") + program + L"\" " + how;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    ASSERT_TRUE(
        CreateProcessW(program, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process));
    const set32::win32::OwnedHandle child(process.hProcess), thread(process.hThread);
    ASSERT_EQ(WaitForSingleObject(child.Get(), 60000), WAIT_OBJECT_0) << "the program hangs";
    DWORD status = 0;
    GetExitCodeProcess(child.Get(), &status);
    EXPECT_EQ(status, 7U);
  }
  Acquisition application;
  ASSERT_NO_FATAL_FAILURE(Open(application));
  EXPECT_TRUE(application.Enable(true)) << application.Trouble();
}

// What this process holds.
struct Held {
  int handles = set32::HandleCounter::SystemHandles();
  int drawing = set32::HandleCounter::DrawingObjects();
  int windows = 0;
  SIZE_T bytes = 0;

  Held() {
    constexpr std::uintptr_t last = 0x10000;
    for (std::uintptr_t at = 1; at < last; ++at) windows += IsWindow(reinterpret_cast<HWND>(at)) ? 1 : 0;
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    bytes = counters.PagefileUsage;
  }
};

TEST_F(ScanRoad, AHundredScansLeaveNothingBehind) {
  Acquisition application;
  ASSERT_NO_FATAL_FAILURE(Open(application));
  ASSERT_TRUE(application.Set(cap::resolutionX, type::fixed, 75));
  const auto scan = [&] {
    ASSERT_TRUE(application.Enable(true)) << application.Trouble();
    Person(application).Click(data_source::button::scan);
    ASSERT_EQ(application.Wait(patience), message::transferReady);
    ASSERT_EQ(Take(application).size(), 1U);
    ASSERT_TRUE(application.Disable());
  };
  constexpr int warmUp = 10, scans = 100;
  for (int i = 0; i < warmUp; ++i) ASSERT_NO_FATAL_FAILURE(scan());
  const Held before;
  for (int i = 0; i < scans; ++i) ASSERT_NO_FATAL_FAILURE(scan());
  const Held after;
  EXPECT_GT(before.handles, 0);
  EXPECT_GT(before.drawing, 0);
  EXPECT_EQ(after.handles, before.handles);
  EXPECT_EQ(after.windows, before.windows);
  EXPECT_EQ(after.drawing, before.drawing);
  EXPECT_LT(after.bytes, before.bytes + (1U << 20));
  std::printf("after a hundred scans: %d handles, %d windows, %d drawing objects, %ld KB more\n", after.handles,
              after.windows, after.drawing,
              (static_cast<long>(after.bytes) - static_cast<long>(before.bytes)) / 1024);
}

// What a child of the test does; it never comes back.
void LeaveOpen(bool transfers) {
  static Acquisition application;
  application.OpenManager(nullptr);
  if (application.OpenSource(sourceName) && application.Enable(true)) {
    if (!transfers) ExitProcess(7);
    Person(application).Click(data_source::button::scan);
    if (application.Wait(patience) == message::transferReady && application.Transfer()) ExitProcess(7);
  }
  ExitProcess(1);
}

// The source's dialog as a person has it in front, for the documents.
int TakePicture(const wchar_t* file) {
  Acquisition application;
  if (!application.OpenManager(nullptr) || !application.OpenSource(sourceName) || !application.Enable(true)) return 1;
  const Person person(application);
  person.Click(data_source::button::preview);
  person.Drag(100, 100, 600, 400);
  person.Drag(450, 500, 850, 900);
  constexpr DWORD settling = 1500;
  application.Wait(settling);
  return scan_desk::SaveSnapshot(file) ? 0 : 1;
}

}  // namespace
}  // namespace scan_road

int main(int count, char** values) {
  if (count == 2 && std::string_view(values[1]).starts_with("--leave")) {
    scan_road::LeaveOpen(std::string_view(values[1]) == "--leave-transferring");
  }
  if (count == 3 && std::string_view(values[1]) == "--picture") {
    const std::string file = values[2];
    return scan_road::TakePicture(std::wstring(file.begin(), file.end()).c_str());
  }
  testing::InitGoogleMock(&count, values);
  return RUN_ALL_TESTS();
}
