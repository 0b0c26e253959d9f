#include "apps/stage/model/edit_model.h"

#include <algorithm>

#include "platform/guarded.h"
#include "platform/utf8.h"

namespace set32 {

namespace {

constexpr int noLimit = 0x7FFE;  // what a single-line edit takes when nobody sets a limit
constexpr char backspace = '\b';

int CharactersIn(std::string_view text) {
  int count = 0;
  while (!text.empty()) {
    text.remove_prefix(utf8::CharacterLength(text));
    ++count;
  }
  return count;
}

std::size_t BytesBefore(std::string_view text, int characters) {
  std::size_t bytes = 0;
  for (int i = 0; i < characters && bytes < text.size(); ++i) bytes += utf8::CharacterLength(text.substr(bytes));
  return bytes;
}

bool IsControlCharacter(std::string_view character) {
  const auto first = static_cast<unsigned char>(character.front());
  return first < 0x20 || first == 0x7F;
}

}  // namespace

EditModel::EditModel(HeadlessDialog& dialog, const ControlTemplate& source, const Rect& place)
    : Modelled(dialog, source, place),
      text_(caption_),
      limit_(noLimit),
      readOnly_((source.flags & control_flag::readOnly) != 0),
      digitsOnly_((source.flags & control_flag::digitsOnly) != 0) {}

void EditModel::SetText(std::string_view text) {
  if (!Alive()) return;
  text_ = text;
  selection_ = {};
  TellChanged();
}

void EditModel::Select(TextRange range) {
  const int length = CharactersIn(text_);
  if (range.end < 0) range.end = length;
  range.start = std::clamp(range.start, 0, length);
  range.end = std::clamp(range.end, 0, length);
  selection_ = {std::min(range.start, range.end), std::max(range.start, range.end)};
}

void EditModel::ReplaceSelection(std::string_view text) {
  if (Alive()) Replace(selection_, text);
}

void EditModel::SetLimit(int characters) {
  limit_ = characters > 0 ? characters : noLimit;
}

void EditModel::SetGuard(EditGuard* guard) {
  if (Alive()) guard_ = guard;
}

void EditModel::Perish() {
  Modelled::Perish();
  text_.clear();
  selection_ = {};
  guard_ = nullptr;
}

void EditModel::Type(std::string_view character) {
  if (!Alive() || character.empty()) return;
  if (guard_ != nullptr && !Guarded(false, [&] { return guard_->OnCharacter(character); })) return;
  if (!Alive() || readOnly_) return;
  if (character.front() == backspace) {
    EraseBackwards();
  } else {
    Insert(character);
  }
}

void EditModel::Paste(std::string_view clipboard) {
  if (!Alive()) return;
  if (guard_ != nullptr && !Guarded(false, [&] { return guard_->OnPaste(); })) return;
  if (!Alive() || readOnly_) return;
  const std::string_view line = clipboard.substr(0, clipboard.find_first_of(std::string_view("\r\n\0", 3)));
  const std::string_view fitting = line.substr(0, BytesBefore(line, Room()));
  if (!fitting.empty()) Replace(selection_, fitting);
}

void EditModel::TellChanged() {
  Raise(EventKind::editUpdate);
  Raise(EventKind::editChanged);
}

void EditModel::Replace(TextRange range, std::string_view text) {
  const std::size_t from = BytesBefore(text_, range.start);
  const std::size_t to = BytesBefore(text_, range.end);
  const int caret = range.start + CharactersIn(text);
  text_.replace(from, to - from, text);
  Select({caret, caret});
  TellChanged();
}

void EditModel::Insert(std::string_view character) {
  if (IsControlCharacter(character) || Room() < 1) return;
  if (digitsOnly_ && (character.front() < '0' || character.front() > '9')) return;
  Replace(selection_, character);
}

void EditModel::EraseBackwards() {
  if (selection_.start == selection_.end) {
    if (selection_.start == 0) return;
    --selection_.start;
  }
  Replace(selection_, {});
}

int EditModel::Room() const {
  const int selected = selection_.end - selection_.start;
  return std::max(limit_ - (CharactersIn(text_) - selected), 0);
}

}  // namespace set32
