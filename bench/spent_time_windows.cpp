#include <windows.h>

#include <cstdint>

#include "bench/spent_time.h"

namespace set32 {

namespace {

double SecondsOf(const FILETIME& time) {
  return static_cast<double>(std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime) * 1e-7;
}

}  // namespace

const double spentTimeStep = 0.01;

double SpentTime() {
  FILETIME created;
  FILETIME ended;
  FILETIME kernel;
  FILETIME user;
  if (!GetThreadTimes(GetCurrentThread(), &created, &ended, &kernel, &user)) return 0.0;
  return SecondsOf(kernel) + SecondsOf(user);
}

}  // namespace set32
