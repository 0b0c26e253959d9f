// The list file: "DL", the number of records cut to a byte, the selected index cut to a byte, then the records.
//
// Any bytes are read safely: the count isn't believed, a partial last record is dropped, and no more is held than the
// list's own limit.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/profile_calls.h"
#include "scanner/scanner_list.h"

namespace set32 {

// The nodes in order, and the added records: one that is also a node takes the node's place, the others follow. The
// file is replaced in one step. Result: whether it was; else the old file stands.
bool WriteListFile(ProfileCalls& profiles, const std::string& path, const CScannerList& list);

// Appends the file's scanners to the list, and makes the added list anew from the file. `show` is called with the
// name of each new scanner that is to be offered: all but those typed in that didn't answer. Result: false when there
// is no file or it doesn't begin as one; nothing is then changed.
bool ReadListFile(Files& files, std::string_view path, CScannerList& list,
                  const std::function<void(std::string_view name)>& show);

}  // namespace set32
