// What goes from the registry with the older value, and what can't be made to go.
#include <gtest/gtest.h>

#include <filesystem>

#include "apps/stage/model/folder_registry.h"
#include "scanner/registry_value.h"
#include "tests/support/scratch_folder.h"

namespace set32 {
namespace {

namespace fs = std::filesystem;

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
