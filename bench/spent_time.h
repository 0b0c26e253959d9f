// The time that a work took, whatever else the machine did meanwhile.
#pragma once

namespace set32 {

// Seconds of the processor that this thread has spent.
double SpentTime();

// The clock's steps in seconds; 0 when they don't matter.
extern const double spentTimeStep;

}  // namespace set32
