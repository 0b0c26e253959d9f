// The USB walk over numbered devices, and the older value in the registry.
#include <filesystem>

#include "scanner/default_device.h"
#include "scanner/registry_value.h"
#include "scanner/usb_walk.h"
#include "stage/model/folder_registry.h"
#include "tests/scanner/scanner_desk.h"
#include "tests/support/scratch_folder.h"

namespace set32 {
namespace {

namespace fs = std::filesystem;

class UsbWalk : public ScannerDesk {
 protected:
  void TearDown() override {}

  // "number vendor:product" of the scanner found.
  std::string Walk() {
    CScannerList list;
    std::int32_t first = -1;
    const bool found = EnumerateUsbScanners(usb_, profiles_, "module/module.ini", list, first);
    EXPECT_EQ(list.Count(), found ? 1 : 0);
    if (!found) return "none " + std::to_string(first);
    const ScannerRecord& record = list.Head()->record;
    EXPECT_EQ(record.type, scanner_type::usb);
    EXPECT_EQ(record.Name(), "USB");
    EXPECT_EQ(record.port, static_cast<std::uint32_t>(first));
    return std::to_string(first) + ' ' + std::to_string(record.highHalf) + ':' + std::to_string(record.lowHalf);
  }
  void Allow(const char* key, const char* value) {
    profiles_.WriteString("DeviceID", key, value, "module/module.ini");
  }
};

TEST_F(UsbWalk, EntersTheFirstDeviceThatIsAllowed) {
  EXPECT_EQ(Walk(), "none 0");
  usb_.Place(255, {0x0C5A, 0x0E72});
  EXPECT_EQ(Walk(), "none 0");
  usb_.Place(254, {0x0C5A, 0x0E72});
  EXPECT_EQ(Walk(), "254 3162:3698");
  usb_.PlaceSilent(0);
  usb_.Place(1, {0x0C5A, 0x0E73});
  usb_.Place(2, {0x000A, 0xBEEF});
  EXPECT_EQ(Walk(), "254 3162:3698");
  Allow("DeviceID0", "vid_000a&pid_beef");
  EXPECT_EQ(Walk(), "2 10:48879");
  usb_.Remove(2);
  EXPECT_EQ(Walk(), "254 3162:3698");  // the nine missing keys read as the built-in identifier
  for (int i = 1; i < 10; ++i) Allow(("DeviceID" + std::to_string(i)).c_str(), "VID_FFFF&PID_FFFF");
  EXPECT_EQ(Walk(), "none 0");
  for (const char* value : {"VID_0C5A&PID_0E7", "VID_0C5A&PID_0E722", "VID_0C5A&PID_0E7Z", ""}) {
    Allow("DeviceID3", value);
    EXPECT_EQ(Walk(), "none 0") << value;
  }
  Allow("DeviceID9", "VID_0C5A&PID_0E72");
  EXPECT_EQ(Walk(), "254 3162:3698");
}

class OlderValue : public ScannerDesk {
 protected:
  void StartWith(FolderRegistry& registry) {
    Platform platform{desk_->TheWindows(),   boxes_,  files_, paths_, profiles_, system_, network_, usb_, registry,
                      desk_->TheClipboard(), threads_};
    ModuleState state(platform);
    state.runtimeIniPath = "temp/options.ini";
    taken_ = TakeDefaultDevice(state);
  }
  void TearDown() override {}
  std::string taken_;
};

TEST_F(OlderValue, MovesToTheProfileAndGoesWithItsKey) {
  struct Case {
    const char* value;
    std::string stored, taken;
  };
  const std::string long256 = "1.2.3." + std::string(250, '4');
  for (const Case& c :
       {Case{"10.0.0.7", "10.0.0.7", "10.0.0.7"}, Case{"10.0.7", "10.9.9.9", "10.0.7"}, Case{"", "10.9.9.9", ""},
        Case{"...", "...", "..."}, Case{"1.2.3.4\n[x]", "10.9.9.9", "1.2.3.4\n[x]"},
        Case{long256.c_str(), long256.substr(0, 255), long256.substr(0, 255)}}) {
    SCOPED_TRACE(c.value);
    const ScratchFolder folder;
    FolderRegistry registry(folder.Path("registry"));
    profiles_.WriteString("Device", "Default", "10.9.9.9", "temp/options.ini");
    ASSERT_TRUE(registry.SetString("Software/Norvane\\K700", "IPAddress", c.value));
    ASSERT_TRUE(registry.SetString("Software/Norvane/Other/Deep", "x", "y"));
    ASSERT_TRUE(registry.SetString("Software/Neighbour", "x", "y"));
    StartWith(registry);
    EXPECT_EQ(taken_, c.taken);
    EXPECT_EQ(DefaultDevice(), c.stored);
    EXPECT_FALSE(fs::exists(folder.Path("registry") + "/Software/Norvane"));
    EXPECT_TRUE(fs::exists(folder.Path("registry") + "/Software/Neighbour/x"));
    StartWith(registry);
    EXPECT_EQ(taken_, c.stored);
  }
}

TEST_F(OlderValue, KeyWithoutTheValueGoesToo) {
  const ScratchFolder folder;
  FolderRegistry registry(folder.Path("registry"));
  ASSERT_TRUE(registry.SetString("software/norvane/k700", "Other", "10.0.0.7"));
  StartWith(registry);
  EXPECT_EQ(taken_, "");
  EXPECT_EQ(DefaultDevice(), "(none)");
  EXPECT_FALSE(fs::exists(folder.Path("registry") + "/software/norvane"));
}

TEST(DeleteRegistryTreeTest, TellsWhatStoppedIt) {
  const ScratchFolder folder;
  FolderRegistry registry(folder.Path("registry"));
  const std::unique_ptr<RegistryKey> user = registry.CurrentUser();
  ASSERT_TRUE(registry.SetString("a/b/c", "v", "1"));
  EXPECT_EQ(DeleteRegistryTree(*user, ""), registry_result::badKey);
  EXPECT_EQ(DeleteRegistryTree(*user, "nothing"), registry_result::fileNotFound);
  for (const char* noKey : {"..", ".", "a\\..", "/", "a\\", "a/b/c/v"}) {
    EXPECT_EQ(DeleteRegistryTree(*user, noKey), registry_result::fileNotFound) << noKey;
    EXPECT_FALSE(registry.SetString(noKey, "x", "y")) << noKey;
  }
  EXPECT_EQ(user->DeleteSubKey("a"), registry_result::accessDenied) << "it has keys of its own";
  EXPECT_EQ(DeleteRegistryTree(*user, "A\\B"), registry_result::success);
  EXPECT_TRUE(fs::exists(folder.Path("registry") + "/a"));
  EXPECT_FALSE(fs::exists(folder.Path("registry") + "/a/b"));
}

#ifndef _WIN32
TEST(DeleteRegistryTreeTest, LinksAreNotFollowed) {
  const ScratchFolder folder;
  fs::create_directory(folder.Path("outside"));
  folder.Write("outside/kept", "kept");
  FolderRegistry registry(folder.Path("registry"));
  ASSERT_TRUE(registry.SetString("key/inner", "v", "1"));
  fs::create_directory_symlink(folder.Path("outside"), folder.Path("registry/key/link"));
  fs::create_symlink(folder.Path("outside/kept"), folder.Path("registry/key/value"));
  std::string value;
  std::uint32_t result = 0;
  const std::unique_ptr<RegistryKey> key = registry.CurrentUser()->Open("key", RegistryAccess::read, result);
  ASSERT_NE(key, nullptr);
  EXPECT_EQ(key->ReadString("value", 10, value), registry_result::fileNotFound);
  EXPECT_EQ(key->Open("link", RegistryAccess::read, result), nullptr);
  EXPECT_EQ(DeleteRegistryTree(*registry.CurrentUser(), "key"), registry_result::success);
  EXPECT_FALSE(fs::exists(folder.Path("registry/key")));
  EXPECT_TRUE(fs::exists(folder.Path("outside/kept")));
}
#endif

// A registry whose keys say that they went and stay, or that open without an end.
class StubbornKey : public RegistryKey {
 public:
  explicit StubbornKey(bool endless, int& deletions) : endless_(endless), deletions_(deletions) {}
  std::uint32_t ReadString(std::string_view, std::size_t, std::string&) override { return 2; }
  std::uint32_t SubKeyName(std::uint32_t, std::string& name) override {
    name = "child";
    return endless_ || top_ ? registry_result::success : registry_result::noMoreItems;
  }
  std::unique_ptr<RegistryKey> Open(std::string_view, RegistryAccess, std::uint32_t& result) override {
    result = registry_result::success;
    auto key = std::make_unique<StubbornKey>(endless_, deletions_);
    key->top_ = opened_++ == 0 && root_;
    return key;
  }
  std::uint32_t DeleteSubKey(std::string_view) override {
    ++deletions_;
    return registry_result::success;
  }
  bool root_ = false;

 private:
  bool endless_;
  int& deletions_;
  bool top_ = false;
  int opened_ = 0;
};

TEST(DeleteRegistryTreeTest, EndsOnATreeThatHasNoEnd) {
  for (const bool endless : {true, false}) {
    int deletions = 0;
    StubbornKey root(endless, deletions);
    root.root_ = true;
    EXPECT_EQ(DeleteRegistryTree(root, "child"), registry_result::accessDenied);
    EXPECT_LT(deletions, 100'000);
  }
}

}  // namespace
}  // namespace set32
