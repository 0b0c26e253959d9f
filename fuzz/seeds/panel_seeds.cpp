#include "fuzz/seeds/seeds.h"

namespace set32::fuzz {

void AddPanels(Seeds& seeds) {
  constexpr std::size_t acts = 300;
  constexpr std::size_t fewer = 150;  // each may render
  for (const char* target : {"fuzz_edits", "fuzz_windows", "fuzz_host_record", "fuzz_inline_face"})
    seeds.AddChoices(target, acts);
  for (const char* target : {"fuzz_advanced_page", "fuzz_host_picture"}) seeds.AddChoices(target, fewer);
}

}  // namespace set32::fuzz
