// Works on a page beside memcpy of the whole page, as a table for people: ratios, milliseconds, budgets and whether
// they hold.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "bench/measured_page.h"

namespace set32 {

inline constexpr double noBudget = 0.0;

struct Measured {
  std::string work;
  std::string road;                                     // or another's name for the work of a peer
  double budget;                                        // ratio to memcpy at full page
  std::function<std::function<void()>(Page&)> prepare;  // the page outlives the work
};

// Reads the command line, measures and prints. Every round takes memcpy and a work in turn for each row; the table
// has the ratio of their medians. The result is the program's: 0, or 2 for words that mean nothing.
int MeasureAndPrint(int argc, char** argv, const char* title, const std::vector<Measured>& rows);

// Keeps a compiler from leaving out work whose result nobody reads.
inline void Keep(const void* result) {
  asm volatile("" : : "g"(result) : "memory");
}

}  // namespace set32
