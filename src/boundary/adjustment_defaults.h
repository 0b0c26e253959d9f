// The neutral adjustments of a mode as the profile of scan configurations has them.
#pragma once

#include <cstdint>

namespace set32 {

struct AdjustmentDefaults {
  std::int32_t brightness = 0;
  std::int32_t contrast = 0;
  double gamma = 1.0;
  std::int32_t jpegQuality = 9;
};

}  // namespace set32
