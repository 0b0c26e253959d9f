#include <time.h>

#include "bench/spent_time.h"

namespace set32 {

const double spentTimeStep = 0.0;

double SpentTime() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

}  // namespace set32
