// The string table.
#pragma once

#include <string>
#include <string_view>

#include "platform/system.h"

namespace set32 {

// The text of an id in the module's code page; empty for an id that isn't in the table. Any thread.
std::string LoadString(System& system, int id);

// The same as it stands in the table, UTF-8.
std::string_view TextOf(int id);

}  // namespace set32
