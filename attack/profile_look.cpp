#include "attack/profile_look.h"

#include "profile/config_items.h"

namespace set32 {

std::string ContentOf(Files& files) {
  std::string text;
  const auto file = files.OpenToRead(MemoryWorld::profilePath);
  if (file == nullptr) return text;
  text.resize(static_cast<std::size_t>(file->Size()));
  text.resize(file->Read({reinterpret_cast<std::uint8_t*>(text.data()), text.size()}));
  return text;
}

std::set<std::string> RowsOf(Files& files) {
  ProfileEngine engine(files);
  std::set<std::string> rows;
  ConfigEntries entries(engine, MemoryWorld::profilePath);
  for (ConfigEntry entry; entries.Next(entry);) rows.emplace(entry.name);
  return rows;
}

std::vector<std::string> NewFilesOf(Files& files) {
  std::vector<std::string> left = files.EndingsBeside(MemoryWorld::profilePath);
  std::erase_if(left, [](const std::string& ending) { return !ending.ends_with(".tmp"); });
  return left;
}

bool SaveFromLastRow(ProfilePanel& panel, const std::string& name) {
  auto& rows = panel.page->Get<List>(id::configList);
  panel.Hands().ArrowTo(rows, rows.Count() - 1);
  if (!panel.page->Get<Button>(id::saveButton).IsEnabled()) return false;
  panel.SaveAs(name);
  return true;
}

}  // namespace set32
