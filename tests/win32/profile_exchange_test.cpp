// The profile engine and the system's own calls on one file: what one writes the other reads.
#include <gmock/gmock.h>

#include <array>
#include <string>
#include <utility>

#include "platform/win32/windows_api.h"
#include "tests/support/profile_peer.h"
#include "tests/support/scratch_folder.h"

namespace set32 {
namespace {

std::string Read(ProfileCalls& calls, const char* section, const char* key, const std::string& file) {
  std::array<char, 1024> text{};
  return {text.data(), calls.GetString(section, key, "none", text, file.c_str())};
}

TEST(ProfileExchange, EachReadsAndChangesWhatTheOtherWrote) {
  const std::vector<ProfilePeer> peers = ProfilePeers();
  ASSERT_EQ(peers.size(), 2U);
  for (const auto& [first, second] : {std::pair{0, 1}, std::pair{1, 0}}) {
    const auto writer = peers[static_cast<std::size_t>(first)].make();
    const auto reader = peers[static_cast<std::size_t>(second)].make();
    const ScratchFolder folder;
    const std::string file = folder.Path("exchange.ini");
    // The system's calls may hold a file back until they are told to let it go.
    const auto letGo = [&] { WritePrivateProfileStringA(nullptr, nullptr, nullptr, file.c_str()); };
    const std::string digits(400, 'A');
    ASSERT_TRUE(writer->WriteString("Config Items", "two words", digits.c_str(), file.c_str()));
    ASSERT_TRUE(writer->WriteString("Config Items", "second", "1", file.c_str()));
    ASSERT_TRUE(writer->WriteString("Selected", "Active", "-1", file.c_str()));
    letGo();
    EXPECT_EQ(Read(*reader, "config items", "TWO WORDS", file), digits) << first;
    EXPECT_EQ(reader->GetInteger("Selected", "Active", 0, file.c_str()), 0xFFFFFFFFU);
    std::array<char, 1024> section{};
    const std::size_t size = reader->GetSection("Config Items", section, file.c_str());
    EXPECT_EQ(std::string(section.data(), size), "two words=" + digits + '\0' + "second=1" + '\0');

    ASSERT_TRUE(reader->WriteString("CONFIG ITEMS", "Second", "changed", file.c_str()));
    ASSERT_TRUE(reader->WriteString("Config Items", "two words", nullptr, file.c_str()));
    letGo();
    EXPECT_EQ(Read(*writer, "Config Items", "second", file), "changed");
    EXPECT_EQ(Read(*writer, "Config Items", "two words", file), "none");
    EXPECT_EQ(Read(*writer, "Selected", "Active", file), "-1");
  }
}

}  // namespace
}  // namespace set32
