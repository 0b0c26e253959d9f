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

Chunk WalkActs::First() const {
  if (face_ == Face::sheet) return {"open"};
  return {"ini options Option UIFace 0", "args jpegModes=1 outputBits=48", "open"};
}

// Only the inline page can be opened again by the same process.
Chunk WalkActs::Next(Session& session) {
  const Dialog* page = session.TheScene().PageInFront();
  if (page == nullptr || session.Host().Page() == 0)
    return face_ == Face::inlinePage && Below(2) == 0 ? Chunk{"open"} : Chunk{"restart", "open"};
  constexpr int hostEvery = 4;
  if (Below(hostEvery) == 0) return ByHost();
  const Dialog* advanced = session.TheScene().Find(dialog::gamma);
  constexpr int dialogEvery = 8;
  if (advanced == nullptr && face_ == Face::inlinePage && Below(dialogEvery) == 0) return {"click 3094"};
  const bool inDialog = advanced != nullptr && advanced->IsVisible() && Below(4) != 0;
  return ByPerson(session, inDialog ? *advanced : *page);
}

Chunk WalkActs::ByPerson(Session& session, const Dialog& place) {
  constexpr int keyEvery = 6;
  if (session.TheScene().Focused() && Below(keyEvery) == 0) return ByKey();
  if (place.TemplateId() == dialog::gamma && Below(keyEvery * 5) == 0) return {"close 103"};
  std::vector<const Control*> reachable;
  for (const auto& control : place.Controls()) {
    if (CanActOn(*control)) reachable.push_back(control.get());
  }
  if (reachable.empty()) return {"page general"};
  return AtControl(place, *reachable[static_cast<std::size_t>(Below(static_cast<int>(reachable.size())))]);
}

Chunk WalkActs::AtControl(const Dialog& page, const Control& control) {
  std::string name = std::to_string(control.Id());
  if (page.TemplateId() != dialog::general) name.insert(0, std::to_string(page.TemplateId()) + ':');
  const auto index = [this](int count) { return " #" + std::to_string(Below(count)); };

  if (const auto* combo = dynamic_cast<const Combo*>(&control); combo != nullptr && combo->Count() > 0) {
    if (control.Id() != id::scannerCombo || page.TemplateId() != dialog::general)
      return {"pick " + name + index(combo->Count())};
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
  if (dynamic_cast<const Slider*>(&control) != nullptr) return AtBar(name, true);
  if (dynamic_cast<const ScrollBar*>(&control) != nullptr) return AtBar(name, false);
  if (dynamic_cast<const Spin*>(&control) != nullptr) return {"spin " + name + (Below(2) == 0 ? " 1" : " -1")};
  if (dynamic_cast<const Button*>(&control) != nullptr || dynamic_cast<const CheckButton*>(&control) != nullptr) {
    Chunk chunk;
    const bool opensSomething =
        page.TemplateId() == dialog::general && (control.Id() == id::saveButton || control.Id() == id::deleteButton);
    if (opensSomething) AddBlocks(chunk, Below(6), std::string(1, static_cast<char>('a' + Below(6))));
    chunk.push_back("click " + name);
    return chunk;
  }
  return {Below(2) == 0 ? "leave" : "point " + std::to_string(Below(200)) + ' ' + std::to_string(Below(300))};
}

// A drag, a page, a line: each ends with the end of the scroll, a slider's drag with the button going up.
Chunk WalkActs::AtBar(const std::string& name, bool isSlider) {
  Chunk chunk;
  const std::string scroll = "scroll " + name + ' ';
  const int code = Below(isSlider ? scroll_code::endScroll : scroll_code::leftEnd);
  const int times = 1 + Below(3);
  for (int i = 0; i < times; ++i) {
    chunk.push_back(scroll + std::to_string(code) + ' ' + std::to_string(Below(500) - 200));
  }
  if (isSlider && CarriesPosition(code)) chunk.push_back("release " + name);
  chunk.push_back(scroll + std::to_string(scroll_code::endScroll));
  return chunk;
}

// Tab leads on without an act of its own, so it comes most often. Any other key may do what a click does.
Chunk WalkActs::ByKey() {
  static constexpr const char* keys[] = {"tab",  "tab",  "tab",    "backtab",  "left", "right", "up",
                                         "down", "home", "pageup", "pagedown", "end",  "enter", "escape"};
  Chunk chunk;
  AddBlocks(chunk, Below(6), "k");
  chunk.push_back(std::string("key ") + OneOf(keys));
  return chunk;
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
  switch (const int kind = Below(18)) {
    case 0:
      return {"send 0x40A"};
    case 1:
      return {"send 0x40C"};
    case 2:
      return {"resize " + std::to_string(200 + Below(400)) + ' ' + std::to_string(300 + Below(400))};
    case 3:
    case 4:
      return {Below(3) == 0 ? "page general" : "page advanced"};
    case 5:
      return {"leave"};
    case 6:
      return {"enable no", "enable yes"};
    case 7:
      return InsideAMessage();
    case 8:
    case 9:
    case 10:
      return {Report()};
    default:
      return BetweenOpenings(kind - 11);
  }
}

Chunk WalkActs::BetweenOpenings(int kind) {
  static constexpr const char* modes[] = {"1", "2", "4", "8", "16"};
  static constexpr const char* masks[] = {"0x7FFE", "0x1022", "0x1FFE", "0x1000", "0x0024"};
  static constexpr const char* restricted[] = {"300", "600", "1200", "2400"};
  switch (kind) {
    case 0:
      return Below(2) == 0 ? Chunk{"open"} : Chunk{"record new", "open"};
    case 1:
      return {std::string("set mode ") + OneOf(modes), "open"};
    case 2:
      return {std::string("limits 7 ") + OneOf(masks) + ' ' + std::to_string(600 + 600 * Below(9)) + " 75", "open"};
    case 3:
      return {"close", std::string("caps sourceCaps=0x60000 restrictedMaxDpi=") + OneOf(restricted), "restart",
              "open"};
    case 4:
      if (face_ == Face::inlinePage) return BesideTheInlinePage();
      return {Below(2) == 0 ? "stores units" : "stores nothing",
              "usb " + std::to_string(Below(5)) + (Below(2) == 0 ? " 0x0C5A 0x0E72" : " none")};
    case 5:
      return {"set descreen " + std::to_string(Below(2)), "set highBitDepth " + std::to_string(Below(2)), "open"};
    default:
      return {"ini options OPTION EnablePaperSource 1", "ini options OPTION LLDriverInterface 1", "restart", "open"};
  }
}

// The host refuses a source, ends the page, or opens the other face in the same process.
Chunk WalkActs::BesideTheInlinePage() {
  switch (Below(6)) {
    case 0:
    case 1:
      return {Below(2) == 0 ? "answers 2 0" : "answers 2 1"};
    case 2:
      return {"close", "open"};
    case 3:
      return {"ini options Option UIFace 1", "open"};
    default:
      return {"ini options Option UIFace 0", "open"};
  }
}

// The host answers a message with an act of its own, or the end of the panel.
Chunk WalkActs::InsideAMessage() {
  static constexpr const char* messages[] = {"0x401", "0x402", "0x403", "0x404", "0x409", "0x40C"};
  static constexpr const char* acts[] = {"open", "open", "send 0x40A", "show settings", "close"};
  return {std::string("when host ") + OneOf(messages), OneOf(acts), "end"};
}

}  // namespace set32
