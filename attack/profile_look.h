// What an attack sees of a profile and does at a panel that has one.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "tests/support/profile_panel.h"

namespace set32 {

std::string ContentOf(Files& files);
std::set<std::string> RowsOf(Files& files);
// Endings of the files that writers laid beside it and didn't take away.
std::vector<std::string> NewFilesOf(Files& files);

// Saves from the last row: where the one to select couldn't be read, the first is, which can't be saved. False where
// the panel offers no saving: its rows couldn't be read, and they stay away until it opens again.
bool SaveFromLastRow(ProfilePanel& panel, const std::string& name);

}  // namespace set32
