// Statements that wait for a dialog, a box or a message, and run inside it.
#include <limits>
#include <utility>

#include "apps/driver/interpreter.h"
#include "apps/driver/kept.h"
#include "apps/driver/not_possible.h"
#include "apps/driver/possible.h"
#include "apps/driver/suggestions.h"

namespace set32 {

namespace {

constexpr char boxPlace[] = "box";
constexpr char hostPlace[] = "host";
constexpr char dialogsWithBlocks[] = "there are: 103, 104, 119, box, host MESSAGE";

std::vector<Word> WordsOrNone(std::string_view line) {
  try {
    return SplitWords(line);
  } catch (const NotPossible&) {
    return {};
  }
}

bool IsWord(const std::vector<Word>& words, std::size_t index, std::string_view text) {
  return index < words.size() && !words[index].quoted && SameWord(words[index].text, text);
}

// Whether a line begins lines that end with `end`.
bool OpensBlock(const std::vector<Word>& words) {
  return IsWord(words, 0, "when") || (IsWord(words, 0, "expect") && IsWord(words, 1, "heard") && words.size() == 2);
}

std::string HostPlace(std::uint32_t message) {
  return std::string(hostPlace) + ' ' + Hexadecimal(message);
}

std::uint32_t RequireMessage(const Word& word) {
  return static_cast<std::uint32_t>(RequireInteger(word, 0, std::numeric_limits<std::uint16_t>::max()));
}

// Throws NotPossible for a dialog in which nobody acts.
std::string DialogPlace(const Word& word) {
  switch (const int id = RequireInt(word)) {
    case dialog::gamma:
    case dialog::saveConfig:
    case dialog::addScanner:
      return std::to_string(id);
    case dialog::message:
    case dialog::searching:
      throw NotPossible("dialog " + word.text + " takes no statements", dialogsWithBlocks);
    default:
      throw NotPossible("no dialog " + word.text, dialogsWithBlocks);
  }
}

}  // namespace

void Interpreter::When(Words words) {
  const bool isHost = words[0].text == hostPlace;
  if (isHost != (words.size() == 2)) throw NotPossible("the form is: when DIALOG | box | host MESSAGE ... end");
  const std::string place = isHost                      ? HostPlace(RequireMessage(words[1]))
                            : words[0].text == boxPlace ? boxPlace
                                                        : DialogPlace(words[0]);
  blocks_[place].push_back(ReadBlock());
}

std::optional<Interpreter::Block> Interpreter::TakeBlock(const std::string& place) {
  const auto queue = blocks_.find(place);
  if (queue == blocks_.end() || queue->second.empty()) return {};
  Block block = std::move(queue->second.front());
  queue->second.pop_front();
  return block;
}

Interpreter::Block Interpreter::ReadBlock() {
  Block block;
  int open = 1;
  while (true) {
    auto line = NextLine(*lines_, "... ");
    if (!line) throw NotPossible("`end` is missing", "it stands on a line of its own behind the block's last one");
    const std::vector<Word> words = WordsOrNone(line->text);
    if (OpensBlock(words)) ++open;
    if (IsWord(words, 0, "end") && words.size() == 1 && --open == 0) {
      block.endLine = line->number;
      return block;
    }
    block.lines.push_back(*std::move(line));
  }
}

void Interpreter::OnModalOpened(Dialog& dialog) {
  const WindowHandle window = dialog.Handle();
  const int id = dialog.TemplateId();
  const Inside inside{"dialog " + std::to_string(id), std::to_string(id) + "> ", id,
                      [this, window] { return session_.IsClosed(window); },
                      [this, &dialog, id] {
                        return "dialog " + std::to_string(id) + " is open: " + WaysOut(session_.TheScene(), dialog) +
                               " leaves it, `help` lists its controls";
                      }};
  int line = current_.number;
  if (!Stopped()) {
    auto block = TakeBlock(std::to_string(id));
    if (block) line = block->endLine;
    if (!block && !options_.interactive) {
      const std::string number = std::to_string(id);
      Fail(line, inside.name + " opens and no `when` block waits for it",
           "lay `when " + number + "`, what happens inside and `end` before this line");
    } else {
      RunInside(inside, block ? &*block : nullptr);
    }
  }
  if (inside.closed()) return;
  if (!Stopped()) {
    Fail(line, "the `when` block ends while " + inside.name + " is open",
         WaysOut(session_.TheScene(), dialog) + " leaves it");
  }
  dialog.EndModal(dialog_result::cancel);
}

void Interpreter::OnModelessOpened(Dialog& dialog) {
  if (Stopped()) return;
  const int id = dialog.TemplateId();
  auto block = TakeBlock(std::to_string(id));
  if (!block && options_.interactive && id == dialog::gamma) {
    Print(
        "(dialog 103 stands beside the page: `help 103` lists its controls, `show page 103` draws it, `close 103` "
        "closes it)");
  }
  if (!block) return;
  const WindowHandle window = dialog.Handle();
  const Inside inside{
      "dialog " + std::to_string(id), {}, id, [this, window] { return session_.IsClosed(window); }, {}};
  RunInside(inside, &*block);
}

BoxAnswer Interpreter::OnBox(const ShownBox& box) {
  if (Stopped()) return FirstAnswer(box.style);
  OpenBox open{box.style, {}};
  const Kept keptBox(box_);
  box_ = &open;
  auto block = TakeBlock(boxPlace);
  if (block || options_.interactive) {
    RunInside({"the box", "box> ", session_.TheScene().DefaultDialog(), [&open] { return open.answer.has_value(); },
               [&open] { return "the box waits: `answer` and one of " + Listed(ButtonsOfBox(open.style)); }},
              block ? &*block : nullptr);
  }
  return open.answer.value_or(FirstAnswer(box.style));
}

// What the person names without a number is the page, whatever the panel was doing when it told the host.
void Interpreter::OnHostMessage(std::uint32_t message) {
  if (Stopped()) return;
  if (auto block = TakeBlock(HostPlace(message))) {
    RunInside({"message " + Hexadecimal(message), {}, dialog::general, [] { return false; }, {}}, &*block);
  }
}

void Interpreter::RunInside(const Inside& inside, Block* block) {
  constexpr int deepest = 16;  // real windows drop messages that stand some dozens deep inside one another
  if (depth_ == deepest) return Fail(current_.number, "statements stand too deep inside one another");
  const Kept keptDepth(depth_);
  ++depth_;
  Scene& scene = session_.TheScene();
  const int outerDialog = scene.DefaultDialog();
  const Kept keptInside(inside_);
  const Kept keptCurrent(current_);
  inside_ = &inside;
  scene.SetDefaultDialog(inside.defaultDialog);
  if (block != nullptr) RunBlock(inside, *block);
  if (options_.interactive && !inside.prompt.empty()) RunPrompt(inside);
  scene.SetDefaultDialog(outerDialog);
}

void Interpreter::RunBlock(const Inside& inside, Block& block) {
  RunLines([&](const std::string&) -> std::optional<SourceLine> {
    if (block.lines.empty()) return {};
    SourceLine line = std::move(block.lines.front());
    block.lines.pop_front();
    if (inside.closed() && !WordsOrNone(line.text).empty()) {
      Fail(line.number, inside.name + " is closed already", "`end` belongs before this line");
      return {};
    }
    return line;
  });
}

void Interpreter::RunPrompt(const Inside& inside) {
  if (!inside.closed() && !Stopped()) Print('(' + inside.wayOut() + ')');
  RunLines([&](const std::string& prompt) -> std::optional<SourceLine> {
    if (inside.closed()) return {};
    auto line = (*outermost_)(prompt == "> " ? inside.prompt : prompt);
    if (!line) quit_ = true;
    return line;
  });
}

// The panel's module and windows would end under the panel's own feet.
void Interpreter::Restart(Words) {
  if (inside_ != nullptr) {
    throw NotPossible("the host's process can't end inside " + inside_->name, "`restart` belongs behind it");
  }
  blocks_.clear();
  session_.Restart();
}

}  // namespace set32
