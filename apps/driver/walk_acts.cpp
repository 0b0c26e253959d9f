#include "apps/driver/walk_acts.h"

#include "apps/driver/script_text.h"

namespace set32 {

namespace {

// Dialogs and boxes that any act may open, each left or answered in one of a few ways.
void AddBlocks(Chunk& chunk, int way, const std::string& name) {
  chunk.insert(chunk.end(), {"when box", way % 2 == 0 ? "answer yes" : "answer no", "end"});
  if (way % 3 == 0) {
    chunk.insert(chunk.end(), {"when 104", "click 2", "end"});
  } else {
    chunk.insert(chunk.end(),
                 {"when 104", "type 1003 " + Quote(name), "when box", "answer ok", "end", "click 1", "end"});
  }
  chunk.insert(chunk.end(), {"when 119", "click 2", "end"});
}

bool CanActOn(const Control& control) {
  return control.Exists() && control.IsVisible() && control.IsEnabled();
}

}  // namespace

Chunk WalkActs::Next(Session& session) {
  const Dialog* page = session.TheDesk().PageInFront();
  if (page == nullptr) return {"restart", "open"};
  constexpr int hostEvery = 4;
  if (Below(hostEvery) == 0) return ByHost();
  std::vector<const Control*> reachable;
  for (const auto& control : page->Controls()) {
    if (CanActOn(*control)) reachable.push_back(control.get());
  }
  if (reachable.empty()) return {"page general"};
  return AtControl(*page, *reachable[static_cast<std::size_t>(Below(static_cast<int>(reachable.size())))]);
}

Chunk WalkActs::AtControl(const Dialog& page, const Control& control) {
  std::string name = std::to_string(control.Id());
  if (page.TemplateId() != dialog::general) name.insert(0, std::to_string(page.TemplateId()) + ':');
  const auto index = [this](int count) { return " #" + std::to_string(Below(count)); };

  if (const auto* combo = dynamic_cast<const Combo*>(&control); combo != nullptr && combo->Count() > 0) {
    if (control.Id() != id::scannerCombo) return {"pick " + name + index(combo->Count())};
    return {"when 119", Below(2) == 0 ? "address 1099 \"10.0.0.9\"" : "show focus", "click 2", "end",
            "pick " + name + index(combo->Count())};
  }
  if (const auto* tabs = dynamic_cast<const TabBar*>(&control); tabs != nullptr && tabs->Count() > 0) {
    return {"pick " + name + index(tabs->Count())};
  }
  if (const auto* list = dynamic_cast<const List*>(&control); list != nullptr) {
    if (list->Count() == 0 || Below(8) == 0) return {"row " + name + " none"};
    return {(Below(2) == 0 ? "row " : "arrow ") + name + index(list->Count())};
  }
  if (dynamic_cast<const Edit*>(&control) != nullptr) return InEdit(name);
  if (dynamic_cast<const Slider*>(&control) != nullptr || dynamic_cast<const ScrollBar*>(&control) != nullptr) {
    const int code = Below(6);
    return {"scroll " + name + ' ' + std::to_string(code) + ' ' + std::to_string(Below(400) - 150),
            "scroll " + name + " 8"};
  }
  if (dynamic_cast<const Spin*>(&control) != nullptr) return {"spin " + name + (Below(2) == 0 ? " 1" : " -1")};
  if (dynamic_cast<const Button*>(&control) != nullptr || dynamic_cast<const CheckButton*>(&control) != nullptr) {
    Chunk chunk;
    const bool opensSomething = control.Id() == id::saveButton || control.Id() == id::deleteButton;
    if (opensSomething) AddBlocks(chunk, Below(6), std::string(1, static_cast<char>('a' + Below(6))));
    chunk.push_back("click " + name);
    return chunk;
  }
  return {Below(2) == 0 ? "leave" : "point " + std::to_string(Below(200)) + ' ' + std::to_string(Below(300))};
}

Chunk WalkActs::InEdit(const std::string& name) {
  switch (Below(7)) {
    case 0:
      return {"append " + name + ' ' + Quote(NumberText())};
    case 1:
      return {"paste " + name + ' ' + Quote(NumberText())};
    case 2:
      return {"erase " + name + ' ' + std::to_string(Below(4))};
    case 3:
      return {"focus " + name};
    case 4:
      return {"type " + name + ' ' + Quote(NumberText()), "key enter"};
    default:
      return {"type " + name + ' ' + Quote(NumberText()), "leave"};
  }
}

std::string WalkActs::NumberText() {
  static constexpr const char* odd[] = {"", " ", ".", "1.2.3", "-5", "1e5", "9999999", "0", "a7", "0.3", "11.69"};
  switch (Below(4)) {
    case 0:
      return OneOf(odd);
    case 1:
      return std::to_string(Below(5000));
    default:
      return std::to_string(Below(15)) + '.' + std::to_string(Below(100));
  }
}

std::string WalkActs::Report() {
  static constexpr int kinds[] = {0, 0, 0, 1, 2, 3};
  std::string line = "report " + std::to_string(OneOf(kinds));
  const auto hundredths = [this](int low, int high) { return Number((low + Below(high - low)) / 100.0); };
  line += " customWidth=" + hundredths(30, 850) + " customHeight=" + hundredths(30, 1169);
  line += " frameLeft=" + std::to_string(Below(300)) + " frameTop=" + std::to_string(Below(300));
  line += " units=" + std::to_string(Below(3));
  if (Below(2) == 0) line += " frame=" + std::to_string(1 + Below(4)) + ',' + std::to_string(Below(6));
  return line;
}

Chunk WalkActs::ByHost() {
  static constexpr const char* modes[] = {"1", "2", "4", "8", "16"};
  static constexpr const char* masks[] = {"0x7FFE", "0x1022", "0x1FFE", "0x1000", "0x0024"};
  static constexpr const char* restricted[] = {"300", "600", "1200", "2400"};
  switch (Below(16)) {
    case 0:
      return {"open"};
    case 1:
      return {"send 0x40A"};
    case 2:
      return {"send 0x40C"};
    case 3:
      return {std::string("set mode ") + OneOf(modes), "open"};
    case 4:
      return {std::string("limits 7 ") + OneOf(masks) + ' ' + std::to_string(600 + 600 * Below(9)) + " 75", "open"};
    case 5:
      return {"close", std::string("caps sourceCaps=0x60000 restrictedMaxDpi=") + OneOf(restricted), "restart",
              "open"};
    case 6:
      return {Below(2) == 0 ? "stores units" : "stores nothing"};
    case 7:
      return {"resize " + std::to_string(200 + Below(400)) + ' ' + std::to_string(300 + Below(400))};
    case 8:
      return {Below(3) == 0 ? "page advanced" : "page general"};
    case 9:
      return {"usb " + std::to_string(Below(5)) + (Below(2) == 0 ? " 0x0C5A 0x0E72" : " none")};
    case 10:
      return {"set descreen " + std::to_string(Below(2)), "set highBitDepth " + std::to_string(Below(2)), "open"};
    case 11:
      return {"ini options OPTION EnablePaperSource 1", "ini options OPTION LLDriverInterface 1", "restart", "open"};
    case 12:
      return {"leave"};
    default:
      return {Report()};
  }
}

}  // namespace set32
