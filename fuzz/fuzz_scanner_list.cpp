// Any bytes as the list file: they are read, written and read again, and the second reading finds what the first did.
#include <cstdlib>
#include <span>
#include <string>

#include "platform/profile_engine.h"
#include "scanner/list_file.h"
#include "tests/support/memory_files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace set32;
  MemoryFiles files;
  ProfileEngine profiles(files);
  files.content["list"].assign(data, data + size);
  CScannerList list;
  std::size_t shown = 0;
  const auto count = [&](std::string_view name) {
    if (name.size() >= scannerNameBytes || ++shown > list.Count()) std::abort();
  };
  if (!ReadListFile(files, "list", list, count)) return 0;
  if (list.selectedIndex > list.Count()) std::abort();
  if (!WriteListFile(profiles, "list", list)) std::abort();
  const std::string written = files.content["list"];
  CScannerList again;
  shown = 0;
  if (!ReadListFile(files, "list", again, count) || !WriteListFile(profiles, "list", again)) std::abort();
  if (files.content["list"].size() > written.size()) std::abort();
  list.ClearScannerList();
  if (list.Count() != 0 || list.Head() != nullptr) std::abort();
  return 0;
}
