#include "adjust/adjustment_rules.h"

namespace set32 {

void CopyAdjustmentsToPreview(const ScanSettings& settings, CDib& preview) {
  preview.brightness = settings.brightness;
  preview.contrast = settings.contrast;
  const bool byBand = settings.bandGamma == 1;
  preview.gammaRed = byBand ? settings.gammaRed : settings.gammaAll;
  preview.gammaGreen = byBand ? settings.gammaGreen : settings.gammaAll;
  preview.gammaBlue = byBand ? settings.gammaBlue : settings.gammaAll;
}

}  // namespace set32
