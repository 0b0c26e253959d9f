#include <chrono>

#include "bench/spent_time.h"

namespace set32 {

const char* const spentTimeName = "time of day";

double SpentTime() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}  // namespace set32
