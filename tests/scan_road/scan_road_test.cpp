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

#include "apps/acquire/road/acquisition.h"
#include "apps/data-source/core/negotiation.h"
#include "apps/data-source/scanner/scanner.h"
#include "apps/data-source/window/dialog_window.h"
#include "apps/scan-desk/window/snapshot.h"
#include "resources/ids.h"
#include "set32/dib.h"

namespace {

namespace cap = twain::cap;
namespace data = twain::data;
namespace fs = std::filesystem;
namespace group = twain::group;
namespace id = set32::id;
namespace message = twain::message;
namespace result = twain::result;
namespace type = twain::type;
using acquire::Acquisition;
using acquire::Bitmap;
using data_source::Area;
using testing::HasSubstr;

constexpr char sourceName[] = "set32 data source";

fs::path PagesFolder() {
  wchar_t folder[MAX_PATH] = L"";
  GetEnvironmentVariableW(L"SCANNER_PAGES", folder, MAX_PATH);
  return folder;
}

// Of a colour that changes across, another that changes down, and a third that does both.
void WritePage(const fs::path& file) {
  constexpr int width = 425, height = 550, dpi = 50;
  data_source::ScannedImage page = data_source::EmptyImage(data_source::PixelKind::colour24, width, height, dpi);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const int levels[] = {x * 255 / width, y * 255 / height, (x + y) % 256};
      for (std::size_t band = 0; band < 3; ++band)
        page.Row(y)[static_cast<std::size_t>(x) * 3 + band] = static_cast<std::uint8_t>(levels[band]);
    }
  }
  Bitmap bitmap(data_source::BitmapSize(page));
  data_source::WriteBitmap(page, bitmap);
  const std::vector<std::uint8_t> head = data_source::BitmapFileHead(page);
  std::ofstream stream(file, std::ios::binary);
  stream.write(reinterpret_cast<const char*>(head.data()), static_cast<std::streamsize>(head.size()));
  stream.write(reinterpret_cast<const char*>(bitmap.data()), static_cast<std::streamsize>(bitmap.size()));
}

set32::BitmapInfoHeader HeaderOf(const Bitmap& bitmap) {
  set32::BitmapInfoHeader header{};
  if (bitmap.size() >= sizeof header) std::memcpy(&header, bitmap.data(), sizeof header);
  return header;
}

BOOL CALLBACK TakePage(HWND child, LPARAM found) {
  if (GetDlgItem(child, id::frameTabs) == nullptr) return TRUE;
  *reinterpret_cast<HWND*>(found) = child;
  return FALSE;
}

// The source's windows, and a person's hands on them: every act is a message that the application's loop gets.
class Person {
 public:
  explicit Person(Acquisition& application) : application_(application) {
    dialog_ = FindWindowW(data_source::dialogClass, nullptr);
    EnumChildWindows(dialog_, TakePage, reinterpret_cast<LPARAM>(&page_));
    preview_ = FindWindowExW(dialog_, nullptr, L"scan-desk-preview", nullptr);
  }

  HWND Dialog() const { return dialog_; }
  HWND Page() const { return page_; }
  HWND Control(int control) const { return GetDlgItem(page_, control); }

  void Press(HWND control, WPARAM key, int times = 1) const {
    SetFocus(control);
    for (int i = 0; i < times; ++i) {
      PostMessageW(control, WM_KEYDOWN, key, 1);
      PostMessageW(control, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
      application_.Wait(0);
    }
  }
  void Click(WORD button) const {
    PostMessageW(GetDlgItem(dialog_, button), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    PostMessageW(GetDlgItem(dialog_, button), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  }
  // From one place of the preview's window to another, in parts of a thousand of it.
  void Drag(int fromX, int fromY, int toX, int toY) const {
    RECT client{};
    GetClientRect(preview_, &client);
    application_.Wait(0);
    const auto at = [&](int x, int y) { return MAKELPARAM(client.right * x / 1000, client.bottom * y / 1000); };
    PostMessageW(preview_, WM_LBUTTONDOWN, MK_LBUTTON, at(fromX, fromY));
    PostMessageW(preview_, WM_MOUSEMOVE, MK_LBUTTON, at(toX, toY));
    PostMessageW(preview_, WM_LBUTTONUP, 0, at(toX, toY));
    application_.Wait(0);
  }
  // What stands in an edit beside another control.
  static int Number(HWND beside, int edit) {
    wchar_t text[16] = L"";
    GetWindowTextW(GetDlgItem(GetParent(beside), edit), text, 16);
    return static_cast<int>(std::wcstol(text, nullptr, 10));
  }
  // The upper slider of a tab of the Advanced page.
  HWND Slider(int tab) const {
    scan_desk::TurnToPage(page_, 1, tab);
    for (HWND page = GetWindow(GetParent(page_), GW_CHILD); page != nullptr; page = GetWindow(page, GW_HWNDNEXT)) {
      if (const HWND slider = GetDlgItem(page, set32::id148::firstSlider)) return slider;
    }
    return nullptr;
  }

 private:
  Acquisition& application_;
  HWND dialog_ = nullptr;
  HWND page_ = nullptr;
  HWND preview_ = nullptr;
};

class ScanRoad : public testing::Test {
 public:
  ~ScanRoad() override { DestroyWindow(parent_); }

 protected:
  ScanRoad() {
    fs::remove_all(PagesFolder());
    fs::create_directories(PagesFolder() / "feeder");
    WritePage(PagesFolder() / "page.bmp");
    parent_ = CreateWindowExW(0, L"Static", L"application", WS_OVERLAPPEDWINDOW, 0, 0, 300, 100, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
  }
  void Open(Acquisition& application) {
    ASSERT_TRUE(application.OpenManager(parent_)) << application.Trouble();
    ASSERT_TRUE(application.OpenSource(sourceName)) << application.Trouble();
  }

  // All images that are ready.
  static std::vector<Bitmap> Take(
      Acquisition& application, const std::function<void()>& before = [] {}) {
    std::vector<Bitmap> images;
    int waiting = 0;
    do {
      before();
      const std::optional<Bitmap> image = application.Transfer();
      EXPECT_TRUE(image) << application.Trouble();
      images.push_back(image.value_or(Bitmap()));
      waiting = application.EndTransfer();
    } while (waiting > 0);
    EXPECT_EQ(waiting, 0);
    return images;
  }

  // What the scanner behind the source makes of an area by itself.
  static Bitmap Expected(const set32::ScanSettings& settings, const Area& area) {
    const data_source::Scanner scanner(PagesFolder());
    const data_source::ScanResult scanned = scanner.Scan(PagesFolder() / "page.bmp", {settings, area, 128});
    Bitmap bitmap(data_source::BitmapSize(scanned.image));
    data_source::WriteBitmap(scanned.image, bitmap);
    return bitmap;
  }
  static Area LayoutOf(Acquisition& application) {
    twain::ImageLayout layout{};
    EXPECT_EQ(application.Call(group::image, data::imageLayout, message::get, &layout), result::success);
    const double left = data_source::FromFixed(layout.frame.left), top = data_source::FromFixed(layout.frame.top);
    return {left, top, data_source::FromFixed(layout.frame.right) - left,
            data_source::FromFixed(layout.frame.bottom) - top};
  }

  HWND parent_ = nullptr;
};

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

// What this process holds. Where the system doesn't count it, it is found by asking for each that could be there.
struct Held {
  int handles = 0, windows = 0, drawing = 0;
  SIZE_T bytes = 0;
};

Held WhatIsHeld() {
  Held held;
  constexpr std::uintptr_t last = 0x10000;
  DWORD ignored = 0;
  for (std::uintptr_t at = 1; at < last; ++at) {
    const HANDLE number = reinterpret_cast<HANDLE>(at);
    if (at % 4 == 0 && GetHandleInformation(number, &ignored)) ++held.handles;
    if (IsWindow(static_cast<HWND>(number))) ++held.windows;
    if (GetObjectType(number) != 0) ++held.drawing;
  }
  held.windows += static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS));
  held.drawing += static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS));
  PROCESS_MEMORY_COUNTERS counters{};
  counters.cb = sizeof counters;
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  held.bytes = counters.PagefileUsage;
  return held;
}

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
  const Held before = WhatIsHeld();
  for (int i = 0; i < scans; ++i) ASSERT_NO_FATAL_FAILURE(scan());
  const Held after = WhatIsHeld();
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

int main(int count, char** values) {
  if (count == 2 && std::string_view(values[1]).starts_with("--leave")) {
    LeaveOpen(std::string_view(values[1]) == "--leave-transferring");
  }
  if (count == 3 && std::string_view(values[1]) == "--picture") {
    const std::string file = values[2];
    return TakePicture(std::wstring(file.begin(), file.end()).c_str());
  }
  testing::InitGoogleMock(&count, values);
  return RUN_ALL_TESTS();
}
