// The time that a work took, whatever else the machine did meanwhile.
#pragma once

namespace set32 {

// What the clock below tells, for the line above a table.
extern const char* const spentTimeName;

// Seconds since some moment. On Linux the processor's time for this thread; Windows tells that in steps of 10 ms
// alone, so there it is the time of day.
double SpentTime();

}  // namespace set32
