// Times of works taken in turn, so that what else the machine does falls on all of them.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

namespace set32 {

template <typename Work>
double Seconds(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double Median(std::vector<double>& times) {
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::nth_element(times.begin(), middle, times.end());
  return *middle;
}

}  // namespace set32
