// A picture for the works on pixels, and their time beside memcpy of the same bytes: every round takes both in turn,
// and the counters hold the medians and their ratio.
#pragma once

#include <benchmark/benchmark.h>
#include <time.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

#include "adjust/tone_tables.h"
#include "bench/side_by_side.h"

namespace set32 {

struct PageSize {
  int width;
  int height;
  const char* name;
};

inline constexpr PageSize pageSizes[] = {{2550, 3507, "2550x3507"}, {850, 1169, "850x1169"}};

// Noise in short runs: neither flat nor wholly without likeness between neighbours.
class Page {
 public:
  explicit Page(const PageSize& size) : width(size.width), height(size.height) {
    header_ = {40, width, height, 1, 24, 0, 0, 0, 0, 0, 0};
    dib.header = &header_;
    dib.ComputeMetrics();
    source.resize(dib.imageSize);
    std::mt19937 random(1);
    std::uint8_t level = 0;
    for (auto& byte : source) {
      if (random() % 4 == 0) level = static_cast<std::uint8_t>(random());
      byte = level;
    }
    display = source;
    dib.sourcePixels = source.data();
    dib.displayPixels = display.data();
    dib.brightness = 20;
    dib.contrast = 10;
    dib.gammaRed = 1.1;
    dib.gammaGreen = 1.2;
    dib.gammaBlue = 1.3;
    BuildToneTables(dib);
  }
  ~Page() { dib.header = nullptr; }
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;

  std::uint8_t* SourceRow(int row) { return source.data() + static_cast<std::size_t>(row) * dib.stride; }
  std::uint8_t* DisplayRow(int row) { return display.data() + static_cast<std::size_t>(row) * dib.stride; }

  int width;
  int height;
  CDib dib;
  std::vector<std::uint8_t> source;
  std::vector<std::uint8_t> display;

 private:
  BitmapInfoHeader header_;
};

template <typename Measured>
double ThreadSeconds(Measured work) {
  const auto now = [] {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
  };
  const double start = now();
  work();
  return now() - start;
}

template <typename Work>
void MeasureBeside(benchmark::State& state, const Page& page, Work work) {
  std::vector<std::uint8_t> copy(page.source.size());
  std::vector<double> copyTimes;
  std::vector<double> workTimes;
  for (auto _ : state) {
    copyTimes.push_back(ThreadSeconds([&] {
      std::memcpy(copy.data(), page.source.data(), copy.size());
      benchmark::DoNotOptimize(copy.data());
      benchmark::ClobberMemory();
    }));
    workTimes.push_back(ThreadSeconds(work));
    state.SetIterationTime(workTimes.back());
  }
  const double copied = Median(copyTimes);
  const double worked = Median(workTimes);
  state.counters["memcpy_ms"] = copied * 1e3;
  state.counters["ours_ms"] = worked * 1e3;
  state.counters["ratio"] = worked / copied;
}

}  // namespace set32
