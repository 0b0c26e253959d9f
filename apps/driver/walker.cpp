#include "apps/driver/walker.h"

#include <optional>

namespace set32 {

Walker::Walker(Blocks unused)
    : unused_(unused),
      interpreter_(Outside(), {},
                   {[](const std::string&) {}, [this](const std::string& line) { complaint_ = line; }}) {}

Walker::Outcome Walker::Do(const Chunk& chunk) {
  complaint_.clear();
  std::size_t next = 0;
  interpreter_.Run([&](const std::string&) -> std::optional<SourceLine> {
    if (next >= chunk.size()) return {};
    ++next;
    return SourceLine{static_cast<int>(next), chunk[next - 1]};
  });
  // A control can go between the look and the act: a person would shrug. A dialog that nobody serves is a fault.
  const bool unserved = complaint_.find("waits for it") != std::string::npos;
  const bool forgives = unused_ == Blocks::forgotten || !complaint_.empty();
  if (forgives && interpreter_.Forgive() && unserved) return {Result::failed, complaint_};
  if (auto finding = checks_.Check(TheSession(), chunk.back())) return {Result::failed, *finding};
  return {complaint_.empty() ? Result::held : Result::notPossible, complaint_};
}

AssemblyOptions Walker::Outside() const {
  AssemblyOptions options;
  options.folder = folder_.Path();
  options.quickFiles = true;
  return options;
}

}  // namespace set32
