// The roads by kind of processor; pixel_roads.h chooses among them.
#pragma once

#include "adjust/pixel_roads.h"

namespace set32 {

PixelRoad PortableRoad();

}  // namespace set32
