// The panel over files that a test chooses, and all that it does with its profile.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "resources/ids.h"
#include "tests/support/memory_world.h"

namespace set32 {

struct ProfilePanel {
  explicit ProfilePanel(Files& files) : world(files), module(world.platform), host(world) {}
  bool Open() { return (page = host.Open(module)) != nullptr; }
  Input& Hands() { return world.screen.input; }

  void SaveAs(const std::string& name) {
    world.screen.windows.SetOpenedHook([this, name](Dialog& opened) {
      if (opened.TemplateId() != dialog::saveConfig) return;
      auto& edit = opened.Get<Edit>(id104::nameEdit);
      Hands().SelectAll(edit);
      Hands().TypeText(edit, name);
      Hands().Click(opened.Get<Button>(id::ok));
    });
    Hands().Click(page->Get<Button>(id::saveButton));
  }

  MemoryWorld world;
  Module module;
  MemoryHost host;
  Dialog* page = nullptr;
};

// One thing that the panel does to its profile, on one that holds the row "mine", which is selected.
struct ProfileWork {
  const char* name;
  std::function<void(ProfilePanel&)> act;
  bool opensFirst = true;  // else it begins without a panel and without a profile
  int writes = 1;
};

inline const std::vector<ProfileWork>& ProfileWorks() {
  static const std::vector<ProfileWork> works = {
      {"fresh profile", [](ProfilePanel& p) { p.Open(); }, false},
      {"save", [](ProfilePanel& p) { p.SaveAs("new"); }},
      {"replace", [](ProfilePanel& p) { p.host.record->jpegQuality = 1, p.SaveAs("mine"); }},
      {"change", [](ProfilePanel& p) { p.Hands().PickEntry(p.page->Get<Combo>(id::resolutionCombo), 4); }},
      {"change on a factory row",
       [](ProfilePanel& p) {
         p.Hands().ArrowTo(p.page->Get<List>(id::configList), 1);
         p.Hands().PickEntry(p.page->Get<Combo>(id::resolutionCombo), 4);
       }},
      {"delete", [](ProfilePanel& p) { p.Hands().Click(p.page->Get<Button>(id::deleteButton)); }},
      {"close", [](ProfilePanel& p) { p.host.record->jpegQuality = 2, p.host.End(); }, true, 2},
  };
  return works;
}

}  // namespace set32
