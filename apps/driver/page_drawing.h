// A dialog drawn in characters, from the places and values of its controls.
#pragma once

#include <string>
#include <vector>

#include "platform/windows.h"

namespace set32 {

// One line a row, without its trailing blanks. `tabs` (may be null) is a bar that is drawn above the page.
std::vector<std::string> DrawInCharacters(const Dialog& dialog, const TabBar* tabs);

}  // namespace set32
