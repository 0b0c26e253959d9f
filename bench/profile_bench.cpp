// One value of a profile of 130 keys with 400 digits each (55 KB), read and written, beside the least that such work
// can cost: open, read and one scan; write, flush and rename. Every round measures both in turn on the same file, so
// that what else the machine does falls on both; the counters hold the medians' ratio to the limit.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "bench/side_by_side.h"
#include "platform/posix/posix_files.h"
#include "platform/profile_engine.h"
#include "profile/profile_file.h"

namespace {

using namespace set32;

constexpr const char* section = "Config Items";
constexpr int keys = 130;
constexpr std::size_t digits = 400;

std::string KeyName(int index) {
  return std::string("configuration ").append(std::to_string(index));
}

std::string ProfileText() {
  std::string text = std::string("[").append(section).append("]\r\n");
  for (int i = 0; i < keys; ++i) text.append(KeyName(i)).append("=").append(digits, 'A').append("\r\n");
  return text;
}

std::string LastKey() {
  return KeyName(keys - 1);
}

class Profile {
 public:
  Profile() {
    char name[] = "/tmp/set32-bench-XXXXXX";
    if (mkdtemp(name) == nullptr) std::abort();
    folder_ = name;
    path = folder_ + "/p.ini";
    if (!engine.ReplaceFile(path.c_str(), text)) std::abort();
  }
  ~Profile() {
    for (const char* const name : {"/p.ini", "/p.ini.lock", "/p.new"}) unlink((folder_ + name).c_str());
    rmdir(folder_.c_str());
  }
  Profile(const Profile&) = delete;
  Profile& operator=(const Profile&) = delete;

  std::string text = ProfileText();
  std::string path;
  PosixFiles files;
  ProfileEngine engine{files};

  // The least that a read can be: the file in a block, and every byte looked at once.
  std::size_t ReadAtLeast() {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const ssize_t size = read(file, block_.data(), block_.size());
    close(file);
    const char* at = block_.data();
    const char* const end = at + size;
    std::size_t lines = 0;
    while ((at = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)))) != nullptr) {
      ++lines;
      ++at;
    }
    return lines;
  }

  // The least that a write can be.
  bool WriteAtLeast() {
    const std::string fresh = folder_ + "/p.new";
    const int file = open(fresh.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const bool written =
        write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size()) && fsync(file) == 0;
    close(file);
    return written && rename(fresh.c_str(), path.c_str()) == 0;
  }

 private:
  std::string folder_;
  std::vector<char> block_ = std::vector<char>(65536);
};

// Both in turn, each round as often as `repeats` says.
template <typename Limit, typename Ours>
void Compare(benchmark::State& state, int repeats, Limit limit, Ours ours) {
  std::vector<double> limitTimes;
  std::vector<double> ourTimes;
  const auto repeat = [repeats](auto work) {
    return Seconds([&] {
      for (int i = 0; i < repeats; ++i) work();
    });
  };
  for (auto _ : state) {
    limitTimes.push_back(repeat(limit));
    ourTimes.push_back(repeat(ours));
    state.SetIterationTime(ourTimes.back() / repeats);
  }
  const double least = Median(limitTimes) / repeats;
  const double own = Median(ourTimes) / repeats;
  state.counters["limit_us"] = least * 1e6;
  state.counters["ours_us"] = own * 1e6;
  state.counters["ratio"] = own / least;
}

void ReadOneValue(benchmark::State& state) {
  Profile profile;
  std::array<char, 512> value{};
  const std::string key = LastKey();
  Compare(
      state, 20, [&] { benchmark::DoNotOptimize(profile.ReadAtLeast()); },
      [&] {
        benchmark::DoNotOptimize(profile.engine.GetString(section, key.c_str(), "", value, profile.path.c_str()));
      });
}
BENCHMARK(ReadOneValue)->UseManualTime()->Unit(benchmark::kMicrosecond);

// A whole record through the profile object.
void ReadOneRecord(benchmark::State& state) {
  Profile profile;
  std::array<std::uint8_t, 200> record{};
  const std::string key = LastKey();
  CProfileFile file(profile.engine);
  file.SetFileName(profile.path.c_str());
  Compare(
      state, 20, [&] { benchmark::DoNotOptimize(profile.ReadAtLeast()); },
      [&] { benchmark::DoNotOptimize(file.GetBinary(section, key.c_str(), record, 0)); });
}
BENCHMARK(ReadOneRecord)->UseManualTime()->Unit(benchmark::kMicrosecond);

void WriteOneValue(benchmark::State& state) {
  Profile profile;
  const std::string key = LastKey();
  const std::string value(digits, 'B');
  Compare(
      state, 1, [&] { benchmark::DoNotOptimize(profile.WriteAtLeast()); },
      [&] {
        if (!profile.engine.WriteString(section, key.c_str(), value.c_str(), profile.path.c_str())) std::abort();
      });
}
BENCHMARK(WriteOneValue)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(1000);

}  // namespace
