// What the person does.
#include <array>
#include <utility>

#include "apps/driver/interpreter.h"
#include "apps/driver/not_possible.h"
#include "apps/driver/possible.h"
#include "apps/driver/suggestions.h"

namespace set32 {

namespace {

ControlName RequireControl(const Word& word) {
  auto name = ParseControlName(word);
  if (!name) throw NotPossible(Quote(word.text) + " is no control", "`help` lists the controls by their ids");
  return *std::move(name);
}

// The answers that a box of this style offers.
bool Offers(std::uint32_t style, BoxAnswer answer) {
  constexpr std::uint32_t buttons = 0x0F;
  constexpr std::uint32_t okCancel = 1;
  constexpr std::uint32_t yesNoCancel = 3;
  const std::uint32_t kind = style & buttons;
  switch (answer) {
    case BoxAnswer::ok:
      return kind == box_style::ok || kind == okCancel;
    case BoxAnswer::cancel:
      return kind == okCancel || kind == yesNoCancel;
    case BoxAnswer::yes:
    case BoxAnswer::no:
      return kind == box_style::yesNo || kind == yesNoCancel;
  }
  return false;
}

constexpr std::array<std::pair<std::string_view, BoxAnswer>, 4> answers = {{
    {"yes", BoxAnswer::yes},
    {"no", BoxAnswer::no},
    {"ok", BoxAnswer::ok},
    {"cancel", BoxAnswer::cancel},
}};

BoxAnswer RequireAnswer(const Word& word, std::uint32_t style) {
  for (const auto& [name, answer] : answers) {
    if (name == word.text) return answer;
  }
  throw NotPossible("no button " + Quote(word.text), "the box has " + Listed(ButtonsOfBox(style)));
}

}  // namespace

std::vector<std::string> ButtonsOfBox(std::uint32_t style) {
  std::vector<std::string> buttons;
  for (const auto& [name, answer] : answers) {
    if (Offers(style, answer)) buttons.emplace_back(name);
  }
  return buttons;
}

void Interpreter::Pick(Words words) {
  const ControlName target = RequireControl(words[0]);
  if (const auto index = ParseIndex(words[1])) {
    session_.Person().Pick(target, *index);
  } else {
    session_.Person().Pick(target, words[1].text);
  }
}

void Interpreter::Click(Words words) {
  session_.Person().Click(RequireControl(words[0]));
}

void Interpreter::Row(Words words) {
  const ControlName target = RequireControl(words[0]);
  if (const auto index = ParseIndex(words[1])) {
    session_.Person().ClickRow(target, *index);
  } else if (!words[1].quoted && words[1].text == "none") {
    session_.Person().ClickBesideRows(target);
  } else {
    session_.Person().ClickRow(target, words[1].text);
  }
}

void Interpreter::Arrow(Words words) {
  const auto index = ParseIndex(words[1]);
  if (!index) throw NotPossible("arrow takes #INDEX");
  session_.Person().ArrowTo(RequireControl(words[0]), *index);
}

void Interpreter::Focus(Words words) {
  session_.Person().Focus(RequireControl(words[0]));
}

void Interpreter::Leave(Words) {
  session_.Person().Leave();
}

void Interpreter::Type(Words words) {
  session_.Person().Type(RequireControl(words[0]), words[1].text);
}

void Interpreter::Append(Words words) {
  session_.Person().Append(RequireControl(words[0]), words[1].text);
}

void Interpreter::Paste(Words words) {
  session_.Person().Paste(RequireControl(words[0]), words[1].text);
}

void Interpreter::Erase(Words words) {
  constexpr int most = 10000;
  session_.Person().Erase(RequireControl(words[0]), static_cast<int>(RequireInteger(words[1], 0, most)));
}

void Interpreter::FillAddress(Words words) {
  session_.Person().FillAddress(RequireControl(words[0]), words[1].text);
}

void Interpreter::Caret(Words words) {
  const int start = RequireInt(words[1]);
  session_.Person().SetCaret(RequireControl(words[0]), {start, words.size() > 2 ? RequireInt(words[2]) : start});
}

void Interpreter::Drop(Words words) {
  session_.Person().DropList(RequireControl(words[0]));
}

void Interpreter::Top(Words words) {
  session_.Person().ScrollList(RequireControl(words[0]), RequireInt(words[1]));
}

void Interpreter::PressKey(Words words) {
  static constexpr std::array<std::pair<std::string_view, Key>, 12> keys = {{
      {"enter", Key::enter},
      {"escape", Key::escape},
      {"tab", Key::tab},
      {"backtab", Key::backtab},
      {"left", Key::left},
      {"right", Key::right},
      {"up", Key::up},
      {"down", Key::down},
      {"pageup", Key::pageUp},
      {"pagedown", Key::pageDown},
      {"home", Key::home},
      {"end", Key::end},
  }};
  for (const auto& [name, key] : keys) {
    if (name == words[0].text) return session_.Person().PressKey(key);
  }
  std::vector<std::string> names;
  names.reserve(keys.size());
  for (const auto& [name, key] : keys) names.emplace_back(name);
  throw NotPossible("no key " + Quote(words[0].text), Suggest(words[0].text, names));
}

void Interpreter::Scroll(Words words) {
  std::optional<int> position;
  if (words.size() > 2) position = RequireInt(words[2]);
  session_.Person().Scroll(RequireControl(words[0]), RequireInt(words[1]), position);
}

void Interpreter::Spin(Words words) {
  session_.Person().Spin(RequireControl(words[0]), RequireInt(words[1]));
}

void Interpreter::PointAt(Words words) {
  session_.Person().MovePointer({RequireInt(words[0]), RequireInt(words[1])});
}

void Interpreter::Page(Words words) {
  if (words[0].text != "general" && words[0].text != "advanced") throw NotPossible("page takes general or advanced");
  session_.Person().TurnTo(words[0].text == "general" ? dialog::general : dialog::advanced);
}

void Interpreter::Resize(Words words) {
  constexpr int largest = 0x7FFF;
  session_.Resize({static_cast<int>(RequireInteger(words[0], 0, largest)),
                   static_cast<int>(RequireInteger(words[1], 0, largest))});
}

void Interpreter::Poke(Words words) {
  session_.Person().Poke(RequireControl(words[0]));
}

void Interpreter::Release(Words words) {
  session_.Person().Release(RequireControl(words[0]));
}

void Interpreter::Answer(Words words) {
  if (box_ == nullptr) throw NotPossible("no box stands", "it belongs into `when box`");
  const BoxAnswer answer = RequireAnswer(words[0], box_->style);
  if (!Offers(box_->style, answer)) {
    throw NotPossible("the box has no button " + words[0].text, "it has " + Listed(ButtonsOfBox(box_->style)));
  }
  box_->answer = answer;
}

}  // namespace set32
