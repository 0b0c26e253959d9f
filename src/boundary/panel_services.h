// What the two front ends of the adjustments ask of the page beside which they stand. Declared beneath them and
// implemented by the page, so that no arrow runs in a circle; adjustment_front.h is the other direction.
//
// Any of these may send messages to the host, and the host may end the page meanwhile; the page then works on a
// record of its own, so that nothing of the host's is touched afterwards.
#pragma once

#include <cstdint>

#include "boundary/adjustment_defaults.h"
#include "boundary/host_link.h"
#include "set32/dib.h"
#include "set32/host_records.h"

namespace set32 {

class PanelServices {
 public:
  virtual ~PanelServices() = default;

  virtual ScanSettings& Settings() = 0;
  virtual HostLink& Host() = 0;
  // The host's picture, null where there is none.
  virtual CDib* Preview() const = 0;
  // Highest resolution of a scan that the device restricts.
  virtual std::uint32_t RestrictedMaxDpi() const = 0;
  // What the profile has for the record's mode.
  virtual AdjustmentDefaults ReadAdjustmentDefaults() const = 0;

  // Makes the screen, the preview and the host agree with the settings.
  virtual void RefreshPanel() = 0;
  virtual void RefreshPreview() = 0;
  virtual void BuildResolutionList() = 0;
  // Keeps the settings in the configuration list, on the face that does so.
  virtual void AutoSaveConfig() = 0;
};

}  // namespace set32
