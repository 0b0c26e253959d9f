// The capabilities that the data source knows: what each offers, what stands, and what an application may set.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "apps/data-source/core/containers.h"
#include "apps/data-source/core/negotiation.h"
#include "apps/data-source/scanner/scanner.h"

namespace data_source {

// A frame in the unit that was agreed on.
Area FrameInInches(std::span<const double> frame, const set32::ScanSettings& settings);
void AppendFrame(std::vector<double>& numbers, const Area& area, const set32::ScanSettings& settings);
// The areas that a scan by this negotiation takes, of which there is always one.
std::vector<Area> AreasOf(const Negotiation& negotiation);
// One area, which becomes the record's too. False for one that the glass doesn't hold.
bool PutLayout(Negotiation& negotiation, const Area& area);

struct Capability {
  std::uint16_t id;
  std::uint16_t type;
  std::uint16_t container;  // of what it offers
  // The values on offer; of a range low, high and step. Null: whatever stands is on offer alone.
  std::vector<double> (*offers)(const Negotiation&);
  double (*current)(const Negotiation&, const Scanner&);
  // False for a value that can't be. Null: it can't be set.
  bool (*put)(Negotiation&, double);

  // Bits of twain::support.
  std::uint32_t Support() const;
};

std::span<const Capability> Capabilities();
const Capability* FindCapability(std::uint16_t id);

enum class Asked { offer, current, standard };

// The answer to a question for a capability.
Values Answer(const Capability& capability, Asked asked, const Negotiation& negotiation, const Scanner& scanner);
// Takes one of the values on offer over. Of a list the current one counts, of frames all. False for what can't be.
bool Take(const Capability& capability, const Values& values, Negotiation& negotiation);
void Reset(const Capability& capability, Negotiation& negotiation, const Scanner& scanner);

}  // namespace data_source
