#include "platform/control.h"

#include "platform/letter_case.h"

namespace set32 {

namespace {

template <typename Matches>
int FindRound(const Combo& combo, int after, Matches matches) {
  const int count = combo.Count();
  const int first = after >= 0 && after < count ? after + 1 : 0;
  for (int step = 0; step < count; ++step) {
    const int index = (first + step) % count;
    if (matches(combo.EntryText(index))) return index;
  }
  return -1;
}

}  // namespace

// A window's own search would fold the letters of every alphabet.
int Combo::FindPrefix(int after, std::string_view text) const {
  return FindRound(*this, after, [text](const std::string& entry) { return BeginsFolded(entry, text); });
}

int Combo::FindExact(int after, std::string_view text) const {
  return FindRound(*this, after, [text](const std::string& entry) { return EqualFolded(entry, text); });
}

}  // namespace set32
