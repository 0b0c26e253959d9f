// Hexadecimal records of a profile: the reader stores bytes only where every character is a digit, never past its
// block, and reads back what the writer wrote.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/profile_calls.h"
#include "profile/profile_file.h"

namespace {

using namespace set32;

void Check(bool holds) {
  if (!holds) std::abort();
}

// A profile that holds one value.
class OneValue : public ProfileCalls {
 public:
  std::string value;

  std::size_t GetString(const char*, const char*, const char*, std::span<char> out, const char*) override {
    if (out.empty()) return 0;
    const std::size_t count = value.copy(out.data(), out.size() - 1);
    out[count] = '\0';
    return count;
  }
  std::uint32_t GetInteger(const char*, const char*, std::int32_t fallback, const char*) override {
    return static_cast<std::uint32_t>(fallback);
  }
  std::size_t GetSection(const char*, std::span<char>, const char*) override { return 0; }
  bool WriteString(const char*, const char*, const char* text, const char*) override {
    value = text;
    return true;
  }
  bool ReplaceFile(const char*, std::span<const char>) override { return false; }
  bool CreateIfAbsent(const char*, std::span<const char>) override { return false; }
};

constexpr std::string_view hexDigits = "0123456789abcdefABCDEF";
constexpr std::uint8_t untouched = 0x5A;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::size_t offset = data[0];
  const std::size_t room = data[1];
  OneValue calls;
  calls.value.assign(reinterpret_cast<const char*>(data) + 2, size - 2);
  const CProfileFile profile(calls);

  std::array<std::uint8_t, 256> block{};
  block.fill(untouched);
  const std::size_t count = profile.GetBinary("s", "k", std::span(block).first(room), offset);
  const std::size_t available = profile.GetBinary("s", "k", {}, offset);
  Check(count == std::min(available, room));
  Check(std::all_of(block.begin() + static_cast<std::ptrdiff_t>(count), block.end(),
                    [](std::uint8_t byte) { return byte == untouched; }));
  const bool foreign = calls.value.find_first_not_of(hexDigits) != std::string::npos;
  const std::size_t bytes = calls.value.size() / 2;
  Check(available == (foreign || bytes <= offset ? 0 : bytes - offset));

  // What was read is written and read back the same.
  const auto read = std::span(block).first(count);
  Check(profile.WriteBinary("s", "k", read) && calls.value.size() == 2 * count);
  std::array<std::uint8_t, 256> again{};
  Check(profile.GetBinary("s", "k", again, 0) == count && std::equal(read.begin(), read.end(), again.begin()));
  return 0;
}
