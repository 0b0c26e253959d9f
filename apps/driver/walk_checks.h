// What must hold whenever the panel is at rest.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "apps/driver/session.h"

namespace set32 {

class WalkChecks {
 public:
  // Nothing while all holds, else what doesn't. `act` is the statement that ran last.
  using Finding = std::optional<std::string>;
  Finding Check(Session& session, const std::string& act);

  // What of this can be said of a record alone: its values of the picture are within their ranges.
  static Finding CheckAdjustments(const ScanSettings& settings);

 private:
  Finding CheckCodes(const ScanSettings& settings) const;
  Finding CheckAdvancedPage(Session& session) const;
  Finding CheckCombos(Session& session) const;
  Finding CheckLengths(Session& session) const;
  void NoteChanges(Session& session, const std::string& act);
  void NoteAdvancedPage(Session& session, bool isOpening, bool isChoiceOfMode);
  Finding CheckProfile(Session& session);
  Finding CheckNotified(Session& session, const std::string& act);

  std::map<std::string, std::string> factoryRows_;  // as they were when they were first seen
  std::uint32_t sizeBefore_ = 0;
  bool sizeIsNew_ = false;
  std::int32_t dpiBefore_ = 0;
  std::uint32_t modeBefore_ = 0;
  int tabBefore_ = -1;  // of the Advanced page
  bool pixelsAreOld_ = false;
  // Of the Advanced page's edits, by id: what each showed last, and what may stand there though it's no value any
  // more.
  std::map<int, std::string> textsBefore_, keptTexts_;
};

}  // namespace set32
