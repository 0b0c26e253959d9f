// Any bytes as the whole profile: the list is built, walked, saved into, emptied and left, and the file stays one
// that reads back.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "profile/config_store.h"
#include "resources/ids.h"
#include "tests/support/memory_files.h"
#include "tests/support/memory_world.h"

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace set32;
  MemoryFiles files;
  files.content[MemoryWorld::profilePath] = std::string(reinterpret_cast<const char*>(data), size);
  MemoryWorld world(files);
  Module module(world.platform);
  MemoryHost host(world);
  world.desk.windows.SetOpenedHook([&](Dialog& opened) {
    if (opened.TemplateId() == dialog::saveConfig) world.desk.input.Click(opened.Get<Button>(id::ok));
  });
  Dialog* page = host.Open(module);
  Require(page != nullptr);
  auto& rows = page->Get<List>(id::configList);
  Input& hands = world.desk.input;
  const std::size_t entries = ReadConfigEntries(world.profiles, MemoryWorld::profilePath).size();
  Require(rows.Count() <= CConfigStore::mostRows);
  Require(static_cast<std::size_t>(rows.Count()) <= std::max<std::size_t>(entries, 1));
  for (int row = 0; row < rows.Count(); ++row) {
    row % 2 == 0 ? hands.ClickRow(rows, row) : hands.ArrowTo(rows, row);
    hands.PickEntry(page->Get<Combo>(id::resolutionCombo), row % 7);
  }
  hands.Click(page->Get<Button>(id::saveButton));
  for (int i = 0; i < 3 && page->Get<Button>(id::deleteButton).IsEnabled(); ++i) {
    hands.Click(page->Get<Button>(id::deleteButton));
  }
  host.End();
  // What the page's end wrote reads back.
  ScanSettings last{};
  std::string text(512, '\0');
  text.resize(world.profiles.GetString("Tmp", "Tmp", "", text, MemoryWorld::profilePath));
  Require(text.size() == 2 * sizeof(last));
  return 0;
}
