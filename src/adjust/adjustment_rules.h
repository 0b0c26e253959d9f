// The rules of the image adjustments as functions of the record. Any thread.
#pragma once

#include "dib.h"
#include "host_records.h"

namespace set32 {

// Brightness, contrast and the gammas of the bands into the preview's own copy.
void CopyAdjustmentsToPreview(const ScanSettings& settings, CDib& preview);

}  // namespace set32
